#include "Poses.h"

namespace motion {

using nibbin::Effect;
using nibbin::Pose;
using nibbin::Tool;

namespace {

// The wand goes round once; stars come out of nowhere.
void AddWand(Scripts& scripts)
{
    CScript swing("DoMagic1", Rest());
    swing.Go(2, 7, Ease::Both, [](Pose& p) {
        p.right = {20, 19, 4, 0, 1};
        p.faceX = -0.3;
        Gaze(p, -0.5, 0.4);
    });
    swing.Go(3, 7, Ease::Out, [](Pose& p) {
        p.right = {41, 52, 8, 0, 0};
        p.tool = Tool::Wand;
        p.toolSize = 1;
        p.toolTurn = -25;
        Turn(p, -0.5, -0.3);
        Brows(p, 2);
    });
    swing.Go(2, 6, Ease::Both, [](Pose& p) {
        p.right = {39, 60, 7, 0, 0};
        p.toolTurn = -32;
        p.lean = -4;
        p.quill = 10;
    });
    swing.Go(3, 6, Ease::In, [](Pose& p) {
        p.right = {38, 44, 8, 0, 0};
        p.toolTurn = 12;
        p.lean = 3;
        Turn(p, 0.2, 0);
        p.quill = -10;
        p.kind = Effect::Sparkles;
        p.effect = 0.15;
    });
    swing.Go(6, 8, Ease::Even, [](Pose& p) {
        p.effect = 0.75;
        p.lean = 0;
        p.quill = 0;
        p.faceX = 0;
        Gaze(p, 0, 0);
        Smile(p, 0.3);
    });
    swing.Go(2, 8, Ease::Even, [](Pose& p) { p.effect = 1; }).Speaks();
    scripts.push_back(swing.ReturnsBy("DoMagic1Return"));

    CScript back("DoMagic1Return", swing.Present());
    back.Go(2, 7, Ease::Both, [](Pose& p) {
        p = Rest();
        p.right = {21, 19, 4, 0, 1};
        p.tool = Tool::Wand;
        p.toolSize = 0.3;
    });
    scripts.push_back(back.GoTo(2, 7, Ease::Both, Rest()).Ends());
}

// Without any wand: it gathers itself and throws up its hands.
Scripted Burst()
{
    CScript burst("DoMagic2", Rest());
    burst
        .Go(3, 7, Ease::Both,
            [](Pose& p) {
                Hands(p, 10, 30, 11);
                p.stretch = -0.1;
                Lids(p, 1);
                p.quill = 14;
            })
        .Hold(14);
    burst.Go(2, 6, Ease::Out, [](Pose& p) {
        Hands(p, 45, 62, 6);
        p.stretch = 0.04;
        p.y = -3;
        Lids(p, 0);
        p.mouthOpen = 0.6;
        Smile(p, 0.3);
        p.quill = -12;
        p.kind = Effect::Sparkles;
        p.effect = 0.2;
    });
    burst.Go(7, 8, Ease::Even, [](Pose& p) {
        p.stretch = 0;
        p.y = 0;
        p.effect = 0.95;
        p.quill = 6;
    });
    burst.ExitHere();
    burst.GoTo(4, 7, Ease::Both, Rest());
    return burst.EndsByExits();
}

}

void AddMagic(Scripts& scripts)
{
    AddWand(scripts);
    scripts.push_back(Burst());
}

}
