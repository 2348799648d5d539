#include "Poses.h"

namespace motion {

using nibbin::Pose;

Pose Rest() { return {}; }

Pose BookInHands()
{
    Pose pose;
    pose.book = pose.bookOpen = pose.glasses = 1;
    pose.faceY = 0.35;
    Gaze(pose, 0, 0.95);
    Lids(pose, 0.34);
    Hands(pose, 25, 13, 9);
    pose.mouthCurve = 0.5;
    return pose;
}

Pose PadInHands()
{
    Pose pose;
    pose.pad = 1;
    pose.tool = nibbin::Tool::Pencil;
    pose.toolSize = 1;
    pose.toolTurn = -40;
    pose.left = {22, 12, 8, 0, 0};
    pose.right = {6, 33, 8, 0, 0};
    pose.faceX = 0.25;
    pose.faceY = 0.3;
    Gaze(pose, 0.55, 0.9);
    Lids(pose, 0.32);
    pose.mouthCurve = 0.4;
    return pose;
}

void Lids(Pose& pose, double lid) { pose.leftEye.lid = pose.rightEye.lid = lid; }
void Smile(Pose& pose, double smile) { pose.leftEye.smile = pose.rightEye.smile = smile; }

void Brows(Pose& pose, double height, double slant)
{
    pose.leftEye.brow = pose.rightEye.brow = height;
    pose.leftEye.slant = pose.rightEye.slant = slant;
}

void Gaze(Pose& pose, double x, double y)
{
    pose.gazeX = x;
    pose.gazeY = y;
}

void Hands(Pose& pose, double out, double up, double bend)
{
    for (nibbin::Arm* arm : {&pose.left, &pose.right}) {
        arm->out = out;
        arm->up = up;
        arm->bend = bend;
    }
}

void Turn(Pose& pose, double x, double y)
{
    pose.faceX = x;
    pose.faceY = y;
    Gaze(pose, x, y);
}

Scripts AllScripts()
{
    Scripts scripts;
    for (const auto add : {AddBasics, AddComingAndGoing, AddGreetings, AddReading, AddWriting, AddDirections, AddFeelings,
                           AddAnswers, AddWork, AddMagic, AddListening, AddIdling})
        add(scripts);
    return scripts;
}

Scripted WayBack(const std::string& name, const Scripted& from, int frames)
{
    return CScript(name, from.steps.back().pose).GoTo(frames, 7, Ease::Both, Rest()).Ends();
}

}
