#include "Poses.h"

namespace motion {

using nibbin::Pose;
using nibbin::Tool;

namespace {

void Reach(Pose& p)
{
    p = Rest();
    p.left = {21, 19, 4, 0, 1};
    p.right = {21, 19, 4, 0, 1};
    p.faceX = -0.2;
    Gaze(p, -0.6, 0.4);
    p.lean = -2;
}

void TakePad(CScript& script)
{
    script.Go(2, 7, Ease::Both, Reach).Hold(3);
    script.Go(3, 7, Ease::Out, [](Pose& p) {
        p = PadInHands();
        p.right.out = 33;
        p.right.up = 44;
        Gaze(p, -0.5, 0);
        p.faceX = -0.1;
    });
    script.Go(3, 7, Ease::Both, [](Pose& p) { p = PadInHands(); });
}

void PutPadAway(CScript& script)
{
    script.Go(2, 7, Ease::Both, [](Pose& p) {
        p = PadInHands();
        p.right.out = 28;
        p.right.up = 40;
        Gaze(p, 0, 0.2);
        p.faceX = 0;
    });
    script.Go(1, 7, Ease::Even, [](Pose& p) {
        p.toolSize = 0.6;
        p.pad = 0.5;
        p.left.up = 16;
    });
    script.Go(1, 7, Ease::Even, Reach);
    script.GoTo(3, 7, Ease::Both, Rest());
}

// The pencil runs along `line` of five on the pad, up and down in small strokes.
void WriteLine(CScript& script, int line, int each)
{
    for (int stroke = 1; stroke <= 4; ++stroke)
        script.Go(1, each, Ease::Even, [=](Pose& p) {
            p.padLines = (line + stroke / 4.0) / 5;
            p.right.out = 9 - 3.6 * stroke;
            p.right.up = 33 - 4.0 * line + (stroke % 2 == 0 ? 1.6 : -1.2);
            p.toolTurn = stroke % 2 == 0 ? -34 : -46;
            p.gazeX = 0.4 + 0.08 * stroke;
        });
}

void LookUpFromPad(CScript& script)
{
    script.Go(2, 7, Ease::Both, [](Pose& p) {
        p.faceX = 0;
        p.faceY = 0;
        Gaze(p, 0, 0);
        Lids(p, 0.13);
        Smile(p, 0.15);
        p.right = {15, 20, 8, 0, 0};
        p.toolTurn = -25;
    });
}

// A fresh sheet, then as many lines as are asked for.
void WriteSheet(CScript& script, int lines)
{
    for (int line = 0; line < lines; ++line)
        WriteLine(script, line, 7);
}

}

void AddWriting(Scripts& scripts)
{
    CScript write("Write", Rest());
    TakePad(write);
    WriteSheet(write, 2);
    LookUpFromPad(write);
    const Pose lookingUp = write.Present();
    scripts.push_back(write.Speaks().ReturnsBy("WriteReturn"));

    CScript more("WriteContinued", lookingUp);
    more.Go(2, 7, Ease::Both, [](Pose& p) {
        p = PadInHands();
        p.padLines = 0.4;
    });
    WriteLine(more, 2, 7);
    WriteLine(more, 3, 7);
    LookUpFromPad(more);
    scripts.push_back(more.Speaks().ReturnsBy("WriteReturn"));

    CScript back("WriteReturn", lookingUp);
    PutPadAway(back);
    scripts.push_back(back.Ends());

    CScript writing("Writing", Rest());
    TakePad(writing);
    const auto loop = writing.Next();
    WriteSheet(writing, 5);
    writing.Hold(20);
    writing
        .Go(2, 8, Ease::Both,
            [](Pose& p) {
                Gaze(p, -0.3, -0.7);
                p.faceY = -0.2;
                p.padLines = 0;
            })
        .Hold(30)
        .Jump(loop);
    writing.ExitHere();
    PutPadAway(writing);
    scripts.push_back(writing.EndsByExits());
}

}
