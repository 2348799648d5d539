#pragma once
#include "../nibbin/Pose.h"
#include "engine/character/CharacterData.h"
#include <functional>
#include <optional>
#include <string>
#include <vector>

// Animations described as poses over time.
namespace motion {

struct Step {
    nibbin::Pose pose;
    std::uint16_t duration = 10;  // 1/100 s.
    std::optional<std::uint16_t> exit;
    std::vector<engine::Branch> branches;
    bool speaks = false;
};

struct Scripted {
    std::string name;
    engine::Transition transition = engine::Transition::None;
    std::string returnAnimation;
    std::vector<Step> steps;
};

enum class Ease { Even, In, Out, Both, Over };  // Over runs a little past its goal and comes back.

// Builds one animation step by step, starting in a pose that is not itself a frame.
class CScript {
public:
    using Change = std::function<void(nibbin::Pose&)>;

    CScript(std::string name, const nibbin::Pose& start);

    // Goes to the present pose as `change` alters it, in `frames` frames of `each` hundredths of a second.
    CScript& Go(int frames, int each, Ease ease, const Change& change);
    CScript& GoTo(int frames, int each, Ease ease, const nibbin::Pose& goal);
    // The last frame stays for `more` hundredths longer.
    CScript& Hold(int more);
    // Lids down and up again in the present pose.
    CScript& Blink();
    // The index that the next frame will have.
    std::uint16_t Next() const { return static_cast<std::uint16_t>(m_script.steps.size()); }
    // From the last frame on to another one, with a chance.
    CScript& Jump(std::uint16_t target, int percent = 100);
    // Frames from `from` up to the last one are left for the next frame to come when the animation is stopped.
    CScript& ExitHere(std::uint16_t from = 0);
    CScript& Speaks();

    const nibbin::Pose& Present() const { return m_present; }
    Scripted Ends() const { return Finished(engine::Transition::None, ""); }
    Scripted EndsByExits() const { return Finished(engine::Transition::ExitBranches, ""); }
    Scripted ReturnsBy(const std::string& animation) const
    {
        return Finished(engine::Transition::ReturnAnimation, animation);
    }

private:
    Scripted Finished(engine::Transition transition, const std::string& returnAnimation) const;

    Scripted m_script;
    nibbin::Pose m_present;
};

}
