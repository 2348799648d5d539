#include "faults/calls/DiskModel.h"
#include "platform/linux/Autostart.h"
#include "platform/linux/LinuxRegistry.h"
#include <gtest/gtest.h>

namespace faults {
namespace {
using platform::Root;
using platform::linuxdesktop::CAutostart;
using platform::linuxdesktop::CLinuxRegistry;

// What a user has: the options one by one, as the next start reads them, and every other file as a whole.
using Possessions = std::map<std::string, std::string>;

constexpr char RegistryName[] = "parlune/registry.txt";
const std::pair<const char*, const char*> Options[] = {
    {"Software\\Tarrowind\\Parlune", "UserName"},
    {"Software\\Tarrowind\\Parlune", "Greeting1"},
    {"Software\\Microsoft\\Windows\\CurrentVersion\\Run", "Parlune"},
};

std::optional<std::string> OptionOf(CLinuxRegistry& registry, const char* path, const char* name)
{
    const auto key = registry.Open(Root::CurrentUser, path);
    const auto size = key ? key->ValueSize(name) : std::nullopt;
    return size ? key->Value(name, *size) : std::nullopt;
}

bool IsOfRegistry(const std::string& path) { return path.starts_with(RegistryName); }

// A name that the program gives a file until it is complete.
bool IsUnfinished(const std::string& path) { return path.ends_with(".new") || path.ends_with(".parlune"); }

Possessions AfterNextStart(const Snapshot& files)
{
    const CTemporaryFolder folder;
    Possessions found;
    for (const auto& [path, state] : files) {
        folder.Write(path, state.bytes);
        if (!IsOfRegistry(path) && !IsUnfinished(path))
            found[path] = state.bytes;
    }
    CLinuxRegistry registry(folder.Path(RegistryName), CAutostart(folder.Path("autostart/parlune.desktop"), "/opt/parlune"));
    for (const auto& [path, name] : Options)
        if (const auto value = OptionOf(registry, path, name))
            found[name] = *value;
    return found;
}

// The files that a link leads to are looked at by their own names.
class PowerLoss : public testing::TestWithParam<SaveKind> {
protected:
    PowerLoss() : m_save(GetParam().prepare(m_folder)), m_before(TakeSnapshot(m_folder.Path()))
    {
        const CWatch watch(m_folder.Path());
        saved = m_save->Act();
        calls = watch.Calls();
        former = AfterNextStart(m_before);
        now = AfterNextStart(TakeSnapshot(m_folder.Path()));
    }
    CDisk DiskBefore() const { return {m_folder.Path(), m_before}; }

    bool saved = false;
    std::vector<Call> calls;
    Possessions former, now;

private:
    CTemporaryFolder m_folder;
    std::unique_ptr<ISave> m_save;
    Snapshot m_before;
};

// What is found, or nothing.
std::optional<std::string> Of(const Possessions& all, const std::string& name)
{
    const auto found = all.find(name);
    return found == all.end() ? std::nullopt : std::optional(found->second);
}

bool IsOldOrNew(const Possessions& found, const Possessions& former, const Possessions& now, std::string& bad)
{
    Possessions all = former;
    all.insert(now.begin(), now.end());
    all.insert(found.begin(), found.end());
    for (const auto& [name, ignored] : all) {
        bad = name;
        if (Of(found, name) != Of(former, name) && Of(found, name) != Of(now, name))
            return false;
    }
    return true;
}
}

TEST_P(PowerLoss, AtAnyMoment_WhatTheUserHasIsOldOrNew)
{
    CDisk disk = DiskBefore();
    std::size_t states = 0;
    for (const Call& call : calls) {
        disk.Make(call);
        std::string bad;
        disk.ForEachState([&](const Snapshot& files) {
            ++states;
            EXPECT_TRUE(IsOldOrNew(AfterNextStart(files), former, now, bad))
                << bad << " after " << call.name << " " << call.path;
        });
    }
    EXPECT_GT(states, calls.size());
    RecordProperty("states", static_cast<int>(states));
}

TEST_P(PowerLoss, AfterTheSave_WhatTheUserHasIsNew)
{
    CDisk disk = DiskBefore();
    for (const Call& call : calls)
        disk.Make(call);
    ASSERT_TRUE(saved);
    disk.ForEachState([&](const Snapshot& files) { EXPECT_EQ(AfterNextStart(files), now); });
}

INSTANTIATE_TEST_SUITE_P(After, PowerLoss, testing::ValuesIn(AllSaves()), [](const auto& kind) { return kind.param.name; });

TEST(Disk, WhatWasNotFlushed_MayBeGoneOrHalf)
{
    CDisk disk("/home", {{"a", {"old", 0}}});
    disk.Make({.name = "create", .path = "/home/b", .descriptor = 3});
    disk.Make({.name = "write", .path = "/home/b", .bytes = "new!", .descriptor = 3});
    disk.Make({.name = "rename", .path = "/home/b", .other = "/home/a"});
    std::map<std::string, int> seen;
    disk.ForEachState([&](const Snapshot& files) { ++seen[files.at("a").bytes]; });
    EXPECT_EQ(seen.size(), 5U);
    for (const char* bytes : {"old", "", "ne", "new!"})
        EXPECT_TRUE(seen.contains(bytes)) << bytes;
}

TEST(Disk, WhatWasFlushed_IsThere)
{
    CDisk disk("/home", {});
    disk.Make({.name = "create", .path = "/home/b", .descriptor = 3});
    disk.Make({.name = "write", .path = "/home/b", .bytes = "new!", .descriptor = 3});
    disk.Make({.name = "fsync", .path = "/home/b", .descriptor = 3});
    disk.Make({.name = "open", .path = "/home", .descriptor = 4});
    disk.Make({.name = "fsync", .path = "/home", .descriptor = 4});
    disk.ForEachState([](const Snapshot& files) { EXPECT_EQ(files.at("b").bytes, "new!"); });
}
}
