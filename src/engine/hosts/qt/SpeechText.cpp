#include "engine/hosts/qt/SpeechText.h"
#include "base/text/Text.h"
#include "base/text/Utf8.h"
#include <algorithm>

namespace engine {
namespace {

// Settings of the synthesiser inside a text: a control character, a change, and the letter of what changes.
constexpr std::string_view Louder = "\x01+35A\x01+18P\x01-15S";
constexpr std::string_view NormalAgain = "\x01-35A\x01-18P\x01+15S";

bool IsControl(char32_t character) { return character < 0x20 || (character >= 0x7F && character < 0xA0); }

// The synthesiser parts words also at the blank that is to hold them together.
bool IsBlank(char32_t character) { return text::IsWhiteSpace(character) || character == 0xA0; }

}

CSpeechText::CSpeechText(std::string_view text, bool emphasis) : m_emphasis(emphasis)
{
    m_spoken.reserve(text.size() + 64);
    while (!text.empty()) {
        const text::Character next = text::FirstCharacter(text);
        AddCharacter(next.IsValid() ? next.code : text::Replacement);
        text.remove_prefix(next.size);
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
    text::AppendCharacter(m_spoken, character);
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
