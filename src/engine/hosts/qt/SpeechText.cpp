#include "engine/hosts/qt/SpeechText.h"
#include <algorithm>

namespace engine {
namespace {

// Settings of the synthesiser inside a text: a control character, a change, and the letter of what changes.
constexpr std::string_view Louder = "\x01+35A\x01+18P\x01-15S";
constexpr std::string_view NormalAgain = "\x01-35A\x01-18P\x01+15S";

constexpr char32_t Replacement = 0xFFFD;

struct Decoded {
    char32_t character = Replacement;
    std::size_t bytes = 1;
};

unsigned ByteAt(std::string_view text, std::size_t index) { return static_cast<unsigned char>(text[index]); }

std::size_t SequenceLength(unsigned lead)
{
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead < 0xE0)
        return 2;
    if (lead >= 0xE0 && lead < 0xF0)
        return 3;
    return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

bool Allowed(char32_t character, std::size_t bytes)
{
    const bool shortest = bytes < 3 || (bytes == 3 ? character >= 0x800 : character >= 0x10000);
    return shortest && character <= 0x10FFFF && !(character >= 0xD800 && character < 0xE000);
}

// The character at the start of a text that is not empty; the replacement character, one byte long, for what is no UTF-8.
Decoded DecodeFirst(std::string_view text)
{
    const unsigned lead = ByteAt(text, 0);
    const std::size_t bytes = SequenceLength(lead);
    if (bytes == 1)
        return {lead, 1};
    if (bytes == 0 || text.size() < bytes)
        return {};
    char32_t character = lead & (0xFFU >> (bytes + 1));
    for (std::size_t index = 1; index < bytes; ++index) {
        if ((ByteAt(text, index) & 0xC0U) != 0x80)
            return {};
        character = (character << 6) | (ByteAt(text, index) & 0x3FU);
    }
    return Allowed(character, bytes) ? Decoded{character, bytes} : Decoded{};
}

void AppendUtf8(std::string& text, char32_t character)
{
    const auto tail = [&](int shift) { text += static_cast<char>(0x80 | ((character >> shift) & 0x3F)); };
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0 | (character >> 6));
        tail(0);
    } else if (character < 0x10000) {
        text += static_cast<char>(0xE0 | (character >> 12));
        tail(6);
        tail(0);
    } else {
        text += static_cast<char>(0xF0 | (character >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

bool IsControl(char32_t character) { return character < 0x20 || (character >= 0x7F && character < 0xA0); }

bool IsBlank(char32_t character)
{
    return character == ' ' || character == '\t' || character == '\n' || character == '\r' || character == 0xA0 ||
           (character >= 0x2000 && character <= 0x200A) || character == 0x2028 || character == 0x2029 || character == 0x3000;
}

}

CSpeechText::CSpeechText(std::string_view text, bool emphasis) : m_emphasis(emphasis)
{
    m_spoken.reserve(text.size() + 64);
    while (!text.empty()) {
        const Decoded next = DecodeFirst(text);
        AddCharacter(next.character);
        text.remove_prefix(next.bytes);
    }
    if (m_inWord)
        EndWord();
}

void CSpeechText::AddCharacter(char32_t character)
{
    const bool lineEnd = character == '\n' || character == '\r';
    if (IsControl(character) && !lineEnd)
        character = ' ';
    if (IsBlank(character) == m_inWord)
        m_inWord ? EndWord() : BeginWord();
    AppendUtf8(m_spoken, character);
    ++m_spokenCount;
    ++m_originalCount;
}

void CSpeechText::BeginWord()
{
    m_inWord = true;
    const std::size_t first = m_afterEmphasis.value_or(m_spokenCount);
    m_afterEmphasis.reset();
    if (m_emphasis && m_words.empty())
        AddCommand(Louder);
    m_words.push_back({first, m_originalCount});
}

// The command that ends the emphasis needs a blank before it. The synthesiser takes it for the start of the next word.
void CSpeechText::EndWord()
{
    m_inWord = false;
    if (!m_emphasis || m_words.size() != 1)
        return;
    AddCommand(" ");
    m_afterEmphasis = m_spokenCount;
    AddCommand(NormalAgain);
}

void CSpeechText::AddCommand(std::string_view command)
{
    m_spoken += command;
    m_spokenCount += command.size();
}

std::optional<std::size_t> CSpeechText::WordAt(int position)
{
    const std::size_t index = position > 0 ? static_cast<std::size_t>(position) - 1 : 0;
    const auto after = std::upper_bound(m_words.begin(), m_words.end(), index,
                                        [](std::size_t value, const Word& word) { return value < word.spoken; });
    const auto number = static_cast<std::size_t>(after - m_words.begin());  // One more than that word's own.
    if (number == 0 || number - 1 < m_nextWord)
        return std::nullopt;
    m_nextWord = number;
    return m_words[number - 1].original;
}

}
