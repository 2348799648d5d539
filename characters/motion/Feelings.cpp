#include "Poses.h"

namespace motion {

using nibbin::Effect;
using nibbin::Pose;

namespace {

Scripted Pleased()
{
    CScript script("Pleased", Rest());
    script.Go(2, 7, Ease::Both, [](Pose& p) {
        p.stretch = -0.05;
        Hands(p, 22, 24, 7);
        Lids(p, 0.4);
    });
    script.Go(2, 7, Ease::Out, [](Pose& p) {  // Hands together before the chest, eyes laughing.
        p.stretch = 0.02;
        Hands(p, 7, 25, 9);
        Lids(p, 1);
        Smile(p, 1);
        p.mouthOpen = 0.4;
        p.blush = 1.1;
    });
    for (const double side : {1.0, -1.0})
        script.Go(3, 7, Ease::Both, [=](Pose& p) {
            p.lean = 3.5 * side;
            p.quill = -9 * side;
        });
    script.ExitHere();
    script
        .Go(2, 7, Ease::Both,
            [](Pose& p) {
                p.lean = 0;
                p.quill = 0;
            })
        .Speaks();
    return script.ReturnsBy("PleasedReturn");
}

Scripted Sad()
{
    CScript script("Sad", Rest());
    script.Go(4, 9, Ease::Both, [](Pose& p) {
        p.stretch = -0.06;
        p.mouthCurve = -0.8;
        Brows(p, 0, -22);
        Lids(p, 0.38);
        Turn(p, -0.2, 0.6);
        p.quill = 34;
        p.quillBend = 6;
        Hands(p, 33, 15, 3);
        p.blush = 0.3;
    });
    script.Hold(20).Blink().Speaks();
    return script.ReturnsBy("SadReturn");
}

Scripted Surprised()
{
    CScript script("Surprised", Rest());
    script.Go(1, 6, Ease::Even, [](Pose& p) {
        p.stretch = -0.05;
        Lids(p, 0.5);
    });
    script.Go(3, 6, Ease::Over, [](Pose& p) {
        p.stretch = 0.04;
        p.y = -2;
        Lids(p, 0);
        Brows(p, 4.5, -6);
        p.pupil = 0.72;
        p.mouthCurve = 0;
        p.mouthOpen = 0.75;
        p.mouthWidth = 0.6;
        Hands(p, 41, 48, 5);
        p.quill = -16;
        p.kind = Effect::Exclaim;
        p.effect = 0.4;
    });
    script
        .Go(2, 8, Ease::Both,
            [](Pose& p) {
                p.stretch = 0.01;
                p.y = 0;
                p.effect = 0.6;
                p.quill = -8;
            })
        .Hold(25);
    script
        .Go(3, 7, Ease::Both,
            [](Pose& p) {
                p.effect = 1;
                p.mouthOpen = 0.4;
                p.pupil = 0.85;
                Hands(p, 36, 34, 6);
                p.quill = 0;
            })
        .Speaks();
    return script.ReturnsBy("SurprisedReturn");
}

// Scratches its head under a question mark.
Scripted Confused()
{
    CScript script("Confused", Rest());
    script.Go(3, 7, Ease::Out, [](Pose& p) {
        p.right = {25, 76, 9, 0, 0};
        p.lean = -4;
        Turn(p, 0.35, -0.5);
        p.leftEye.brow = 3;
        p.rightEye.slant = 14;
        p.rightEye.lid = 0.34;
        p.mouthCurve = -0.25;
        p.mouthWidth = 0.75;
        p.quill = 12;
        p.kind = Effect::Question;
        p.effect = 0.3;
    });
    for (int i = 0; i < 3; ++i) {
        script.Go(1, 9, Ease::Even, [](Pose& p) {
            p.right.out = 21;
            p.right.up = 78;
            p.effect += 0.06;
            p.quill = 17;
        });
        script.Go(1, 9, Ease::Even, [](Pose& p) {
            p.right.out = 26;
            p.right.up = 75;
            p.effect += 0.06;
            p.quill = 11;
        });
    }
    script
        .Go(2, 8, Ease::Both,
            [](Pose& p) {
                p.right = {37, 50, 7, 0, 0};
                p.effect = 1;
            })
        .Speaks();
    return script.ReturnsBy("ConfusedReturn");
}

// Weighs its head, a hand at the mouth's corner, a drop on the brow.
Scripted Uncertain()
{
    CScript script("Uncertain", Rest());
    script.Go(3, 8, Ease::Both, [](Pose& p) {
        Hands(p, 40, 38, 9);
        Brows(p, 1, -16);
        p.mouthCurve = -0.3;
        p.mouthWidth = 0.7;
        Gaze(p, -0.8, 0.2);
        p.faceX = -0.4;
        p.kind = Effect::Drop;
        p.effect = 0.2;
    });
    script.Go(3, 9, Ease::Both, [](Pose& p) {
        p.lean = -4;
        p.effect = 0.5;
        p.quill = 10;
    });
    script.Go(3, 9, Ease::Both, [](Pose& p) {
        p.lean = 3;
        p.effect = 0.85;
        Gaze(p, 0.8, 0.1);
        p.faceX = 0.4;
        p.quill = -8;
    });
    script
        .Go(2, 8, Ease::Both,
            [](Pose& p) {
                p.lean = 0;
                p.effect = 1;
                Gaze(p, 0, 0);
                p.faceX = 0;
                p.quill = 0;
            })
        .Speaks();
    return script.ReturnsBy("UncertainReturn");
}

}

void AddFeelings(Scripts& scripts)
{
    for (const Scripted& script : {Pleased(), Sad(), Surprised(), Confused(), Uncertain()}) {
        scripts.push_back(script);
        scripts.push_back(WayBack(script.returnAnimation, script));
    }
}

}
