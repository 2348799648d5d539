#pragma once
#include "engine/base/Timer.h"
#include <functional>
#include <vector>

namespace engine {

// Where an animation's frames go.
class IFrameTarget {
public:
    virtual ~IFrameTarget() = default;
    virtual void ShowFrame(const Frame& frame) = 0;
    virtual void PlaySound(std::uint16_t sound) = 0;
    virtual double RandomFraction() = 0;
};

// Plays one animation at a time, frame by frame. Whatever the data say, a stretch of work is bounded, and leaving by the
// exit branches ends. Animations are borrowed until the next one plays.
class CAnimationPlayer {
public:
    using Ended = std::function<void()>;

    CAnimationPlayer(ITimers& timers, IFrameTarget& target) : m_timers(timers), m_timer(timers), m_target(target) {}

    // Plays to the end. `ended` may be called before this returns when there is nothing to show. Without `holdLastFrame` the
    // end comes as soon as the last frame shows.
    void Play(const Animation& animation, Ended ended, bool holdLastFrame = true);
    // Leaves the animation from where it is, by its exit frames. From rest: only when the last frame has an exit frame.
    void Exit(Ended ended);
    // Stops where it is, without calling back. The frame stays.
    void Cut();
    // Stops at the last frame that shows something, without calling back.
    void CutToLastFrame();
    // Forgets the animation: there is nothing to exit from any more.
    void Forget();

    bool Running() const { return m_running; }
    const Animation* Current() const { return m_animation; }

private:
    enum class Step { Waits, Goes, Ends };
    void Run();
    void StepOn();  // To the next frame, or to the end.
    Step Walk();    // Enters frames until one takes time. Goes: the bound was met.
    Step Enter();
    void Flush();    // Shows and sounds what was entered last: frames without duration take no drawing.
    bool Advance();  // False at the end.
    bool AdvanceExit();
    bool GoTo(std::size_t frame);
    std::optional<std::size_t> ChosenBranch(const Frame& frame);
    void WaitFor(std::int32_t milliseconds);
    void End();
    const Frame& Now() const { return m_animation->frames[m_frame]; }

    ITimers& m_timers;
    CTimer m_timer;
    IFrameTarget& m_target;
    const Animation* m_animation = nullptr;
    std::size_t m_frame = 0;
    bool m_running = false;
    bool m_exiting = false;
    bool m_holdLastFrame = true;
    std::vector<bool> m_left;  // While exiting: frames that were left already; coming back to one ends it.
    std::int64_t m_due = 0;    // When the present frame ends.
    const Frame* m_entered = nullptr;
    std::optional<std::uint16_t> m_enteredSound;
    Ended m_ended;
};

}
