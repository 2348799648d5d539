#pragma once
#include "engine/Geometry.h"
#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

// A character as data: what a character file holds, decoded.
namespace engine {

struct Color {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    friend bool operator==(const Color&, const Color&) = default;
};

// One palette index per pixel, rows from the top, no padding: pixels.size() == width * height.
struct IndexedPicture {
    Size size;
    std::vector<std::uint8_t> pixels;
    friend bool operator==(const IndexedPicture&, const IndexedPicture&) = default;
};

using PictureRef = std::shared_ptr<const IndexedPicture>;

// The pictures of a character by index; decodes on demand where they come from a file.
class IPictures {
public:
    virtual ~IPictures() = default;
    virtual std::uint32_t Count() const = 0;
    virtual PictureRef Picture(std::uint32_t index) const = 0;  // Null for an empty, damaged or unknown picture.
};

// Pictures held in memory.
class CPictureList final : public IPictures {
public:
    std::uint32_t Add(IndexedPicture picture)
    {
        m_pictures.push_back(std::make_shared<const IndexedPicture>(std::move(picture)));
        return static_cast<std::uint32_t>(m_pictures.size() - 1);
    }
    std::uint32_t Count() const override { return static_cast<std::uint32_t>(m_pictures.size()); }
    PictureRef Picture(std::uint32_t index) const override
    {
        return index < m_pictures.size() ? m_pictures[index] : nullptr;
    }

private:
    std::vector<PictureRef> m_pictures;
};

struct PlacedPicture {
    std::uint32_t picture = 0;
    Point offset;  // Of the picture's top left corner inside the frame; may stick out.
    friend bool operator==(const PlacedPicture&, const PlacedPicture&) = default;
};

enum class Mouth : std::uint8_t { Closed = 0, Wide1 = 1, Wide2 = 2, Wide3 = 3, Wide4 = 4, Medium = 5, Narrow = 6 };
inline constexpr int MouthCount = 7;

struct MouthOverlay {
    Mouth mouth = Mouth::Closed;
    bool replacesTopPicture = false;  // Else it is drawn over everything.
    PlacedPicture placed;
    friend bool operator==(const MouthOverlay&, const MouthOverlay&) = default;
};

struct Branch {
    std::uint16_t target = 0;  // Frame index from 0.
    std::uint16_t percent = 0;
    friend bool operator==(const Branch&, const Branch&) = default;
};

struct Frame {
    std::vector<PlacedPicture> pictures;  // The first one is the top one: draw from last to first.
    std::optional<std::uint16_t> sound;
    std::uint16_t duration = 0;  // 1/100 s.
    std::optional<std::uint16_t> exitFrame;
    std::vector<Branch> branches;
    std::vector<MouthOverlay> mouths;
    bool CanSpeak() const { return !mouths.empty(); }
    friend bool operator==(const Frame&, const Frame&) = default;
};

enum class Transition : std::uint8_t { ReturnAnimation = 0, ExitBranches = 1, None = 2 };

struct Animation {
    std::string name;
    Transition transition = Transition::None;
    std::string returnAnimation;
    std::vector<Frame> frames;  // May be empty: such an animation ends at once.
    friend bool operator==(const Animation&, const Animation&) = default;
};

struct State {
    std::string name;  // SHOWING, HIDING, SPEAKING, MOVINGUP ..., IDLINGLEVEL1 ...
    std::vector<std::string> animations;
    friend bool operator==(const State&, const State&) = default;
};

struct LocalizedName {
    std::uint16_t languageId = 0x0009;
    std::string name;
    std::string description;
    std::string extraData;
    friend bool operator==(const LocalizedName&, const LocalizedName&) = default;
};

struct BalloonLook {
    std::uint8_t lines = 2;
    std::uint8_t charsPerLine = 32;
    Color text;
    Color background{255, 255, 231};
    Color border;
    std::string fontName = "Sans";
    std::int32_t fontHeight = -13;  // Negative: pixel height of the glyphs.
    bool bold = false;
    bool italic = false;
    bool sizeToText = true;
    bool autoHide = true;
    bool autoPace = true;
    friend bool operator==(const BalloonLook&, const BalloonLook&) = default;
};

struct VoiceHints {
    std::array<std::uint8_t, 16> engineId{};
    std::array<std::uint8_t, 16> modeId{};
    std::optional<std::uint32_t> wordsPerMinute;
    std::optional<std::uint16_t> pitch;  // Hertz.
    std::uint16_t languageId = 0x0409;
    std::uint16_t gender = 0;  // 0 neutral, 1 female, 2 male.
    std::uint16_t age = 30;
    friend bool operator==(const VoiceHints&, const VoiceHints&) = default;
};

struct Character {
    std::array<std::uint8_t, 16> id{};
    std::vector<LocalizedName> names;  // At least one in a valid character.
    Size frameSize;
    std::vector<Color> palette;
    std::uint8_t transparentIndex = 0;
    bool hasStandardSet = false;
    std::optional<VoiceHints> voice;
    std::optional<BalloonLook> balloon;
    std::vector<State> states;
    std::vector<Animation> animations;
    std::vector<std::shared_ptr<const std::vector<std::uint8_t>>> sounds;  // Whole RIFF/WAVE files.
    std::shared_ptr<const IPictures> pictures;
};

using CharacterRef = std::shared_ptr<const Character>;

}
