#pragma once
#include "engine/animation/AnimationPlayer.h"
#include "engine/animation/Stage.h"
#include "engine/sound/SoundEffects.h"
#include <string_view>

namespace engine {

// What the character's body does: plays animations and states, and goes back to neutral before something else begins.
class CPose final : private IFrameTarget {
public:
    using Done = std::function<void()>;

    CPose(IHost& host, const Character& character, CStage& stage);

    // Null when the character has no such animation; letter case does not matter.
    const Animation* Find(std::string_view animation) const;
    // One of a state's animations, at random; null when it has none.
    const Animation* Pick(std::string_view state);

    // Plays an animation and its sounds to the end.
    void Play(const Animation& animation, Done done);
    // Plays an animation until its last frame shows; its sounds may go on.
    void Assume(const Animation& animation, Done done);
    // Leaves what plays or played last: by the exit branches, then by its return animation unless that is `next`.
    void Leave(std::string_view next, Done done);

    // Ends what plays: it leaves by its exit branches, and whoever waited is called no more.
    void Interrupt();
    // Ends what plays at its last frame.
    void CutToLastFrame();
    // Neutral and without movement or sound: for a hidden character.
    void Clear();

    bool CanSpeak() const;  // The frame that stays can move its mouth.
    bool Moving() const { return m_player.Running(); }
    CSoundEffects& Sounds() { return m_sounds; }
    void SetSoundsOn(bool on) { m_soundsOn = on; }
    void AllowSounds(bool allowed);  // By the user, for all characters: what sounds now falls silent.
    bool SoundsOn() const { return m_soundsOn; }

private:
    void ShowFrame(const Frame& frame) override { m_stage.SetFrame(&frame); }
    void PlaySound(std::uint16_t sound) override;
    double RandomFraction() override { return m_host.RandomFraction(); }
    void LeaveByTransition(std::string_view next, Done done);

    IHost& m_host;
    const Character& m_character;
    CStage& m_stage;
    CAnimationPlayer m_player;
    CSoundEffects m_sounds;
    bool m_soundsOn = true;
    bool m_soundsAllowed = true;
    const Animation* m_transitionOf = nullptr;  // Whose transition is still to come.
};

}
