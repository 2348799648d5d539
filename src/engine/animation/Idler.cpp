#include "engine/animation/Idler.h"
#include "engine/base/Constants.h"

namespace engine {

namespace {

constexpr const char* Levels[] = {"IDLINGLEVEL1", "IDLINGLEVEL2", "IDLINGLEVEL3"};

}

void CIdler::SetEvents(std::function<void()> started, std::function<void()> completed)
{
    m_started = std::move(started);
    m_completed = std::move(completed);
}

void CIdler::SetOn(bool on)
{
    m_on = on;
    if (!on)
        m_timer.Stop();
    else if (m_free && !m_playing && !m_timer.Running())
        Schedule(constants::IdleFirstWait);
}

void CIdler::Begin()
{
    if (m_free)
        return;
    m_free = true;
    if (m_on)
        Schedule(constants::IdleFirstWait);
}

void CIdler::End()
{
    ++m_turn;
    m_timer.Stop();
    m_free = false;
    m_playing = false;
    if (std::exchange(m_idling, false))
        m_completed();
}

void CIdler::Schedule(std::int32_t milliseconds)
{
    m_timer.Start(milliseconds, [this] { Play(); });
}

int CIdler::Level() const
{
    const std::int64_t level = (m_timers.NowMilliseconds() - m_since) / constants::IdleLevelLength;
    return level < 2 ? static_cast<int>(level) : 2;
}

// An empty level falls back to those below, then to those above.
const Animation* CIdler::Choose()
{
    const int level = Level();
    const Animation* animation = nullptr;
    for (int lower = level; lower >= 0 && animation == nullptr; --lower)
        animation = m_pose.Pick(Levels[lower]);
    for (int higher = level + 1; higher <= 2 && animation == nullptr; ++higher)
        animation = m_pose.Pick(Levels[higher]);
    return animation;
}

void CIdler::Play()
{
    if (!m_idling)
        m_since = m_timers.NowMilliseconds();
    const Animation* animation = Choose();
    if (animation == nullptr)
        return;  // Nothing to idle with: no timer either.
    if (!std::exchange(m_idling, true))
        m_started();
    m_playing = true;
    const auto ended = [this, turn = m_turn] {
        if (turn != m_turn)
            return;
        m_playing = false;
        if (m_on)
            Schedule(constants::IdleWait);
    };
    m_pose.Leave(animation->name, [this, turn = m_turn, animation, ended] {
        if (turn == m_turn)
            m_pose.Play(*animation, ended);
    });
}

}
