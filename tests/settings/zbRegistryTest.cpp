#include "settings/zbRegistry.h"
#include "support/FailEachCall.h"
#include <gtest/gtest.h>

namespace {

using zbRegistry::Root;

constexpr char Key[] = "Software\\Tarrowind\\Parlune";

std::string Get(const std::string& name, const std::string& defaultValue = "default")
{
    return zbRegistry::GetReg(Root::CurrentUser, Key, name, defaultValue);
}

void PutSayTime(CHeadlessDesktop& desktop) { desktop.registry.Put(Root::CurrentUser, Key, "SayTime", "1"); }

}

TEST(zbRegistry, GetReg_AText_IsReadWithoutItsTerminator)
{
    CHeadlessDesktop desktop;
    PutSayTime(desktop);
    EXPECT_EQ(Get("SayTime"), "1");
}

TEST(zbRegistry, GetReg_AMissingKey_GivesTheDefaultAndCreatesNothing)
{
    CHeadlessDesktop desktop;
    EXPECT_EQ(Get("SayTime"), "default");
    EXPECT_FALSE(desktop.registry.HasKey(Root::CurrentUser, Key));
}

TEST(zbRegistry, GetReg_AMissingValue_GivesTheDefault)
{
    CHeadlessDesktop desktop;
    PutSayTime(desktop);
    EXPECT_EQ(Get("UserName"), "default");
}

TEST(zbRegistry, GetReg_AnEmptyText_IsEmpty)
{
    CHeadlessDesktop desktop;
    desktop.registry.Put(Root::CurrentUser, Key, "UserName", "");
    EXPECT_EQ(Get("UserName"), "");
}

TEST(zbRegistry, GetReg_AValueWithoutAnyByte_GivesTheDefault)
{
    CHeadlessDesktop desktop;
    desktop.registry.PutBytes(Root::CurrentUser, Key, "UserName", "");
    EXPECT_EQ(Get("UserName"), "default");
}

TEST(zbRegistry, GetReg_ANumber_YieldsItsBytesLessTheLast)
{
    CHeadlessDesktop desktop;
    desktop.registry.PutBytes(Root::CurrentUser, Key, "Count", std::string("\x41\x42\x43\x44", 4));
    EXPECT_EQ(Get("Count"), "ABC");
}

TEST(zbRegistry, GetReg_NulsInsideTheData_AreKept)
{
    CHeadlessDesktop desktop;
    desktop.registry.PutBytes(Root::CurrentUser, Key, "List", std::string("a\0b\0\0", 5));
    EXPECT_EQ(Get("List"), std::string("a\0b\0", 4));
}

TEST(zbRegistry, GetReg_AStar_ReadsTheDefaultValue)
{
    CHeadlessDesktop desktop;
    desktop.registry.Put(Root::CurrentUser, Key, "", "page.htm");
    EXPECT_EQ(Get("*"), "page.htm");
}

TEST(zbRegistry, GetReg_AnEmptyName_ReadsTheDefaultValue)
{
    CHeadlessDesktop desktop;
    desktop.registry.Put(Root::ClassesRoot, "Agent.Control.2\\CLSID", "", "{1}");
    EXPECT_EQ(zbRegistry::GetReg(Root::ClassesRoot, "Agent.Control.2\\CLSID", "", ""), "{1}");
}

