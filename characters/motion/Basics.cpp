#include "Poses.h"

namespace motion {

using nibbin::Effect;
using nibbin::Pose;

namespace {

Pose Gone()
{
    Pose pose;
    pose.grow = 0;
    return pose;
}

// A closed bud: small, asleep, arms tucked away, the quill still furled.
Pose Bud(double grow)
{
    Pose pose;
    pose.grow = grow;
    pose.quillSize = 0.15;
    pose.blush = 0;
    Lids(pose, 1);
    Hands(pose, 24, 30, 2);
    pose.left.behind = pose.right.behind = 1;
    return pose;
}

}

void AddBasics(Scripts& scripts)
{
    scripts.push_back(CScript("RestPose", Rest()).GoTo(1, 10, Ease::Even, Rest()).Speaks().Ends());
    scripts.push_back(CScript("Blink", Rest()).Blink().EndsByExits());
}

// It grows from the ground like a seed: a bud, a stretch, then arms, quill and eyes open.
void AddComingAndGoing(Scripts& scripts)
{
    CScript show("Show", Gone());
    show.GoTo(1, 6, Ease::Even, Bud(0.14)).GoTo(3, 6, Ease::Out, Bud(0.55)).Hold(4);
    show.Go(2, 6, Ease::Both, [](Pose& p) { p.stretch = -0.14; });
    show.Go(3, 6, Ease::Out, [](Pose& p) {
        p.grow = 0.97;
        p.stretch = 0.12;
        p.y = -4;
        p.quillSize = 0.45;
        p.kind = Effect::Puff;
        p.effect = 0.35;
    });
    show.Go(2, 6, Ease::In, [](Pose& p) {
        p.grow = 1;
        p.stretch = -0.1;
        p.y = 0;
        p.quillSize = 0.8;
        p.quill = -14;
        p.effect = 0.7;
    });
    show.Go(2, 6, Ease::Out, [](Pose& p) {
        p.stretch = 0.03;
        p.quillSize = 1;
        p.quill = 12;
        p.effect = 1;
    });
    show.Go(1, 7, Ease::Even, [](Pose& p) {
        p = Rest();
        p.quill = -5;
        Hands(p, 40, 30, 4);
        Lids(p, 0.6);
    });
    show.Go(2, 7, Ease::Out,
            [](Pose& p) {
                p = Rest();
                p.quill = 4;
                Lids(p, 0);
                Smile(p, 0.2);
                Brows(p, 2);
            })
        .Hold(14);
    show.GoTo(2, 7, Ease::Both, Rest());
    scripts.push_back(show.Ends());

    CScript hide("Hide", Rest());
    hide.Go(2, 7, Ease::Both,
            [](Pose& p) {
                Smile(p, 0.4);
                Hands(p, 38, 34, 4);
                p.quill = 8;
            })
        .Hold(6);
    hide.Go(2, 7, Ease::Both, [](Pose& p) {
        p.stretch = -0.1;
        Lids(p, 1);
        Hands(p, 30, 26, 3);
        p.quill = -10;
    });
    hide.Go(2, 6, Ease::Out, [](Pose& p) {
        p = Bud(1);
        p.stretch = 0.08;
        p.y = -3;
        p.quillSize = 0.5;
    });
    hide.Go(3, 6, Ease::In, [](Pose& p) {
        p = Bud(0.42);
        p.kind = Effect::Puff;
        p.effect = 0.4;
    });
    hide.Go(2, 6, Ease::In, [](Pose& p) {
        p.grow = 0.1;
        p.effect = 0.75;
    });
    hide.Go(2, 6, Ease::Even, [](Pose& p) {
        p.grow = 0;
        p.effect = 1;
    });
    scripts.push_back(hide.Ends());
}

}
