#include "Poses.h"

namespace motion {

using nibbin::Pose;

namespace {

void BehindBack(Pose& p)
{
    p = Rest();
    Hands(p, 21, 19, 4);
    p.left.behind = p.right.behind = 1;
    p.faceX = 0.25;
    Gaze(p, 0.7, 0.4);
    p.lean = 2;
}

void ClosedBook(Pose& p)
{
    p = BookInHands();
    p.bookOpen = 0;
    p.glasses = 0;
    Hands(p, 13, 15, 10);
    Lids(p, 0.25);
}

// Reaches behind itself, brings out the book, opens it and lets the glasses slide down.
void TakeBook(CScript& script)
{
    script.Go(2, 7, Ease::Both, BehindBack).Hold(4);
    script.Go(1, 7, Ease::Even, [](Pose& p) {
        ClosedBook(p);
        p.book = 0.5;
        p.stretch = -0.04;
    });
    script.Go(2, 7, Ease::Out, ClosedBook).Hold(6);
    script.Go(3, 7, Ease::Both, [](Pose& p) {
        p = BookInHands();
        p.glasses = 0.25;
        Lids(p, 0.2);
        Brows(p, 2);
        p.quill = -5;
    });
    script.Go(3, 7, Ease::Out, [](Pose& p) {
        p = BookInHands();
        p.quill = 4;
    });
    script.GoTo(1, 8, Ease::Both, BookInHands());
}

void PutBookAway(CScript& script)
{
    script.Go(2, 7, Ease::Both, [](Pose& p) {
        p = BookInHands();
        p.glasses = 0.2;
        Lids(p, 0.2);
        p.gazeY = 0.4;
    });
    script
        .Go(3, 7, Ease::Both,
            [](Pose& p) {
                ClosedBook(p);
                p.gazeY = 0.5;
                Smile(p, 0.2);
            })
        .Hold(4);
    script.Go(1, 7, Ease::Even, [](Pose& p) {
        p.book = 0.5;
        p.stretch = -0.03;
    });
    script.Go(1, 7, Ease::Even, BehindBack);
    script.GoTo(3, 7, Ease::Both, Rest());
}

void TurnPage(CScript& script)
{
    script.Go(1, 8, Ease::Both, [](Pose& p) {
        p.left.out = 22;
        p.left.up = 33;
        p.left.bend = 9;
        p.page = 0.98;
        Gaze(p, 0.6, 0.8);
    });
    script.Go(4, 8, Ease::Both, [](Pose& p) {
        p.left.out = 4;
        p.left.up = 36;
        p.page = 0.25;
        Gaze(p, -0.5, 0.85);
        p.faceX = -0.1;
    });
    script.Go(2, 7, Ease::Out, [](Pose& p) {
        p = BookInHands();
        p.page = 0;
        Gaze(p, -0.55, 0.95);
    });
}

// The eyes go along a line and jump to the start of the next one.
void FollowLine(CScript& script)
{
    for (const double x : {-0.5, -0.2, 0.15, 0.5})
        script.Go(1, 16, Ease::Even, [x](Pose& p) {
            p.gazeX = x;
            p.faceX = x * 0.16;
        });
    script.Go(1, 9, Ease::Even, [](Pose& p) {
        p.gazeX = -0.2;
        p.faceX = 0;
    });
}

}

void AddReading(Scripts& scripts)
{
    CScript read("Read", Rest());
    TakeBook(read);
    scripts.push_back(read.Speaks().ReturnsBy("ReadReturn"));

    CScript more("ReadContinued", BookInHands());
    TurnPage(more);
    more.GoTo(2, 8, Ease::Both, BookInHands()).Speaks();
    scripts.push_back(more.ReturnsBy("ReadReturn"));

    CScript back("ReadReturn", BookInHands());
    PutBookAway(back);
    scripts.push_back(back.Ends());

    CScript reading("Reading", Rest());
    TakeBook(reading);
    const auto loop = reading.Next();
    for (int line = 0; line < 3; ++line)
        FollowLine(reading);
    reading.Blink();
    FollowLine(reading);
    TurnPage(reading);
    reading.Jump(loop).ExitHere();
    PutBookAway(reading);
    scripts.push_back(reading.EndsByExits());
}

}
