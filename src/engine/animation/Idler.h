#pragma once
#include "engine/animation/Pose.h"

namespace engine {

// Plays idle animations while the character has nothing to do.
class CIdler {
public:
    CIdler(ITimers& timers, CPose& pose) : m_timers(timers), m_timer(timers), m_pose(pose) {}
    void SetEvents(std::function<void()> started, std::function<void()> completed);

    void SetOn(bool on);  // What plays already goes on.
    bool On() const { return m_on; }
    void Begin();  // The character has nothing to do from now on.
    void End();    // It has; an idle animation is left to whoever moves the body next.

private:
    void Schedule(std::int32_t milliseconds);
    void Play();
    const Animation* Choose();
    int Level() const;

    ITimers& m_timers;
    CTimer m_timer;
    CPose& m_pose;
    std::function<void()> m_started;
    std::function<void()> m_completed;
    bool m_on = true;
    bool m_free = false;     // The character has nothing to do.
    bool m_idling = false;   // The first idle animation has begun.
    bool m_playing = false;  // One plays now.
    std::int64_t m_since = 0;
    std::uint64_t m_turn = 0;
};

}
