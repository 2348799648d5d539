#pragma once
#include "../motion/Script.h"
#include "engine/character/CharacterData.h"
#include <string>
#include <vector>

// Turns scripts into a character: draws the poses, chooses the palette, keeps each picture once.
namespace making {

inline constexpr char CharacterName[] = "Nibbin";

engine::Character MakeCharacter(const std::vector<motion::Scripted>& scripts);

// The character's texts, looks, voice hints and states; no pictures or animations.
engine::Character WithoutPictures();

}
