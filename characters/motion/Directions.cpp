#include "Poses.h"

namespace motion {

using nibbin::Pose;

namespace {

// An animation that ends in a pose of its own, and the way back as Name + "Return".
void AddHeld(Scripts& scripts, const CScript& script)
{
    Scripted held = script.EndsByExits();
    const std::string back = held.name + "Return";
    scripts.push_back(script.ReturnsBy(back));
    scripts.push_back(WayBack(back, held));
}

// Mirrors the pose: what was on the left is on the right.
Pose Mirrored(Pose pose)
{
    std::swap(pose.left, pose.right);
    std::swap(pose.leftEye, pose.rightEye);
    std::swap(pose.leftFoot, pose.rightFoot);
    for (double* part : {&pose.x, &pose.turn, &pose.lean, &pose.faceX, &pose.gazeX, &pose.quill, &pose.quillBend})
        *part = -*part;
    return pose;
}

Pose Pointing(double out, double up, double bend, double faceX, double faceY)
{
    Pose pose;
    pose.left = {out, up, bend, 1, 0};
    Turn(pose, faceX, faceY);
    pose.right = {34, 21, 6, 0, 0};
    pose.mouthOpen = 0.25;
    Brows(pose, 1.5);
    return pose;
}

void AddGesture(Scripts& scripts, const std::string& name, const Pose& goal)
{
    CScript script(name, Rest());
    script.Go(1, 7, Ease::Both, [&](Pose& p) {
        p.stretch = -0.04;
        p.gazeX = goal.gazeX * 0.6;
        p.gazeY = goal.gazeY * 0.6;
    });
    script.GoTo(3, 7, Ease::Over, goal).GoTo(1, 8, Ease::Both, goal).Speaks();
    AddHeld(scripts, script);
}

void AddLook(Scripts& scripts, const std::string& name, double x, double y)
{
    CScript script(name, Rest());
    script.Go(1, 6, Ease::Even, [&](Pose& p) {
        Gaze(p, x * 0.7, y * 0.7);
        Lids(p, 0.45);
    });
    script.Go(2, 7, Ease::Out, [&](Pose& p) {
        Turn(p, x, y);
        Lids(p, y > 0 ? 0.3 : 0.06);
        Brows(p, y < 0 ? 2 : 0);
        p.lean = x * 2;
        p.quill = -x * 5;
        p.stretch = -y * 0.02;
    });
    AddHeld(scripts, script);
}

// Leaning towards the goal, one foot in the air.
Pose Running()
{
    Pose pose;
    pose.lean = 9;
    pose.y = -2;
    Turn(pose, 0.9, 0.05);
    pose.left = {38, 40, -5, 0, 0};
    pose.right = {42, 30, 7, 0, 0};
    pose.leftFoot = {15, 4, -22};
    pose.rightFoot = {15, 3, 35};
    pose.quill = -24;
    pose.quillBend = -4;
    pose.mouthOpen = 0.3;
    return pose;
}

Pose Rising()
{
    Pose pose;
    pose.y = -1;
    pose.stretch = 0.03;
    Turn(pose, 0, -0.9);
    Hands(pose, 36, 12, 3);
    pose.leftFoot = {10, -1, 30};
    pose.rightFoot = {10, 1, 30};
    pose.quill = -16;
    pose.mouthOpen = 0.35;
    Brows(pose, 2);
    return pose;
}

Pose Sinking()
{
    Pose pose;
    pose.y = -5;
    Turn(pose, 0, 0.8);
    Hands(pose, 45, 56, 5);
    pose.leftFoot = {15, 2, -15};
    pose.rightFoot = {15, 2, -15};
    pose.quill = -12;
    pose.quillBend = 5;
    Lids(pose, 0.2);
    return pose;
}

void AddMove(Scripts& scripts, const std::string& name, const Pose& goal)
{
    CScript script(name, Rest());
    script.Go(2, 6, Ease::Both, [&](Pose& p) {
        p.stretch = -0.09;
        p.lean = -goal.lean * 0.4;
        Gaze(p, goal.gazeX, goal.gazeY);
        Hands(p, 36, 24, 6);
    });
    script.GoTo(3, 6, Ease::Out, goal);
    AddHeld(scripts, script);
}

}

void AddDirections(Scripts& scripts)
{
    const Pose left = Pointing(42, 38, 1, 0.9, 0), up = Pointing(33, 78, 6, 0.25, -0.9),
               down = Pointing(43, 19, 1, 0.35, 0.9);
    AddGesture(scripts, "GestureUp", up);
    AddGesture(scripts, "GestureDown", down);
    AddGesture(scripts, "GestureLeft", left);
    AddGesture(scripts, "GestureRight", Mirrored(left));

    AddLook(scripts, "LookUp", 0, -1);
    AddLook(scripts, "LookDown", 0, 1);
    AddLook(scripts, "LookLeft", 1, 0);
    AddLook(scripts, "LookRight", -1, 0);

    AddMove(scripts, "MoveUp", Rising());
    AddMove(scripts, "MoveDown", Sinking());
    AddMove(scripts, "MoveLeft", Running());
    AddMove(scripts, "MoveRight", Mirrored(Running()));
}

}
