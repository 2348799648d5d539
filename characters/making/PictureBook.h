#pragma once
#include "../drawing/Picture.h"
#include "../nibbin/Figure.h"
#include "engine/character/CharacterData.h"
#include <map>
#include <vector>

namespace making {

// The smallest box outside of which all the pictures are alike; all have the same size.
engine::Rect DifferenceOf(const std::vector<drawing::Picture>& pictures);

// Collects the pictures of a character, each once, and in the end gives them one palette.
class CPictureBook {
public:
    drawing::Picture Draw(const nibbin::Pose& pose) const;

    // Announces a pose, so that Place knows which trunks are used again and again.
    void Expect(const nibbin::Pose& pose) { ++m_trunkUses[nibbin::TrunkKey(pose)]; }
    // The frame's pictures: none for an empty drawing; the trunk and a patch over it where other poses share the trunk.
    std::vector<engine::PlacedPicture> Place(const nibbin::Pose& pose);
    // The part of the drawing inside the box as a picture of its own.
    engine::PlacedPicture Keep(const drawing::Picture& whole, const engine::Rect& box);

    // Puts palette and pictures into the character.
    void Finish(engine::Character& character) const;

private:
    const drawing::Picture& TrunkOf(const nibbin::Pose& pose);

    std::vector<drawing::Picture> m_pictures;
    std::map<std::vector<std::uint32_t>, std::uint32_t> m_known;  // By size and pixels.
    std::map<std::vector<double>, int> m_trunkUses;
    std::map<std::vector<double>, drawing::Picture> m_trunks;
};

}
