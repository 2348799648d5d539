#pragma once
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace engine {

// A text as the synthesiser is given it, and the way back from its positions to the words of the original.
class CSpeechText {
public:
    // Bytes that are no UTF-8 become one replacement character each, which is not spoken. Control characters become
    // blanks: the synthesiser would end at a NUL and take others for commands. With `emphasis` the first word is spoken
    // louder and higher.
    CSpeechText(std::string_view text, bool emphasis);

    const std::string& Spoken() const { return m_spoken; }
    bool Blank() const { return m_words.empty(); }

    // The word that the synthesiser announces at a position of the spoken text, counted in characters from 1: the index,
    // in characters of the original, of the word between blanks that holds it. No value for a word announced before, for
    // an earlier one, and for the made-up positions inside numbers and symbols.
    std::optional<std::size_t> WordAt(int position);

private:
    struct Word {
        std::size_t spoken = 0;    // Index of its first character in the spoken text.
        std::size_t original = 0;  // The same in the original.
    };
    void AddCharacter(char32_t character);
    void BeginWord();
    void EndWord();
    void AddCommand(std::string_view command);

    std::string m_spoken;
    std::vector<Word> m_words;
    std::size_t m_spokenCount = 0;  // Characters.
    std::size_t m_originalCount = 0;
    std::size_t m_nextWord = 0;                  // The first one not announced yet.
    std::optional<std::size_t> m_afterEmphasis;  // Where the command that ends it stands, until the next word.
    bool m_inWord = false;
    bool m_emphasis = false;
};

}
