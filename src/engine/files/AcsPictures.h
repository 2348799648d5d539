#pragma once
#include "engine/character/CharacterData.h"
#include "engine/files/AcsFormat.h"
#include <list>
#include <span>
#include <unordered_map>

namespace engine::files {

using FileBytes = std::shared_ptr<const std::vector<std::uint8_t>>;

// Where the pixels of a picture lie in the file; size 0, 0 for an empty picture.
struct StoredPicture {
    Size size;
    bool isPacked = false;
    std::span<const std::uint8_t> pixels;
};

// The records of all pictures. Throws platform::CFailure (invalid data) for a damaged list or record; pixels are not
// looked at.
std::vector<StoredPicture> ReadPictureList(std::span<const std::uint8_t> file, Locator list);

// The pictures of a file that stays in memory. Unpacks a picture when it is asked for and keeps those that were asked for
// last, up to `cacheBytes` of pixels (at least the last one). For one thread.
class CAcsPictures final : public IPictures {
public:
    static constexpr std::size_t DefaultCacheBytes = 16U << 20;

    // `pictures` lie in `file`.
    CAcsPictures(FileBytes file, std::vector<StoredPicture> pictures, std::size_t cacheBytes = DefaultCacheBytes);
    std::uint32_t Count() const override { return static_cast<std::uint32_t>(m_pictures.size()); }
    PictureRef Picture(std::uint32_t index) const override;

private:
    struct Kept {
        std::uint32_t index;
        PictureRef picture;
    };

    void Keep(std::uint32_t index, const PictureRef& picture) const;
    void DropOldest() const;

    FileBytes m_file;
    std::vector<StoredPicture> m_pictures;
    std::size_t m_cacheBytes;
    mutable std::list<Kept> m_kept;  // The one asked for last is in front.
    mutable std::unordered_map<std::uint32_t, std::list<Kept>::iterator> m_places;
    mutable std::size_t m_keptBytes = 0;
};

}
