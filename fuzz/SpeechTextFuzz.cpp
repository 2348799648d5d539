#include "Require.h"
#include "base/text/Text.h"
#include "base/text/Utf8.h"
#include "engine/hosts/qt/SpeechText.h"
#include <algorithm>

// What the synthesiser is given of a text of any bytes: valid UTF-8, and no commands to it but our own. The words that it
// announces lie inside the original and go forward. The first byte decides about the emphasis.
namespace {

void RequireSpoken(const std::string& spoken, bool emphasis)
{
    for (std::size_t at = 0; at < spoken.size();) {
        const text::Character character = text::CharacterAt(spoken, at);
        Require(character.IsValid());
        at += character.size;
    }
    Require(spoken.find('\0') == std::string::npos);
    const auto commands = std::count(spoken.begin(), spoken.end(), '\x01');
    Require(commands == 0 || (emphasis && commands == 6));
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const bool emphasis = data[0] % 2 != 0;
    const std::string_view text = TextOf(data + 1, size - 1);
    engine::CSpeechText speech(text, emphasis);
    RequireSpoken(speech.Spoken(), emphasis);
    std::optional<std::size_t> before;
    const int step = 1 + data[0] / 2;
    for (int position = 1 - step; position <= static_cast<int>(speech.Spoken().size()) + step; position += step) {
        const auto word = speech.WordAt(position);
        Require(!word || (*word < text::Length(text) && (!before || *word > *before)));
        before = word ? word : before;
    }
    Require(!speech.Blank() || !before);
    return 0;
}
