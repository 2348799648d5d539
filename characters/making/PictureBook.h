#pragma once
#include "../drawing/Picture.h"
#include "../nibbin/Pose.h"
#include "engine/character/CharacterData.h"
#include <map>
#include <vector>

namespace making {

// The smallest box outside of which all the pictures are alike; all have the same size.
engine::Rect DifferenceOf(const std::vector<drawing::Picture>& pictures);

// Collects the pictures of a character, each once, and in the end gives them one palette.
class CPictureBook {
public:
    CPictureBook();
    drawing::Picture Draw(const nibbin::Pose& pose) const;

    // The frame's pictures: nothing for an empty drawing; a patch over the resting figure where that needs fewer pixels.
    std::vector<engine::PlacedPicture> Place(const drawing::Picture& whole);
    // The part of the drawing inside the box as a picture of its own.
    engine::PlacedPicture Keep(const drawing::Picture& whole, const engine::Rect& box);

    // Puts palette and pictures into the character.
    void Finish(engine::Character& character) const;

private:
    std::vector<drawing::Picture> m_pictures;
    std::map<std::vector<std::uint32_t>, std::uint32_t> m_known;  // By size and pixels.
    drawing::Picture m_rest;
};

}
