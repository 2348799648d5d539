#include "engine/files/AcsAnimations.h"
#include "base/text/Case.h"
#include "engine/files/ByteReader.h"
#include <algorithm>

namespace engine::files {
namespace {

// The fewest bytes that an entry takes.
constexpr std::size_t SmallestListEntry = 12;
constexpr std::size_t SmallestFrame = 10;
constexpr std::size_t PlacedPictureSize = 8;
constexpr std::size_t BranchSize = 4;
constexpr std::size_t SmallestMouth = 14;

Point ReadOffset(CByteReader& reader)
{
    const std::int16_t x = reader.I16();
    return {x, reader.I16()};
}

std::vector<PlacedPicture> ReadPlacedPictures(CByteReader& reader, std::size_t pictures)
{
    std::vector<PlacedPicture> list;
    const std::size_t count = reader.Count16(PlacedPictureSize, MaximumPicturesOfFrame);
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint32_t picture = reader.U32();
        const Point offset = ReadOffset(reader);
        if (picture < pictures)
            list.push_back({picture, offset});
    }
    return list;
}

std::vector<Branch> ReadBranches(CByteReader& reader, std::size_t frames)
{
    std::vector<Branch> list;
    unsigned percentLeft = 100;
    const std::size_t count = reader.Count8(BranchSize);
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint16_t target = reader.U16();
        const unsigned percent = std::min<unsigned>(reader.U16(), percentLeft);
        if (target >= frames || percent == 0)
            continue;
        list.push_back({target, static_cast<std::uint16_t>(percent)});
        percentLeft -= percent;
    }
    return list;
}

void ReadMouth(CByteReader& reader, std::size_t pictures, std::vector<MouthOverlay>& list)
{
    const std::uint8_t kind = reader.U8();
    MouthOverlay mouth;
    mouth.replacesTopPicture = reader.U8() != 0;
    mouth.placed.picture = reader.U16();
    reader.Skip(1);
    const bool hasRegion = reader.U8() != 0;
    mouth.placed.offset = ReadOffset(reader);
    reader.Skip(4);  // The middle of the first mouth.
    if (hasRegion)
        reader.Blob();
    if (kind >= MouthCount || mouth.placed.picture >= pictures)
        return;
    mouth.mouth = static_cast<Mouth>(kind);
    list.push_back(mouth);
}

std::vector<MouthOverlay> ReadMouths(CByteReader& reader, std::size_t pictures)
{
    std::vector<MouthOverlay> list;
    const std::size_t count = reader.Count8(SmallestMouth);
    for (std::size_t i = 0; i < count; ++i)
        ReadMouth(reader, pictures, list);
    return list;
}

// Nothing for what is negative or too large.
template <class Number> std::optional<std::uint16_t> IndexWithin(Number index, std::size_t count)
{
    if (index < 0 || static_cast<std::size_t>(index) >= count)
        return std::nullopt;
    return static_cast<std::uint16_t>(index);
}

Frame ReadFrame(CByteReader& reader, std::size_t frames, const PartCounts& counts)
{
    Frame frame;
    frame.pictures = ReadPlacedPictures(reader, counts.pictures);
    frame.sound = IndexWithin(std::int32_t{reader.U16()}, counts.sounds);
    frame.duration = reader.U16();
    frame.exitFrame = IndexWithin(std::int32_t{reader.I16()}, frames);
    frame.branches = ReadBranches(reader, frames);
    frame.mouths = ReadMouths(reader, counts.pictures);
    return frame;
}

Transition TransitionOf(std::uint8_t kind)
{
    return kind < static_cast<std::uint8_t>(Transition::None) ? static_cast<Transition>(kind) : Transition::None;
}

Animation ReadAnimation(std::span<const std::uint8_t> record, const PartCounts& counts)
{
    CByteReader reader(record);
    Animation animation;
    animation.name = reader.String();
    animation.transition = TransitionOf(reader.U8());
    animation.returnAnimation = reader.String();
    const std::size_t count = reader.Count16(SmallestFrame, MaximumFrames);
    animation.frames.reserve(count);
    for (std::size_t i = 0; i < count; ++i)
        animation.frames.push_back(ReadFrame(reader, count, counts));
    return animation;
}

// A return animation stands exactly where the transition wants one.
void MendReturnAnimations(std::vector<Animation>& animations)
{
    const NameSet names = NamesOf(animations);
    for (Animation& animation : animations) {
        const bool exists = names.count(text::FoldCase(animation.returnAnimation)) == 1;
        if (animation.transition == Transition::ReturnAnimation && !exists)
            animation.transition = Transition::None;
        if (animation.transition != Transition::ReturnAnimation)
            animation.returnAnimation.clear();
    }
}

class CAnimationListReader {
public:
    CAnimationListReader(std::span<const std::uint8_t> file, Locator list, const PartCounts& counts)
        : m_file(file), m_reader(RecordAt(file, list)), m_counts(counts)
    {
    }

    std::vector<Animation> Run()
    {
        const std::size_t count = m_reader.Count32(SmallestListEntry, MaximumAnimations);
        for (std::size_t i = 0; i < count; ++i)
            ReadEntry();
        MendReturnAnimations(m_animations);
        return std::move(m_animations);
    }

private:
    void ReadEntry()
    {
        const std::string name = m_reader.String();
        const Locator place = m_reader.Place();
        // Many entries may name one record, but not so often that a small file grows large in memory.
        m_recordBytes += place.size;
        RequireIntact(m_recordBytes <= m_file.size(), "its animations overlap");
        Animation animation = ReadAnimation(RecordAt(m_file, place), m_counts);
        m_frames += animation.frames.size();
        RequireIntact(m_frames <= MaximumFramesOfFile, "it has too many frames");
        if (!name.empty())
            animation.name = name;  // Spelled as its author did; the record has capitals only.
        m_animations.push_back(std::move(animation));
    }

    std::span<const std::uint8_t> m_file;
    CByteReader m_reader;
    const PartCounts& m_counts;
    std::vector<Animation> m_animations;
    std::uint64_t m_recordBytes = 0;
    std::size_t m_frames = 0;
};

}

std::vector<Animation> ReadAnimations(std::span<const std::uint8_t> file, Locator list, const PartCounts& counts)
{
    return CAnimationListReader(file, list, counts).Run();
}

NameSet NamesOf(const std::vector<Animation>& animations)
{
    NameSet names;
    for (const Animation& animation : animations)
        names.insert(text::FoldCase(animation.name));
    return names;
}

}
