#include "Poses.h"

namespace motion {

using nibbin::Effect;
using nibbin::Pose;

namespace {

void EarUp(Pose& p)
{
    p.left = {34, 60, 9, 0, 0};
    p.lean = 4;
    p.faceX = -0.25;
    Gaze(p, 0.2, -0.2);
    Brows(p, 1.5);
}

Scripted Hearing(const std::string& name, double side)
{
    CScript script(name, Rest());
    script.Go(2, 7, Ease::Both, [](Pose& p) {
        EarUp(p);
        p.kind = Effect::Waves;
        p.effect = 0.02;
    });
    const auto loop = script.Next();
    for (const double tilt : {1.0, -0.4})
        script.Go(4, 9, Ease::Both, [=](Pose& p) {
            p.effect += 0.48;
            p.lean = 4 + 2.5 * tilt;
            p.faceY = 0.25 * tilt * side;
            p.quill = -6 * tilt * side;
        });
    script.Go(0, 9, Ease::Even, [](Pose& p) { p.effect = 0.02; }).Jump(loop).ExitHere();
    script.GoTo(3, 7, Ease::Both, Rest());
    return script.EndsByExits();
}

}

void AddListening(Scripts& scripts)
{
    CScript alert("Alert", Rest());
    alert.Go(1, 6, Ease::Even, [](Pose& p) {
        p.stretch = -0.04;
        Lids(p, 0.4);
    });
    alert.Go(3, 6, Ease::Over, [](Pose& p) {
        p.stretch = 0.03;
        Lids(p, 0);
        Brows(p, 3);
        p.quill = -16;
        Hands(p, 33, 20, 6);
    });
    alert.Go(1, 8, Ease::Both, [](Pose& p) { p.stretch = 0.015; }).Speaks();
    scripts.push_back(alert.ReturnsBy("AlertReturn"));
    scripts.push_back(WayBack("AlertReturn", scripts.back()));

    scripts.push_back(Hearing("Hearing1", 1));
    scripts.push_back(Hearing("Hearing2", -1));

    CScript start("StartListening", Rest());
    start.Go(4, 7, Ease::Out, EarUp).Speaks();
    scripts.push_back(start.ReturnsBy("StartListeningReturn"));
    scripts.push_back(WayBack("StartListeningReturn", scripts.back()));

    CScript stop("StopListening", Rest());
    stop.Go(3, 7, Ease::Out, [](Pose& p) {
        Hands(p, 31, 58, 10);
        Lids(p, 1);
        p.mouthWidth = 0.7;
        p.stretch = -0.03;
        p.quill = 12;
    });
    for (const double side : {1.0, -1.0})
        stop.Go(2, 7, Ease::Both, [=](Pose& p) {
            p.faceX = 0.4 * side;
            p.quill = 8 * side;
        });
    stop.Go(3, 7, Ease::Both,
            [](Pose& p) {
                p.faceX = 0;
                p.quill = 0;
                Lids(p, 0.2);
                Hands(p, 36, 40, 8);
            })
        .Speaks();
    scripts.push_back(stop.ReturnsBy("StopListeningReturn"));
    scripts.push_back(WayBack("StopListeningReturn", scripts.back()));
}

}
