#include "Poses.h"

namespace motion {

using nibbin::Effect;
using nibbin::Pose;

namespace {

Scripted Acknowledge()
{
    CScript script("Acknowledge", Rest());
    for (int i = 0; i < 2; ++i) {
        script.Go(2, 6, Ease::Both, [](Pose& p) {
            p.faceY = 0.8;
            p.stretch = -0.03;
            Lids(p, 0.5);
            p.quill = 10;
        });
        script.Go(2, 6, Ease::Both, [](Pose& p) {
            p.faceY = -0.1;
            p.stretch = 0;
            Lids(p, 0.13);
            Smile(p, 0.25);
            p.quill = -3;
        });
    }
    script.ExitHere();
    script.GoTo(2, 7, Ease::Both, Rest());
    return script.EndsByExits();
}

// Shakes its head, a hand held up against it.
Scripted Decline()
{
    CScript script("Decline", Rest());
    script.Go(2, 7, Ease::Out, [](Pose& p) {
        p.left = {40, 47, 7, 0, 0};
        Brows(p, 0, -10);
        p.mouthCurve = -0.35;
        Lids(p, 0.4);
    });
    for (const double side : {-1.0, 1.0, -1.0, 1.0})
        script.Go(2, 6, Ease::Both, [=](Pose& p) {
            p.faceX = 0.7 * side;
            p.gazeX = 0.4 * side;
            p.left.out = 41 - 4 * side;
            p.quill = -7 * side;
        });
    script
        .Go(2, 7, Ease::Both,
            [](Pose& p) {
                p.faceX = 0;
                p.gazeX = 0;
                p.left.out = 40;
                p.quill = 0;
                Lids(p, 0.2);
            })
        .Speaks();
    return script.ReturnsBy("DeclineReturn");
}

// A hand behind the ear, bent forward: say that again?
Scripted DontRecognize()
{
    CScript script("DontRecognize", Rest());
    script.Go(3, 7, Ease::Out, [](Pose& p) {
        p.left = {34, 58, 9, 0, 0};
        p.lean = 6;
        Turn(p, -0.4, 0.1);
        Brows(p, 2, -12);
        p.mouthCurve = -0.1;
        p.mouthWidth = 0.7;
        p.quill = -8;
    });
    script.Hold(20).Blink();
    script
        .Go(2, 8, Ease::Both,
            [](Pose& p) {
                p.lean = 4;
                Hands(p, 42, 40, 8);
                p.faceX = 0;
                p.gazeX = 0;
            })
        .Speaks();
    return script.ReturnsBy("DontRecognizeReturn");
}

Scripted Explain()
{
    CScript script("Explain", Rest());
    script.Go(1, 7, Ease::Both, [](Pose& p) {
        p.stretch = -0.04;
        Hands(p, 30, 28, 7);
    });
    script.Go(3, 7, Ease::Out, [](Pose& p) {
        p.stretch = 0.01;
        Hands(p, 43, 36, 7);
        Brows(p, 1.5);
        p.mouthOpen = 0.3;
        p.lean = 2;
        p.faceX = 0.2;
    });
    script
        .Go(2, 8, Ease::Both,
            [](Pose& p) {
                Hands(p, 41, 33, 7);
                p.lean = 0;
                p.stretch = 0;
                p.mouthOpen = 0;
            })
        .Speaks();
    return script.ReturnsBy("ExplainReturn");
}

Scripted Suggest()
{
    CScript script("Suggest", Rest());
    script
        .Go(2, 8, Ease::Both,
            [](Pose& p) {
                p.right = {12, 34, 10, 0, 0};
                Gaze(p, 0.4, -0.8);
                p.faceY = -0.4;
                Lids(p, 0.3);
            })
        .Hold(15);
    script.Go(3, 6, Ease::Over, [](Pose& p) {
        p.right = {38, 70, 7, 1, 0};
        p.stretch = 0.02;
        Lids(p, 0);
        Brows(p, 3.5);
        p.mouthOpen = 0.5;
        Gaze(p, 0, 0);
        p.faceY = 0;
        p.kind = Effect::Bulb;
        p.effect = 0.35;
        p.quill = -14;
    });
    script
        .Go(1, 8, Ease::Both,
            [](Pose& p) {
                p.stretch = 0;
                p.effect = 0.55;
                p.quill = -8;
            })
        .Hold(40);
    script
        .Go(3, 7, Ease::Both,
            [](Pose& p) {
                p.effect = 1;
                Lids(p, 0.13);
                Brows(p, 1);
                p.mouthOpen = 0.2;
                p.right.up = 64;
                p.quill = 0;
            })
        .Speaks();
    return script.ReturnsBy("SuggestReturn");
}

Scripted Think()
{
    CScript script("Think", Rest());
    script.Go(3, 8, Ease::Both, [](Pose& p) {
        p.right = {9, 30, 8, 0, 0};
        Turn(p, 0.3, -0.6);
        Gaze(p, 0.6, -0.9);
        p.rightEye.slant = 10;
        p.leftEye.brow = 2.5;
        p.mouthCurve = 0.1;
        p.mouthWidth = 0.6;
        p.lean = -2;
    });
    script.Go(8, 12, Ease::Even, [](Pose& p) {
        p.kind = Effect::Thought;
        p.effect = 0.9;
        p.quill = 12;
    });
    return script.ReturnsBy("ThinkReturn");
}

}

void AddAnswers(Scripts& scripts)
{
    scripts.push_back(Acknowledge());
    for (const Scripted& script : {Decline(), DontRecognize(), Explain(), Suggest(), Think()}) {
        scripts.push_back(script);
        scripts.push_back(WayBack(script.returnAnimation, script));
    }
}

}
