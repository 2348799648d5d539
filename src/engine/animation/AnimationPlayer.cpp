#include "engine/animation/AnimationPlayer.h"
#include "engine/base/Constants.h"
#include <algorithm>

namespace engine {

namespace {

constexpr std::int32_t HundredthMilliseconds = 10;
constexpr std::int64_t CatchUpLimit = 200;  // A longer delay is not made up for.

bool Shows(const Frame& frame) { return !frame.pictures.empty() || frame.duration > 0; }

}

void CAnimationPlayer::Play(const Animation& animation, Ended ended, bool holdLastFrame)
{
    Cut();
    m_animation = &animation;
    m_frame = 0;
    m_exiting = false;
    m_holdLastFrame = holdLastFrame;
    m_ended = std::move(ended);
    m_due = m_timers.NowMilliseconds();
    m_running = true;
    if (animation.frames.empty())
        End();
    else
        Run();
}

void CAnimationPlayer::Exit(Ended ended)
{
    m_ended = std::move(ended);
    if (m_running && m_exiting)
        return;
    const bool canLeave = m_animation != nullptr && m_frame < m_animation->frames.size();
    if (!canLeave || (!m_running && !Now().exitFrame)) {
        End();
        return;
    }
    m_left.assign(m_animation->frames.size(), false);  // First: without it there is no way out.
    const bool wasRunning = m_running;
    m_running = true;
    m_exiting = true;
    m_due = m_timers.NowMilliseconds();
    if (wasRunning)
        m_timer.Start(0, [this] { StepOn(); });  // The present frame has been seen: whoever wants something does not wait.
    else
        StepOn();
}

void CAnimationPlayer::Cut()
{
    m_timer.Stop();
    m_ended = nullptr;
    m_running = false;
}

void CAnimationPlayer::CutToLastFrame()
{
    Cut();
    if (m_animation == nullptr)
        return;
    for (std::size_t index = m_animation->frames.size(); index > 0; --index)
        if (Shows(m_animation->frames[index - 1])) {
            m_frame = index - 1;
            m_target.ShowFrame(Now());
            return;
        }
}

void CAnimationPlayer::Forget()
{
    Cut();
    m_animation = nullptr;
}

void CAnimationPlayer::Run()
{
    const Step step = Walk();
    Flush();
    if (step == Step::Ends) {
        End();
    } else if (step == Step::Goes) {
        m_due = m_timers.NowMilliseconds();
        m_timer.Start(constants::EndlessStepPause, [this] { Run(); });
    }
}

CAnimationPlayer::Step CAnimationPlayer::Walk()
{
    for (int steps = 0; steps < constants::StepsWithoutPause; ++steps) {
        const Step step = Enter();
        if (step != Step::Goes)
            return step;
        if (!(m_exiting ? AdvanceExit() : Advance()))
            return Step::Ends;
    }
    return Step::Goes;
}

CAnimationPlayer::Step CAnimationPlayer::Enter()
{
    const Frame& frame = Now();
    if (Shows(frame))
        m_entered = &frame;
    if (frame.sound)
        m_enteredSound = frame.sound;
    const bool last = m_frame + 1 == m_animation->frames.size() && frame.branches.empty();
    if (last && !m_exiting && !m_holdLastFrame)
        return Step::Ends;
    if (frame.duration == 0)
        return Step::Goes;
    WaitFor(frame.duration * HundredthMilliseconds);
    return Step::Waits;
}

void CAnimationPlayer::Flush()
{
    if (const Frame* frame = std::exchange(m_entered, nullptr))
        m_target.ShowFrame(*frame);
    if (const auto sound = std::exchange(m_enteredSound, std::nullopt))
        m_target.PlaySound(*sound);
}

void CAnimationPlayer::WaitFor(std::int32_t milliseconds)
{
    const std::int64_t now = m_timers.NowMilliseconds();
    if (now - m_due > CatchUpLimit)
        m_due = now;
    m_due += milliseconds;
    m_timer.Start(static_cast<std::int32_t>(std::max<std::int64_t>(0, m_due - now)), [this] { StepOn(); });
}

void CAnimationPlayer::StepOn()
{
    if (m_exiting ? AdvanceExit() : Advance())
        Run();
    else
        End();
}

bool CAnimationPlayer::GoTo(std::size_t frame)
{
    if (frame >= m_animation->frames.size())
        return false;
    m_frame = frame;
    return true;
}

std::optional<std::size_t> CAnimationPlayer::ChosenBranch(const Frame& frame)
{
    if (frame.branches.empty())
        return std::nullopt;
    double chance = m_target.RandomFraction() * 100;
    for (const Branch& branch : frame.branches) {
        chance -= branch.percent;
        if (chance < 0 && branch.target < m_animation->frames.size())
            return branch.target;
    }
    return std::nullopt;
}

bool CAnimationPlayer::Advance()
{
    const std::optional<std::size_t> branch = ChosenBranch(Now());
    return GoTo(branch ? *branch : m_frame + 1);
}

bool CAnimationPlayer::AdvanceExit()
{
    if (m_left[m_frame])
        return false;
    m_left[m_frame] = true;
    const Frame& frame = Now();
    if (frame.exitFrame && *frame.exitFrame < m_animation->frames.size())
        return GoTo(*frame.exitFrame);
    const std::optional<std::size_t> branch = ChosenBranch(frame);
    return GoTo(branch ? *branch : m_frame + 1);
}

void CAnimationPlayer::End()
{
    m_timer.Stop();
    m_running = false;
    m_exiting = false;
    const Ended ended = std::exchange(m_ended, nullptr);
    if (ended)
        ended();
}

}
