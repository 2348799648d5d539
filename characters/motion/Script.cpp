#include "Script.h"
#include <cmath>

namespace motion {

namespace {

double Eased(Ease ease, double t)
{
    switch (ease) {
    case Ease::Even:
        return t;
    case Ease::In:
        return t * t;
    case Ease::Out:
        return 1 - (1 - t) * (1 - t);
    case Ease::Both:
        return t * t * (3 - 2 * t);
    case Ease::Over: {
        const double rest = t - 1;
        return 1 + 2.4 * rest * rest * rest + 1.4 * rest * rest;
    }
    }
    return t;
}

void CloseEyes(nibbin::Pose& pose, double share)
{
    for (nibbin::Eye* eye : {&pose.leftEye, &pose.rightEye})
        eye->lid += (1 - eye->lid) * share;
}

}

CScript::CScript(std::string name, const nibbin::Pose& start) : m_present(start) { m_script.name = std::move(name); }

CScript& CScript::Go(int frames, int each, Ease ease, const Change& change)
{
    nibbin::Pose goal = m_present;
    change(goal);
    return GoTo(frames, each, ease, goal);
}

CScript& CScript::GoTo(int frames, int each, Ease ease, const nibbin::Pose& goal)
{
    const nibbin::Pose start = m_present;
    for (int frame = 1; frame <= frames; ++frame) {
        const double share = Eased(ease, static_cast<double>(frame) / frames);
        m_script.steps.push_back({nibbin::Mix(start, goal, share), static_cast<std::uint16_t>(each), {}, {}, false});
    }
    m_present = goal;
    return *this;
}

CScript& CScript::Hold(int more)
{
    std::uint16_t& duration = m_script.steps.back().duration;
    duration = static_cast<std::uint16_t>(duration + more);
    return *this;
}

CScript& CScript::Blink()
{
    const nibbin::Pose open = m_present;
    for (const double share : {0.55, 1.0, 0.5}) {
        nibbin::Pose pose = open;
        CloseEyes(pose, share);
        GoTo(1, share < 1 ? 4 : 7, Ease::Even, pose);
    }
    return GoTo(1, 8, Ease::Even, open);
}

CScript& CScript::Jump(std::uint16_t target, int percent)
{
    m_script.steps.back().branches.push_back({target, static_cast<std::uint16_t>(percent)});
    return *this;
}

CScript& CScript::ExitHere(std::uint16_t from)
{
    for (std::size_t step = from; step < m_script.steps.size(); ++step)
        if (!m_script.steps[step].exit)
            m_script.steps[step].exit = Next();
    return *this;
}

CScript& CScript::Speaks()
{
    m_script.steps.back().speaks = true;
    return *this;
}

Scripted CScript::Finished(engine::Transition transition, const std::string& returnAnimation) const
{
    Scripted script = m_script;
    script.transition = transition;
    script.returnAnimation = returnAnimation;
    return script;
}

}
