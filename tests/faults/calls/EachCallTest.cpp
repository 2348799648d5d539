#include "faults/calls/Saves.h"
#include "faults/calls/SystemCalls.h"
#include <algorithm>
#include <cerrno>
#include <gtest/gtest.h>

namespace faults {
namespace {
// One save, of which one system call fails, in a folder of its own.
class CPlay {
public:
    CPlay(const SaveKind& kind, const Fault& fault) : m_save(kind.prepare(m_folder)), m_before(TakeSnapshot(m_folder.Path()))
    {
        const CWatch watch(m_folder.Path(), fault);
        m_saved = m_save->Act();
        m_calls = watch.Calls();
    }
    bool Saved() const { return m_saved; }
    bool SaveAgain() { return m_save->Act(); }
    const std::vector<Call>& Calls() const { return m_calls; }
    const Snapshot& Before() const { return m_before; }
    Snapshot Now() const { return TakeSnapshot(m_folder.Path()); }
    // A file that should be gone, and would be if the disk had let it.
    bool CouldNotRemove(const std::string& path) const
    {
        return std::any_of(m_calls.begin(), m_calls.end(), [&](const Call& call) {
            return call.name == "unlink" && call.failed && call.path == m_folder.Path(path);
        });
    }

private:
    CTemporaryFolder m_folder;
    std::unique_ptr<ISave> m_save;
    Snapshot m_before;
    std::vector<Call> m_calls;
    bool m_saved = false;
};

std::string WhatFailed(const CPlay& play, const Fault& fault)
{
    const auto& calls = play.Calls();
    return "call " + std::to_string(fault.number) + " of " + std::to_string(calls.size()) + ", " +
           (fault.number <= calls.size() ? calls[fault.number - 1].name + " " + calls[fault.number - 1].path : "none") +
           ", errno " + std::to_string(fault.error) + (fault.stays ? " from there on" : "");
}

class EverySave : public testing::TestWithParam<SaveKind> {
protected:
    // Without a fault.
    const Snapshot saved = CPlay(GetParam(), {}).Now();

    void ExpectOldOrNew(const CPlay& play) const
    {
        for (const auto& [path, state] : play.Now()) {
            const auto former = In(play.Before(), path), now = In(saved, path);
            EXPECT_TRUE(state == former || state == now || (!former && !now && play.CouldNotRemove(path))) << path;
        }
        for (const auto& [path, state] : play.Before())
            EXPECT_TRUE(In(play.Now(), path) || !In(saved, path)) << path << " is gone";
    }
    void ExpectTold(const CPlay& play) const
    {
        if (play.Saved()) {
            for (const auto& [path, state] : saved)
                EXPECT_EQ(In(play.Now(), path), state) << path << " is not what was said to be saved";
        }
    }
    // Lets each call fail in turn. `check` looks at what became of it.
    template <class Check> void FailEachCall(Fault fault, Check check) const
    {
        for (fault.number = 1;; ++fault.number) {
            CPlay play(GetParam(), fault);
            if (fault.number > play.Calls().size())
                break;
            SCOPED_TRACE(WhatFailed(play, fault));
            check(play);
        }
        EXPECT_GT(fault.number, 5U) << "hardly a call was watched";
    }
};

constexpr int Errors[] = {ENOSPC, EIO, EACCES, EMFILE, EINTR};
}

TEST_P(EverySave, OneCallFails_FilesAreOldOrNewAndTheUserKnowsWhich)
{
    for (const int error : Errors)
        FailEachCall({.error = error}, [&](CPlay& play) {
            ExpectOldOrNew(play);
            ExpectTold(play);
        });
}

TEST_P(EverySave, OneCallFails_SavesWhenAskedAgain)
{
    for (const int error : {EIO, EMFILE})
        FailEachCall({.error = error}, [&](CPlay& play) {
            if (!play.Saved())
                play.SaveAgain();
            for (const auto& [path, state] : saved)
                EXPECT_EQ(In(play.Now(), path), state) << path;
            for (const auto& [path, state] : play.Now())
                EXPECT_TRUE(In(saved, path) || play.CouldNotRemove(path)) << path << " was left behind";
        });
}

TEST_P(EverySave, TheDiskFailsForGood_FilesAreOldOrNewAndTheUserKnowsWhich)
{
    for (const int error : {ENOSPC, EIO, EROFS})
        FailEachCall({.error = error, .stays = true}, [&](CPlay& play) {
            ExpectOldOrNew(play);
            ExpectTold(play);
        });
}

TEST_P(EverySave, AWriteIsShort_TheRestFollows)
{
    FailEachCall({.shortWrite = true}, [&](CPlay& play) {
        EXPECT_TRUE(play.Saved());
        EXPECT_EQ(play.Now(), saved);
    });
}

INSTANTIATE_TEST_SUITE_P(Of, EverySave, testing::ValuesIn(AllSaves()), [](const auto& kind) { return kind.param.name; });

TEST(Watch, ACallThatFails_ChangesNothingAndLeavesItsError)
{
    const CTemporaryFolder folder;
    const CWatch watch(folder.Path(), {.number = 1, .error = ENOSPC});
    EXPECT_EQ(::mkdir(folder.Path("a").c_str(), 0700), -1);
    EXPECT_EQ(errno, ENOSPC);
    EXPECT_EQ(::mkdir(folder.Path("b").c_str(), 0700), 0);
    EXPECT_EQ(watch.Calls().size(), 2U);
}
}
