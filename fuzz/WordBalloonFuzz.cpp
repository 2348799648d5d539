#include "Require.h"
#include "engine/balloon/WordBalloon.h"
#include "engine/hosts/headless/HeadlessHost.h"

// A balloon of any style word, at any place and with any text: its window lies inside the work area where it fits, its lines
// inside the text, and what it shows at the end is its last words.
namespace {

// Takes bytes from the front; zeros when none are left.
class CBytes {
public:
    CBytes(const std::uint8_t* data, std::size_t size) : m_data(data), m_size(size) {}
    std::int32_t Next(int bytes)
    {
        std::uint32_t value = 0;
        for (int i = 0; i < bytes; ++i)
            value = value << 8 | (m_at < m_size ? m_data[m_at++] : 0u);
        return static_cast<std::int32_t>(value);
    }
    std::int32_t Coordinate() { return static_cast<std::int16_t>(Next(2)); }
    std::string_view Rest() const { return {reinterpret_cast<const char*>(m_data) + m_at, m_size - m_at}; }

private:
    const std::uint8_t* m_data;
    std::size_t m_size;
    std::size_t m_at = 0;
};

void RequireStyle(std::int32_t word)
{
    const auto style = engine::ParseBalloonStyle(word);
    if (!style)
        return;
    Require(style->charsPerLine >= 8 && style->charsPerLine <= 255 && style->lines >= 1 && style->lines <= 128);
    Require(engine::BalloonStyleWord(*style) == static_cast<std::int32_t>(static_cast<std::uint32_t>(word) & 0xFFFF000Fu));
}

bool Holds(const engine::Rect& outer, const engine::Rect& inner)
{
    return inner.left >= outer.left && inner.top >= outer.top && inner.Right() <= outer.Right() &&
           inner.Bottom() <= outer.Bottom();
}

void RequirePicture(const engine::CHeadlessHost& host, const engine::BalloonPicture& picture)
{
    const engine::Rect window{0, 0, picture.place.width, picture.place.height};
    Require(Holds(window, picture.body) && Holds(picture.body, picture.textArea));
    Require(picture.tail && picture.tail->x >= 0 && picture.tail->x < window.width);
    Require(picture.tail->y >= 0 && picture.tail->y < window.height);
    const engine::Rect& area = host.desktop.workArea;
    if (area.width >= 640 && area.height >= 480)
        Require(Holds(area, picture.place));
    for (const engine::BalloonPicture::Line& line : picture.lines)
        Require(host.text.Width(picture.font, line.text) <= picture.textArea.width);
}

void Speak(engine::CHeadlessHost& host, engine::CWordBalloon& balloon, std::string_view text)
{
    const engine::SpokenText speech = engine::ParseSpeech(text);
    const std::size_t words = speech.words.size();
    balloon.Begin(speech.shown, speech.words);
    for (std::size_t count = 1; count <= words; count += 1 + words / 16) {
        balloon.ShowWords(count);
        host.Advance(20);
        if (!host.balloons.empty())
            RequirePicture(host, host.Balloon().picture);
    }
    balloon.ShowWords(words);
    balloon.Finish();
    host.RunUntilIdle();
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CBytes bytes(data, size);
    engine::CHeadlessHost host;
    const std::int32_t word = bytes.Next(4);
    RequireStyle(word);
    host.desktop.workArea = {bytes.Coordinate(), bytes.Coordinate(), bytes.Next(2), bytes.Next(2)};
    const engine::Rect character{bytes.Coordinate(), bytes.Coordinate(), bytes.Next(2), bytes.Next(2)};

    engine::CWordBalloon balloon(host, {}, /*enabled*/ true, [](bool) {});
    if (const auto style = engine::ParseBalloonStyle(word))
        balloon.SetStyle(*style);
    balloon.SetCharacterPlace(character);
    Speak(host, balloon, bytes.Rest());
    Speak(host, balloon, "Once more.");
    if (balloon.Style().autoHide)
        Require(!balloon.Visible());
    return 0;
}
