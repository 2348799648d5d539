#pragma once
#include "Script.h"

// Poses that several animations share.
namespace motion {

nibbin::Pose Rest();
nibbin::Pose BookInHands();  // Reading: the open book before it, glasses on, eyes on the page.
nibbin::Pose PadInHands();   // Writing: the note pad in the left hand, the pencil in the right one.

// Both eyes at once.
void Lids(nibbin::Pose& pose, double lid);
void Smile(nibbin::Pose& pose, double smile);
void Brows(nibbin::Pose& pose, double height, double slant = 0);
void Gaze(nibbin::Pose& pose, double x, double y);
// Both hands, alike on both sides.
void Hands(nibbin::Pose& pose, double out, double up, double bend = 5);
void Turn(nibbin::Pose& pose, double x, double y);  // Face and eyes.

// The animations by theme; each adds its own to the list.
using Scripts = std::vector<Scripted>;
void AddBasics(Scripts& scripts);
void AddComingAndGoing(Scripts& scripts);
void AddGreetings(Scripts& scripts);
void AddReading(Scripts& scripts);
void AddWriting(Scripts& scripts);
void AddDirections(Scripts& scripts);
void AddFeelings(Scripts& scripts);
void AddAnswers(Scripts& scripts);
void AddWork(Scripts& scripts);
void AddMagic(Scripts& scripts);
void AddListening(Scripts& scripts);
void AddIdling(Scripts& scripts);
Scripts AllScripts();

// The way from an animation's last pose back to rest, as the animation of that name.
Scripted WayBack(const std::string& name, const Scripted& from, int frames = 3);

}