TEST(zbRegistry, GetReg_ARefusalToOpen_GivesTheDefaultWithoutAReport)
{
    CHeadlessDesktop desktop;
    PutSayTime(desktop);
    desktop.registry.RefuseToOpen(true);
    EXPECT_EQ(Get("SayTime"), "default");
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST(zbRegistry, GetReg_TheOtherRoot_IsAnotherStore)
{
    CHeadlessDesktop desktop;
    PutSayTime(desktop);
    EXPECT_EQ(zbRegistry::GetReg(Root::ClassesRoot, Key, "SayTime", "default"), "default");
}

TEST(zbRegistry, GetReg_TheData_IsAskedForWithExactlyItsSize)
{
    CHeadlessDesktop desktop;
    PutSayTime(desktop);
    Get("SayTime");
    EXPECT_EQ(desktop.journal.Calls(), (std::vector<std::string>{"Registry.Open CurrentUser Software\\Tarrowind\\Parlune",
                                                                 "Registry.ValueSize SayTime", "Registry.Value SayTime"}));
}

TEST(zbRegistry, GetReg_WhenTheRegistryRaises_ReportsItselfAndReturnsTheDefault)
{
    std::string value;
    support::FailEachCall(
        PutSayTime, [&](CHeadlessDesktop&) { value = Get("SayTime", "0"); },
        [&](const support::FailedRun& run) {
            support::ExpectReport(run, {{"", "bRegistry:GetReg"}});
            EXPECT_EQ(value, "0");
        });
}

TEST(zbRegistry, SetReg_AText_ReadsBackAsTheSameText)
{
    CHeadlessDesktop desktop;
    EXPECT_TRUE(zbRegistry::SetReg(Root::CurrentUser, Key, "UserName", "Ann ä"));
    EXPECT_EQ(Get("UserName"), "Ann ä");
}

TEST(zbRegistry, SetReg_AnEmptyText_ReadsBackAsEmpty)
{
    CHeadlessDesktop desktop;
    EXPECT_TRUE(zbRegistry::SetReg(Root::CurrentUser, Key, "UserName", ""));
    EXPECT_EQ(Get("UserName"), "");
}

TEST(zbRegistry, SetReg_ANumber_IsWrittenInFourBytes)
{
    CHeadlessDesktop desktop;
    EXPECT_TRUE(zbRegistry::SetReg(Root::CurrentUser, Key, "Contexts", std::int32_t{0x44434241}));
    EXPECT_EQ(Get("Contexts"), "ABC");
    EXPECT_EQ(desktop.journal.Count("Registry.SetNumber Contexts 1145258561"), 1U);
}

TEST(zbRegistry, SetReg_AMissingKeyPath_IsCreated)
{
    CHeadlessDesktop desktop;
    zbRegistry::SetReg(Root::CurrentUser, Key, "UserName", "Ann");
    EXPECT_TRUE(desktop.registry.HasKey(Root::CurrentUser, "Software\\Tarrowind"));
    EXPECT_TRUE(desktop.registry.HasKey(Root::CurrentUser, Key));
}

TEST(zbRegistry, SetReg_AStar_WritesTheDefaultValue)
{
    CHeadlessDesktop desktop;
    EXPECT_TRUE(zbRegistry::SetReg(Root::CurrentUser, Key, "*", "page.htm"));
    EXPECT_EQ(desktop.registry.Text(Root::CurrentUser, Key, ""), "page.htm");
}

TEST(zbRegistry, SetReg_AStarAndANumber_WriteTheDefaultValue)
{
    CHeadlessDesktop desktop;
    EXPECT_TRUE(zbRegistry::SetReg(Root::CurrentUser, Key, "*", std::int32_t{7}));
    EXPECT_TRUE(desktop.registry.Text(Root::CurrentUser, Key, "").has_value());
}

TEST(zbRegistry, SetReg_ARefusedKey_IsFalseWithoutAReport)
{
    CHeadlessDesktop desktop;
    desktop.registry.RefuseToOpen(true);
    EXPECT_FALSE(zbRegistry::SetReg(Root::CurrentUser, Key, "UserName", "Ann"));
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

namespace {

// A key that can be opened and refuses every write.
class CReadOnlyRegistry final : public platform::IRegistry {
public:
    struct CReadOnlyKey final : platform::IRegistryKey {
        std::optional<std::size_t> ValueSize(const platform::ValueName&) const override { return 5; }
        std::optional<std::string> Value(const platform::ValueName&, std::size_t) const override { return std::nullopt; }
        bool SetText(const platform::ValueName&, const std::string&) override { return false; }
        bool SetNumber(const platform::ValueName&, std::int32_t) override { return false; }
        bool DeleteValue(const platform::ValueName&) override { return false; }
    };
    std::unique_ptr<platform::IRegistryKey> Open(Root, std::string_view) override
    {
        return std::make_unique<CReadOnlyKey>();
    }
    std::unique_ptr<platform::IRegistryKey> Create(Root, std::string_view) override
    {
        return std::make_unique<CReadOnlyKey>();
    }
    bool DeleteKey(Root, std::string_view) override { return false; }
};

class ReadOnly : public testing::Test {
protected:
    CHeadlessDesktop desktop;
    CReadOnlyRegistry registry;
    const platform::CPlatform& now = platform::Current();
    platform::CPlatform platform{now.characterEngines, now.clipboard,   now.clock,         now.environment,
                                 now.events,           now.fileDialogs, now.files,         now.fonts,
                                 now.keptTexts,        now.locale,      now.messageBoxes,  now.office,
                                 now.profile,          now.program,     now.random,        registry,
                                 now.screen,           now.shell,       now.speechEngines, now.stateFile,
                                 now.trayIcon};
    platform::CPlatformInUse inUse{platform};
};

}

TEST_F(ReadOnly, SetReg_ARefusedWrite_IsFalseWithoutAReport)
{
    EXPECT_FALSE(zbRegistry::SetReg(Root::CurrentUser, Key, "UserName", "Ann"));
    EXPECT_FALSE(zbRegistry::SetReg(Root::CurrentUser, Key, "Contexts", std::int32_t{1}));
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST_F(ReadOnly, GetReg_ASizeButNoData_GivesTheDefault) { EXPECT_EQ(Get("UserName"), "default"); }

TEST_F(ReadOnly, DelReg_ARefusedDeletion_IsFalse)
{
    EXPECT_FALSE(zbRegistry::DelReg(Root::CurrentUser, Key, "UserName"));
    EXPECT_FALSE(zbRegistry::DelReg(Root::CurrentUser, Key, ""));
}

TEST(zbRegistry, SetReg_WhenTheRegistryRaises_ReportsItselfAndIsFalse)
{
    bool written = true;
    support::FailEachCall(
        [](CHeadlessDesktop&) {},
        [&](CHeadlessDesktop&) { written = zbRegistry::SetReg(Root::CurrentUser, Key, "UserName", "Ann"); },
        [&](const support::FailedRun& run) {
            support::ExpectReport(run, {{"", "bRegistry:SetReg"}});
            EXPECT_FALSE(written);
        });
}

TEST(zbRegistry, SetReg_WhenTheRegistryRaisesOnANumber_ReportsItselfAndIsFalse)
{
    bool written = true;
    support::FailEachCall(
        [](CHeadlessDesktop&) {},
        [&](CHeadlessDesktop&) { written = zbRegistry::SetReg(Root::CurrentUser, Key, "Contexts", std::int32_t{1}); },
        [&](const support::FailedRun& run) {
            support::ExpectReport(run, {{"", "bRegistry:SetReg"}});
            EXPECT_FALSE(written);
        });
}

TEST(zbRegistry, DelReg_AnEmptyName_DeletesTheKeyItself)
{
    CHeadlessDesktop desktop;
    PutSayTime(desktop);
    EXPECT_TRUE(zbRegistry::DelReg(Root::CurrentUser, Key, ""));
    EXPECT_FALSE(desktop.registry.HasKey(Root::CurrentUser, Key));
}

TEST(zbRegistry, DelReg_AKeyWithKeysBelowIt_StaysThere)
{
    CHeadlessDesktop desktop;
    PutSayTime(desktop);
    desktop.registry.Put(Root::CurrentUser, "Software\\Tarrowind\\Parlune\\Group", "Item", "1");
    EXPECT_FALSE(zbRegistry::DelReg(Root::CurrentUser, Key, ""));
    EXPECT_EQ(Get("SayTime"), "1");
}

TEST(zbRegistry, DelReg_AMissingKey_IsFalse)
{
    CHeadlessDesktop desktop;
    EXPECT_FALSE(zbRegistry::DelReg(Root::CurrentUser, Key, ""));
    EXPECT_FALSE(zbRegistry::DelReg(Root::CurrentUser, Key, "SayTime"));
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST(zbRegistry, DelReg_AName_DeletesThatValueOnly)
{
    CHeadlessDesktop desktop;
    PutSayTime(desktop);
    desktop.registry.Put(Root::CurrentUser, Key, "UserName", "Ann");
    EXPECT_TRUE(zbRegistry::DelReg(Root::CurrentUser, Key, "SayTime"));
    EXPECT_EQ(Get("SayTime"), "default");
    EXPECT_EQ(Get("UserName"), "Ann");
}

TEST(zbRegistry, DelReg_AMissingValue_IsFalse)
{
    CHeadlessDesktop desktop;
    PutSayTime(desktop);
    EXPECT_FALSE(zbRegistry::DelReg(Root::CurrentUser, Key, "UserName"));
}

TEST(zbRegistry, DelReg_AStar_DeletesTheDefaultValue)
{
    CHeadlessDesktop desktop;
    desktop.registry.Put(Root::CurrentUser, Key, "", "page.htm");
    EXPECT_TRUE(zbRegistry::DelReg(Root::CurrentUser, Key, "*"));
    EXPECT_EQ(Get("*"), "default");
    EXPECT_TRUE(desktop.registry.HasKey(Root::CurrentUser, Key));
}

TEST(zbRegistry, DelReg_WhenTheRegistryRaises_ReportsItselfAndIsFalse)
{
    for (const char* name : {"SayTime", ""}) {
        bool deleted = true;
        support::FailEachCall(
            PutSayTime, [&](CHeadlessDesktop&) { deleted = zbRegistry::DelReg(Root::CurrentUser, Key, name); },
            [&](const support::FailedRun& run) {
                support::ExpectReport(run, {{"", "bRegistry:DelReg"}});
                EXPECT_FALSE(deleted);
            });
    }
}
