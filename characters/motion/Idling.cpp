#include "Poses.h"

namespace motion {

using nibbin::Effect;
using nibbin::Pose;

namespace {

// The eyes wander about.
Scripted LooksAround()
{
    CScript script("Idle1_1", Rest());
    script
        .Go(2, 6, Ease::Both,
            [](Pose& p) {
                Gaze(p, 0.9, -0.1);
                p.faceX = 0.4;
            })
        .Hold(55)
        .Blink();
    script
        .Go(3, 6, Ease::Both,
            [](Pose& p) {
                Gaze(p, -0.9, 0);
                p.faceX = -0.4;
            })
        .Hold(60);
    script.ExitHere();
    script.GoTo(2, 7, Ease::Both, Rest());
    return script.EndsByExits();
}

// Something tickles: it looks up at its quill and makes it nod.
Scripted PlaysWithQuill()
{
    CScript script("Idle1_2", Rest());
    script
        .Go(2, 7, Ease::Both,
            [](Pose& p) {
                Turn(p, 0.15, -0.8);
                Gaze(p, 0.2, -1);
                Lids(p, 0);
            })
        .Hold(25);
    for (const double bend : {1.0, -0.8, 0.6, -0.4})
        script.Go(2, 8, Ease::Both, [=](Pose& p) {
            p.quill = 20 * bend;
            p.quillBend = 4 * bend;
            p.gazeX = 0.35 * bend;
        });
    script.ExitHere();
    script.GoTo(3, 8, Ease::Both, Rest());
    return script.EndsByExits();
}

// A yawn and a good stretch.
Scripted Stretches()
{
    CScript script("Idle2_1", Rest());
    script
        .Go(3, 8, Ease::Both,
            [](Pose& p) {
                p.stretch = -0.05;
                Lids(p, 0.5);
                Hands(p, 33, 26, 7);
            })
        .Hold(10);
    script
        .Go(4, 9, Ease::Both,
            [](Pose& p) {
                p.stretch = 0.04;
                Hands(p, 40, 70, 7);
                Lids(p, 1);
                Brows(p, 2);
                p.mouthOpen = 0.95;
                p.mouthWidth = 0.75;
                p.mouthCurve = 0;
                p.quill = -12;
            })
        .Hold(50);
    script.ExitHere();
    script
        .Go(3, 9, Ease::Both,
            [](Pose& p) {
                p = Rest();
                p.stretch = -0.04;
                Lids(p, 0.5);
                p.quill = 6;
            })
        .Hold(8)
        .Blink();
    script.GoTo(2, 8, Ease::Both, Rest());
    return script.EndsByExits();
}

// Rocks from foot to foot, humming.
Scripted Rocks()
{
    CScript script("Idle2_2", Rest());
    for (const double side : {1.0, -1.0, 1.0, -1.0})
        script.Go(4, 8, Ease::Both, [=](Pose& p) {
            p.lean = 4 * side;
            p.quill = -10 * side;
            (side > 0 ? p.rightFoot : p.leftFoot).up = 3;
            (side > 0 ? p.leftFoot : p.rightFoot).up = 0;
            p.mouthWidth = 0.45;
            p.mouthOpen = 0.3;
            p.mouthCurve = 0.2;
            Gaze(p, 0.5 * side, -0.4);
            Smile(p, 0.2);
        });
    script.ExitHere();
    script.GoTo(3, 8, Ease::Both, Rest());
    return script.EndsByExits();
}

void Drowsy(Pose& p)
{
    p.stretch = -0.06;
    p.faceY = 0.7;
    Lids(p, 1);
    Hands(p, 32, 16, 4);
    p.quill = 30;
    p.quillBend = 5;
    p.mouthCurve = 0.25;
    p.mouthWidth = 0.7;
}

// Nods off, starts up, looks whether anybody saw it.
Scripted NodsOff()
{
    CScript script("Idle3_1", Rest());
    script
        .Go(3, 12, Ease::Both,
            [](Pose& p) {
                Lids(p, 0.55);
                p.faceY = 0.3;
                p.quill = 12;
            })
        .Hold(30);
    script
        .Go(2, 12, Ease::Both,
            [](Pose& p) {
                Lids(p, 0.4);
                p.faceY = 0.1;
            })
        .Hold(15);
    script.Go(4, 12, Ease::In, Drowsy).Hold(70);
    script.ExitHere();
    script
        .Go(2, 6, Ease::Out,
            [](Pose& p) {
                p = Rest();
                p.stretch = 0.03;
                Lids(p, 0);
                Brows(p, 3);
                p.quill = -10;
            })
        .Hold(20);
    script
        .Go(2, 7, Ease::Both,
            [](Pose& p) {
                Gaze(p, 0.8, 0);
                p.stretch = 0;
                p.quill = 0;
            })
        .Hold(25);
    script.Go(2, 7, Ease::Both, [](Pose& p) { Gaze(p, -0.8, 0); }).Hold(25);
    script.GoTo(2, 7, Ease::Both, Rest());
    return script.EndsByExits();
}

// Sleeps until somebody wants something.
Scripted Sleeps()
{
    CScript script("Idle3_2", Rest());
    script
        .Go(3, 14, Ease::Both,
            [](Pose& p) {
                Lids(p, 0.55);
                p.faceY = 0.3;
                p.quill = 12;
            })
        .Hold(20);
    script.Go(4, 12, Ease::Both, Drowsy).Hold(20);
    const auto loop = script.Next();
    script.Go(6, 16, Ease::Both, [](Pose& p) {
        p.stretch = -0.03;
        p.quill = 26;
        p.kind = Effect::Sleep;
        p.effect = 0.49;
    });
    script.Go(6, 18, Ease::Both, [](Pose& p) {
        p.stretch = -0.065;
        p.quill = 31;
        p.effect = 0.98;
    });
    script.Jump(loop).ExitHere();
    script
        .Go(2, 7, Ease::Both,
            [](Pose& p) {
                p = Rest();
                Lids(p, 0.5);
                p.quill = -6;
            })
        .Blink();
    script.GoTo(2, 7, Ease::Both, Rest());
    return script.EndsByExits();
}

}

void AddIdling(Scripts& scripts)
{
    for (const Scripted& script : {LooksAround(), PlaysWithQuill(), Stretches(), Rocks(), NodsOff(), Sleeps()})
        scripts.push_back(script);
}

}
