#include "Pieces.h"

namespace making {

using drawing::Picture;

namespace {

constexpr std::size_t LargeFrom = 90;  // Pixels.

using Places = std::vector<std::size_t>;

// Moves the piece that hangs together with `start` out of `left`, diagonal neighbours included.
Places TakePiece(Picture& left, std::size_t start)
{
    Places piece{start};
    left.pixels[start] = 0;
    for (std::size_t next = 0; next < piece.size(); ++next) {
        const int x = static_cast<int>(piece[next]) % left.width, y = static_cast<int>(piece[next]) / left.width;
        for (int ny = y - 1; ny <= y + 1; ++ny)
            for (int nx = x - 1; nx <= x + 1; ++nx)
                if (nx >= 0 && ny >= 0 && nx < left.width && ny < left.height && left.At(nx, ny) != 0) {
                    piece.push_back(static_cast<std::size_t>(ny * left.width + nx));
                    left.Put(nx, ny, 0);
                }
    }
    return piece;
}

void Add(Picture& picture, const Picture& whole, const Places& piece)
{
    for (const std::size_t place : piece)
        picture.pixels[place] = whole.pixels[place];
}

}

std::vector<Picture> PiecesOf(const Picture& whole)
{
    const Picture clear{whole.width, whole.height, std::vector<std::uint32_t>(whole.pixels.size())};
    Picture left = whole, small = clear;
    std::vector<Picture> pieces;
    for (std::size_t place = 0; place < whole.pixels.size(); ++place) {
        if (left.pixels[place] == 0)
            continue;
        const Places piece = TakePiece(left, place);
        if (piece.size() >= LargeFrom)
            pieces.push_back(clear);
        Add(piece.size() >= LargeFrom ? pieces.back() : small, whole, piece);
    }
    if (small != clear)
        pieces.push_back(small);
    return pieces;
}

}
