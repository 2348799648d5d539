#include "engine/speech/TagScanner.h"
#include "base/text/Case.h"
#include <algorithm>

namespace engine {

namespace {

constexpr std::size_t BareNameLength = 3;
constexpr std::size_t NameLimit = 16;
constexpr std::size_t ParameterLimit = 2;
constexpr std::size_t NumberLimit = 64;
constexpr std::size_t StringLimit = 2048;

bool IsLetter(char character) { return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z'); }

bool IsPlain(char character)
{
    return IsLetter(character) || (character >= '0' && character <= '9') || character == '-' || character == '+' ||
           character == '.' || character == ',' || character == '_';
}

class CTagScan {
public:
    CTagScan(std::string_view text, std::size_t at) : m_text(text), m_start(at), m_at(at + 1) {}

    std::optional<SpeechTag> Run()
    {
        SpeechTag tag;
        if (!TakeName(tag))
            return std::nullopt;
        while (Peek() == '=')
            if (tag.parameters.size() == ParameterLimit || !TakeParameter(tag))
                return std::nullopt;
        if (Peek() != '\\' || (tag.parameters.empty() && !CanStandBare(tag.name)))
            return std::nullopt;
        tag.length = m_at + 1 - m_start;
        return tag;
    }

private:
    char Peek() const { return m_at < m_text.size() ? m_text[m_at] : '\0'; }

    // An unknown name without parameter may as well be a folder of a path: it must not follow a letter or a colon.
    bool CanStandBare(const std::string& name) const
    {
        if (name == "EMP" || name == "LST" || name == "RST")
            return true;
        const char before = m_start == 0 ? ' ' : m_text[m_start - 1];
        return name.size() == BareNameLength && (before == ' ' || before == '\\' || before == '|');
    }

    bool TakeName(SpeechTag& tag)
    {
        const std::size_t begin = m_at;
        while (m_at - begin <= NameLimit && IsLetter(Peek()))
            ++m_at;
        tag.name = text::Upper(m_text.substr(begin, m_at - begin));
        return !tag.name.empty() && tag.name.size() <= NameLimit;
    }

    bool TakeParameter(SpeechTag& tag)
    {
        ++m_at;  // The equals sign.
        return Peek() == '"' ? TakeString(tag) : TakePlain(tag);
    }

    bool TakePlain(SpeechTag& tag)
    {
        const std::size_t begin = m_at;
        while (m_at - begin <= NumberLimit && IsPlain(Peek()))
            ++m_at;
        tag.parameters.emplace_back(m_text.substr(begin, m_at - begin));
        return m_at > begin && m_at - begin <= NumberLimit;
    }

    // Where the string that begins at the present place ends: at a quote after which the tag can go on or end. Quotes
    // elsewhere are part of the string. A lone backslash ends the search.
    std::optional<std::size_t> StringEnd() const
    {
        const std::size_t limit = std::min(m_text.size(), m_at + StringLimit);
        for (std::size_t at = m_at; at + 1 < limit; ++at) {
            const char next = m_text[at + 1];
            if (m_text[at] == '"' && (next == '\\' || next == '='))
                return at;
            if (m_text[at] == '\\' && next != '\\')
                return std::nullopt;
            at += m_text[at] == '\\' ? 1u : 0u;
        }
        return std::nullopt;
    }

    bool TakeString(SpeechTag& tag)
    {
        ++m_at;
        const std::optional<std::size_t> end = StringEnd();
        if (!end)
            return false;
        std::string value;
        for (; m_at < *end; ++m_at) {
            m_at += m_text[m_at] == '\\' ? 1u : 0u;
            value += m_text[m_at];
        }
        ++m_at;
        tag.parameters.push_back(std::move(value));
        return true;
    }

    std::string_view m_text;
    std::size_t m_start;
    std::size_t m_at;
};

}

std::optional<SpeechTag> ScanTag(std::string_view text, std::size_t at) { return CTagScan(text, at).Run(); }

}
