#include "engine/animation/Pose.h"
#include "base/text/Case.h"
#include <algorithm>
#include <vector>

namespace engine {

CPose::CPose(IHost& host, const Character& character, CStage& stage)
    : m_host(host), m_character(character), m_stage(stage), m_player(host.Timers(), *this), m_sounds(host)
{
}

const Animation* CPose::Find(std::string_view animation) const
{
    for (const Animation& known : m_character.animations)
        if (text::EqualIgnoringCase(known.name, animation))
            return &known;
    return nullptr;
}

const Animation* CPose::Pick(std::string_view state)
{
    std::vector<const Animation*> choice;
    for (const State& known : m_character.states)
        if (text::EqualIgnoringCase(known.name, state))
            for (const std::string& name : known.animations)
                if (const Animation* animation = Find(name))
                    choice.push_back(animation);
    if (choice.empty())
        return nullptr;
    const auto index = static_cast<std::size_t>(m_host.RandomFraction() * static_cast<double>(choice.size()));
    return choice[std::min(index, choice.size() - 1)];
}

void CPose::Play(const Animation& animation, Done done)
{
    m_transitionOf = &animation;
    m_player.Play(animation, [this, done = std::move(done)] { m_sounds.WhenSilent(done); });
}

void CPose::Assume(const Animation& animation, Done done)
{
    m_transitionOf = &animation;
    m_player.Play(animation, std::move(done), /*holdLastFrame*/ false);
}

void CPose::Leave(std::string_view next, Done done)
{
    if (!m_player.Running()) {
        LeaveByTransition(next, std::move(done));
        return;
    }
    if (m_transitionOf != nullptr && m_transitionOf->transition == Transition::ExitBranches)
        m_transitionOf = nullptr;
    m_player.Exit([this, next = std::string(next), done = std::move(done)] { LeaveByTransition(next, done); });
}

void CPose::LeaveByTransition(std::string_view next, Done done)
{
    const Animation* left = std::exchange(m_transitionOf, nullptr);
    if (left != nullptr && left->transition == Transition::ExitBranches) {
        m_player.Exit(std::move(done));
        return;
    }
    const bool returns = left != nullptr && left->transition == Transition::ReturnAnimation &&
                         !text::EqualIgnoringCase(left->returnAnimation, next);
    const Animation* back = returns ? Find(left->returnAnimation) : nullptr;
    if (back != nullptr && back != left)
        Play(*back, std::move(done));
    else
        done();
}

void CPose::Interrupt()
{
    m_sounds.Stop();
    if (!m_player.Running())
        return;
    if (m_transitionOf != nullptr && m_transitionOf->transition == Transition::ExitBranches)
        m_transitionOf = nullptr;
    m_player.Exit(nullptr);
}

void CPose::CutToLastFrame()
{
    m_sounds.Stop();
    m_player.CutToLastFrame();
}

void CPose::Clear()
{
    m_sounds.Stop();
    m_player.Forget();
    m_transitionOf = nullptr;
}

bool CPose::CanSpeak() const
{
    return !m_player.Running() && m_stage.CurrentFrame() != nullptr && m_stage.CurrentFrame()->CanSpeak();
}

void CPose::AllowSounds(bool allowed)
{
    m_soundsAllowed = allowed;
    if (!allowed)
        m_sounds.FallSilent();
}

void CPose::PlaySound(std::uint16_t sound)
{
    if (m_soundsOn && m_soundsAllowed && sound < m_character.sounds.size() && m_character.sounds[sound])
        m_sounds.Play(*m_character.sounds[sound]);
}

}
