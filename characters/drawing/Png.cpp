#include "Picture.h"
#include <algorithm>
#include <fstream>
#include <stdexcept>

namespace drawing {

namespace {

using Bytes = std::vector<std::uint8_t>;

void AddWord(Bytes& bytes, std::uint32_t value)
{
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes.push_back(static_cast<std::uint8_t>(value >> shift));
}

std::uint32_t Crc(const Bytes& bytes, std::size_t from)
{
    std::uint32_t crc = 0xFFFFFFFFU;
    for (std::size_t i = from; i < bytes.size(); ++i) {
        crc ^= bytes[i];
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ ((crc & 1) != 0 ? 0xEDB88320U : 0U);
    }
    return ~crc;
}

std::uint32_t Adler(const Bytes& bytes)
{
    std::uint32_t a = 1, b = 0;
    for (const std::uint8_t byte : bytes) {
        a = (a + byte) % 65521;
        b = (b + a) % 65521;
    }
    return b << 16 | a;
}

void AddChunk(Bytes& file, const char* type, const Bytes& data)
{
    AddWord(file, static_cast<std::uint32_t>(data.size()));
    const std::size_t start = file.size();
    file.insert(file.end(), type, type + 4);
    file.insert(file.end(), data.begin(), data.end());
    AddWord(file, Crc(file, start));
}

// A zlib stream of stored blocks: large, but simple.
Bytes Stored(const Bytes& data)
{
    Bytes stream{0x78, 0x01};
    for (std::size_t at = 0; at < data.size(); at += 65535) {
        const std::size_t length = std::min<std::size_t>(65535, data.size() - at);
        stream.push_back(at + length == data.size() ? 1 : 0);
        for (const std::size_t part : {length, ~length})
            for (const int shift : {0, 8})
                stream.push_back(static_cast<std::uint8_t>(part >> shift));
        stream.insert(stream.end(), data.begin() + static_cast<std::ptrdiff_t>(at),
                      data.begin() + static_cast<std::ptrdiff_t>(at + length));
    }
    AddWord(stream, Adler(data));
    return stream;
}

Bytes Rows(const Picture& picture)
{
    Bytes rows;
    for (int y = 0; y < picture.height; ++y) {
        rows.push_back(0);
        for (int x = 0; x < picture.width; ++x)
            for (const int shift : {16, 8, 0, 24})
                rows.push_back(static_cast<std::uint8_t>(picture.At(x, y) >> shift));
    }
    return rows;
}

}

void WritePng(const Picture& picture, const std::string& fileName)
{
    Bytes file{0x89, 'P', 'N', 'G', 13, 10, 26, 10}, header;
    AddWord(header, static_cast<std::uint32_t>(picture.width));
    AddWord(header, static_cast<std::uint32_t>(picture.height));
    header.insert(header.end(), {8, 6, 0, 0, 0});
    AddChunk(file, "IHDR", header);
    AddChunk(file, "IDAT", Stored(Rows(picture)));
    AddChunk(file, "IEND", {});
    std::ofstream out(fileName, std::ios::binary);
    out.write(reinterpret_cast<const char*>(file.data()), static_cast<std::streamsize>(file.size()));
    if (!out)
        throw std::runtime_error("Cannot write " + fileName);
}

}
