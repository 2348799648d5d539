#include "EngineTest.h"
#include "engine/hosts/headless/VirtualTime.h"
#include "engine/requests/RequestQueue.h"
#include "engine/session/GuardedHost.h"
#include <new>

namespace {
using engine::CRequest;
using engine::CRequestQueue;
using engine::WorkItem;
using platform::RequestStatus;
namespace engineError = platform::engineError;

// Work that never ends by itself, and throws when told to.
class FailedStep : public testing::Test, private engine::IWorker, private engine::IRequestEvents {
protected:
    std::shared_ptr<CRequest> Add() { return queue.Add({}, ++m_lastId); }

    engine::CVirtualTime time;
    std::shared_ptr<engine::CPostbox> postbox = std::make_shared<engine::CPostbox>(time);
    CRequestQueue queue{*postbox, *this, *this};
    bool throws = false;
    int interrupted = 0;

private:
    void Perform(WorkItem&) override
    {
        if (std::exchange(throws, false))
            throw std::bad_alloc();
    }
    void Interrupt(WorkItem&) override { ++interrupted; }
    void RanOut() override {}
    void Started(std::weak_ptr<CRequest>) override {}
    void Completed(std::weak_ptr<CRequest>) override {}
    std::int32_t m_lastId = 0;
};

TEST_F(FailedStep, Add_WorkThatThrows_ThrowsAndLeavesNothingBehind)
{
    throws = true;
    EXPECT_THROW(Add(), std::bad_alloc);
    EXPECT_EQ(interrupted, 1);
    EXPECT_FALSE(queue.Busy());
    EXPECT_EQ(Add()->Status(), RequestStatus::InProgress);
}

TEST_F(FailedStep, Fail_OthersWait_TheNextOneIsTakenUp)
{
    const auto first = Add();
    const auto second = Add();
    queue.Fail(engineError::OutOfMemory);
    EXPECT_EQ(first->Status(), RequestStatus::Failed);
    EXPECT_EQ(first->Number(), engineError::OutOfMemory);
    EXPECT_EQ(interrupted, 1);
    EXPECT_EQ(second->Status(), RequestStatus::InProgress);
}

TEST_F(FailedStep, Fail_NothingRuns_ChangesNothing)
{
    queue.Fail(engineError::OutOfMemory);
    EXPECT_EQ(interrupted, 0);
    EXPECT_FALSE(queue.Busy());
}

TEST(GuardedTimers, ACallThatThrows_IsToldWithItsNumberAndThrowsOn)
{
    engine::CVirtualTime time;
    std::vector<std::int32_t> told;
    engine::CGuardedTimers timers(time, [&](std::int32_t number) { told.push_back(number); });
    timers.CallLater(10, [] { throw std::bad_alloc(); });
    timers.CallLater(20, [] { throw platform::CFailure(61, "Disk full"); });
    EXPECT_THROW(time.Advance(10), std::bad_alloc);
    EXPECT_THROW(time.Advance(10), platform::CFailure);
    EXPECT_EQ(told, (std::vector<std::int32_t>{engineError::OutOfMemory, 61}));
}

TEST(GuardedTimers, ACallThatThrowsWhenTheyAreGone_OnlyThrows)
{
    engine::CVirtualTime time;
    int told = 0;
    auto timers = std::make_unique<engine::CGuardedTimers>(time, [&](std::int32_t) { ++told; });
    timers->CallLater(10, [] { throw std::bad_alloc(); });
    timers.reset();
    EXPECT_THROW(time.Advance(10), std::bad_alloc);
    EXPECT_EQ(told, 0);
}

TEST(GuardedTimers, TheProgramEnds_NobodyIsTold)
{
    engine::CVirtualTime time;
    int told = 0;
    engine::CGuardedTimers timers(time, [&](std::int32_t) { ++told; });
    timers.CallLater(10, [] { throw platform::CProgramEnded(); });
    EXPECT_THROW(time.Advance(10), platform::CProgramEnded);
    EXPECT_EQ(told, 0);
}

// A character's pictures, of which none can be had while there is no memory.
class CPicturesWithoutMemory final : public engine::IPictures {
public:
    explicit CPicturesWithoutMemory(std::shared_ptr<const engine::IPictures> pictures) : m_pictures(std::move(pictures)) {}
    bool fail = false;
    std::uint32_t Count() const override { return m_pictures->Count(); }
    engine::PictureRef Picture(std::uint32_t index) const override
    {
        if (fail)
            throw std::bad_alloc();
        return m_pictures->Picture(index);
    }

private:
    std::shared_ptr<const engine::IPictures> m_pictures;
};

using FailedStepOfACharacter = EngineTest;

TEST_F(FailedStepOfACharacter, APictureThatCannotBeHad_FailsItsAnimationAndTheNextOnePlays)
{
    engine::Character character = testing_character::Make();
    const auto pictures = std::make_shared<CPicturesWithoutMemory>(character.pictures);
    character.pictures = pictures;
    LoadShown(std::move(character));
    const RequestRef wave = bot->Play("Wave");
    const RequestRef greet = bot->Play("Greet");
    pictures->fail = true;
    EXPECT_THROW(host.Advance(100), std::bad_alloc);
    pictures->fail = false;
    host.RunUntilIdle();
    EXPECT_EQ(wave->Status(), RequestStatus::Failed);
    EXPECT_EQ(wave->Number(), engineError::OutOfMemory);
    EXPECT_EQ(StatusOf(greet), 0);
}

}
