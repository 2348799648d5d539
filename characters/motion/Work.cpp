#include "Poses.h"

namespace motion {

using nibbin::Effect;
using nibbin::Pose;
using nibbin::Tool;

namespace {

constexpr int JuggleFrames = 12;

void ReadyToJuggle(CScript& script)
{
    script
        .Go(2, 7, Ease::Both,
            [](Pose& p) {
                Hands(p, 20, 20, 5);
                p.left.behind = p.right.behind = 1;
                p.stretch = -0.04;
            })
        .Hold(4);
    script.Go(2, 7, Ease::Out, [](Pose& p) {
        Hands(p, 35, 47, 9);
        p.left.behind = p.right.behind = 0;
        p.stretch = 0;
        Turn(p, 0, -0.5);
        Brows(p, 1.5);
    });
}

// One round of the three seeds; hands and eyes go with them.
void Juggle(CScript& script)
{
    const Pose start = script.Present();
    for (int frame = 0; frame < JuggleFrames; ++frame) {
        const double swing = frame % 4 < 2 ? 1 : -1;
        script.Go(1, 7, Ease::Even, [=](Pose& p) {
            p = start;
            p.kind = Effect::Seeds;
            p.effect = 0.02 + 0.96 * frame / JuggleFrames;
            p.left.up += 2.5 * swing;
            p.right.up -= 2.5 * swing;
            p.gazeX = 0.5 * swing;
            p.gazeY = -0.8;
        });
    }
    script.Go(0, 7, Ease::Even, [&](Pose& p) { p = start; });
}

void StopJuggling(CScript& script)
{
    script.Go(1, 7, Ease::Even, [](Pose& p) {
        Hands(p, 33, 40, 9);
        p.stretch = -0.04;
        Smile(p, 0.3);
        p.kind = Effect::None;
        p.effect = 0;
    });
    script.GoTo(3, 7, Ease::Both, Rest());
}

void AddProcess(Scripts& scripts)
{
    CScript once("Process", Rest());
    ReadyToJuggle(once);
    Juggle(once);
    once.ExitHere();
    StopJuggling(once);
    scripts.push_back(once.EndsByExits());

    CScript ever("Processing", Rest());
    ReadyToJuggle(ever);
    const auto loop = ever.Next();
    Juggle(ever);
    ever.Jump(loop).ExitHere();
    StopJuggling(ever);
    scripts.push_back(ever.EndsByExits());
}

void TakeGlass(CScript& script)
{
    script
        .Go(2, 7, Ease::Both,
            [](Pose& p) {
                p.right = {20, 19, 4, 0, 1};
                p.faceX = -0.3;
                Gaze(p, -0.6, 0.5);
            })
        .Hold(3);
    script.Go(1, 7, Ease::Even, [](Pose& p) {
        p.right = {34, 30, 7, 0, 0};
        p.tool = Tool::Magnifier;
        p.toolSize = 0.7;
        p.toolTurn = 0;
    });
    script.Go(3, 7, Ease::Out, [](Pose& p) {
        p.right = {24, 39, 10, 0, 0};
        p.toolSize = 1;
        p.toolTurn = 38;
        Turn(p, 0, 0.1);
        p.rightEye.lid = 0;
        p.leftEye.lid = 0.5;
        p.leftEye.smile = 0.3;
        p.rightEye.brow = 2.5;
        p.mouthWidth = 0.7;
    });
}

// Looks through the glass to one side, then to the other.
void LookAbout(CScript& script)
{
    for (const double side : {-1.0, 1.0}) {
        script
            .Go(4, 8, Ease::Both,
                [=](Pose& p) {
                    Turn(p, 0.7 * side, 0.2);
                    p.lean = 4 * side;
                    p.right.out = 24 - 4.5 * side;
                    p.quill = -8 * side;
                })
            .Hold(22);
    }
    script
        .Go(3, 8, Ease::Both,
            [](Pose& p) {
                Turn(p, 0, 0.7);
                p.lean = 0;
                p.right.out = 24;
                p.right.up = 36;
                p.quill = 6;
            })
        .Hold(25);
    script.Go(2, 8, Ease::Both, [](Pose& p) {
        Turn(p, 0, 0.1);
        p.right.up = 39;
        p.quill = 0;
    });
}

void PutGlassAway(CScript& script)
{
    script.Go(2, 7, Ease::Both, [](Pose& p) {
        p = Rest();
        p.right = {36, 32, 7, 0, 0};
        p.tool = Tool::Magnifier;
        p.toolSize = 0.8;
    });
    script.Go(1, 7, Ease::Even, [](Pose& p) {
        p.toolSize = 0.3;
        p.right = {21, 19, 4, 0, 1};
    });
    script.GoTo(2, 7, Ease::Both, Rest());
}

void AddSearch(Scripts& scripts)
{
    CScript once("Search", Rest());
    TakeGlass(once);
    LookAbout(once);
    once.ExitHere();
    PutGlassAway(once);
    scripts.push_back(once.EndsByExits());

    CScript ever("Searching", Rest());
    TakeGlass(ever);
    const auto loop = ever.Next();
    LookAbout(ever);
    ever.Jump(loop).ExitHere();
    PutGlassAway(ever);
    scripts.push_back(ever.EndsByExits());
}

}

void AddWork(Scripts& scripts)
{
    AddProcess(scripts);
    AddSearch(scripts);
}

}
