#include "Poses.h"

namespace motion {

using nibbin::Effect;
using nibbin::Pose;
using nibbin::Tool;

namespace {

// The left hand swings at head height.
void WaveHand(CScript& script, int times)
{
    for (int i = 0; i < times; ++i) {
        script.Go(2, 7, Ease::Both, [](Pose& p) {
            p.left.out = 50;
            p.left.up = 64;
            p.quill = 5;
        });
        script.Go(2, 7, Ease::Both, [](Pose& p) {
            p.left.out = 41;
            p.left.up = 69;
            p.quill = -3;
        });
    }
}

void RaiseHand(CScript& script)
{
    script.Go(1, 7, Ease::Both, [](Pose& p) {
        p.stretch = -0.04;
        p.left.up = 17;
        p.quill = 4;
    });
    script.Go(3, 7, Ease::Out, [](Pose& p) {
        p.stretch = 0.02;
        p.left = {42, 68, 6, 0, 0};
        p.lean = -2.5;
        p.quill = -4;
        p.mouthOpen = 0.45;
        Smile(p, 0.35);
        Brows(p, 2);
    });
}

Scripted Greet()
{
    CScript script("Greet", Rest());
    RaiseHand(script);
    WaveHand(script, 2);
    script.ExitHere();
    script
        .Go(3, 7, Ease::Both,
            [](Pose& p) {  // A small bow, hand on the heart.
                p = Rest();
                p.left = {12, 30, 8, 0, 0};
                p.lean = 3;
                p.stretch = -0.07;
                p.faceY = 0.8;
                Lids(p, 1);
                Smile(p, 0.3);
                p.quill = 22;
            })
        .Hold(28);
    script
        .Go(3, 7, Ease::Both,
            [](Pose& p) {
                p = Rest();
                p.quill = -6;
            })
        .GoTo(1, 8, Ease::Both, Rest())
        .Speaks();
    return script.EndsByExits();
}

Scripted Wave()
{
    CScript script("Wave", Rest());
    RaiseHand(script);
    WaveHand(script, 3);
    script.ExitHere();
    script.GoTo(4, 7, Ease::Both, Rest()).Speaks();
    return script.EndsByExits();
}

Scripted Announce()
{
    CScript script("Announce", Rest());
    script.Go(2, 7, Ease::Both, [](Pose& p) {
        p.right = {22, 18, 4, 0, 1};
        p.faceX = -0.3;
        Gaze(p, -0.6, 0.4);
    });
    script.Go(1, 7, Ease::Even, [](Pose& p) {
        p.right = {34, 30, 6, 0, 0};
        p.tool = Tool::Horn;
        p.toolSize = 0.8;
        p.toolTurn = -60;
    });
    script.Go(2, 7, Ease::Out, [](Pose& p) {
        p.right = {19, 36, 9, 0, 0};
        p.toolSize = 1;
        p.toolTurn = -68;
        Turn(p, -0.35, -0.1);
        p.lean = -3;
    });
    script.Go(2, 8, Ease::Both, [](Pose& p) {
        p.stretch = -0.06;
        Lids(p, 0.6);
    });
    for (int i = 0; i < 2; ++i) {
        script
            .Go(2, 7, Ease::Out,
                [](Pose& p) {
                    p.stretch = 0.04;
                    p.right.up = 38;
                    Lids(p, 1);
                    p.blush = 1.2;
                    p.mouthOpen = 0.25;
                    p.mouthWidth = 0.4;
                    p.quill = -12;
                    p.toolTurn = -76;
                    p.toolSize = 1.12;
                })
            .Hold(10 + 12 * i);
        script.Go(2, 7, Ease::Both, [](Pose& p) {
            p.stretch = -0.03;
            p.right.up = 36;
            p.quill = 6;
            p.toolTurn = -68;
            p.toolSize = 1;
        });
    }
    script.ExitHere();
    script.Go(2, 7, Ease::Both, [](Pose& p) {
        p = Rest();
        p.right = {36, 28, 6, 0, 0};
        p.tool = Tool::Horn;
        p.toolSize = 0.7;
        p.toolTurn = -60;
    });
    script.Go(1, 7, Ease::Both, [](Pose& p) {
        p.right = {22, 18, 4, 0, 1};
        p.toolSize = 0.3;
    });
    script.GoTo(2, 7, Ease::Both, Rest()).Speaks();
    return script.EndsByExits();
}

void AddGetAttention(Scripts& scripts)
{
    CScript knock("GetAttention", Rest());
    knock.Go(3, 7, Ease::Out, [](Pose& p) {
        p.left = {40, 70, 7, 1, 0};
        p.right = {28, 14, 4, 0, 0};
        Brows(p, 3);
        Lids(p, 0);
        p.mouthOpen = 0.3;
    });
    const auto hop = [](CScript& script) {
        script.Go(2, 6, Ease::Out, [](Pose& p) {
            p.y = -5;
            p.stretch = 0.03;
            p.quill = -8;
        });
        script.Go(2, 6, Ease::In, [](Pose& p) {
            p.y = 0;
            p.stretch = -0.06;
            p.quill = 8;
        });
    };
    hop(knock);
    hop(knock);
    knock
        .Go(1, 8, Ease::Both,
            [](Pose& p) {
                p.stretch = 0;
                p.quill = 0;
            })
        .Speaks();
    scripts.push_back(knock.ReturnsBy("GetAttentionReturn"));

    CScript more("GetAttentionContinued", knock.Present());
    hop(more);
    more.Go(2, 6, Ease::Both, [](Pose& p) {
        p.stretch = 0;
        p.quill = 0;
        p.left.out = 46;
    });
    more.Go(2, 6, Ease::Both, [](Pose& p) { p.left.out = 40; }).Speaks();
    scripts.push_back(more.ReturnsBy("GetAttentionReturn"));
    scripts.push_back(WayBack("GetAttentionReturn", scripts.back()));
}

Scripted Congratulate()
{
    CScript script("Congratulate", Rest());
    script.Go(2, 7, Ease::Both, [](Pose& p) {
        p.stretch = -0.09;
        Hands(p, 34, 22, 4);
        Smile(p, 0.3);
    });
    script.Go(3, 6, Ease::Out, [](Pose& p) {
        p.stretch = 0.05;
        p.y = -5;
        Hands(p, 44, 66, 6);
        p.mouthOpen = 0.8;
        Smile(p, 1);
        Lids(p, 1);
        p.kind = Effect::Confetti;
        p.effect = 0.15;
    });
    for (int i = 0; i < 2; ++i) {
        script.Go(2, 7, Ease::In, [](Pose& p) {
            p.stretch = -0.05;
            p.y = 0;
            Hands(p, 47, 58, 6);
            p.quill = 8;
            p.effect += 0.14;
        });
        script.Go(3, 7, Ease::Out, [](Pose& p) {
            p.stretch = 0.04;
            p.y = -5;
            Hands(p, 42, 67, 6);
            p.quill = -8;
            p.effect += 0.16;
        });
    }
    script.Go(2, 7, Ease::In, [](Pose& p) {
        p.y = 0;
        p.stretch = -0.04;
        p.effect += 0.1;
    });
    script.ExitHere();
    script
        .Go(3, 7, Ease::Both,
            [](Pose& p) {
                p = Rest();
                Smile(p, 0.4);
                p.kind = Effect::Confetti;
                p.effect = 1;
            })
        .Hold(10);
    script.GoTo(2, 7, Ease::Both, Rest()).Speaks();
    return script.EndsByExits();
}

}

void AddGreetings(Scripts& scripts)
{
    scripts.push_back(Greet());
    scripts.push_back(Wave());
    scripts.push_back(Announce());
    AddGetAttention(scripts);
    scripts.push_back(Congratulate());
}

}
