#include "engine/speech/TagScanner.h"
#include "engine/base/Utf8.h"

namespace engine {

namespace {

constexpr std::size_t BareNameLength = 3;
constexpr std::size_t NameLimit = 16;
constexpr std::size_t ParameterLimit = 2;
constexpr std::size_t NumberLimit = 64;
constexpr std::size_t StringLimit = 4096;

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
        if (Peek() != '\\' || (tag.parameters.empty() && tag.name.size() != BareNameLength))
            return std::nullopt;
        tag.length = m_at + 1 - m_start;
        return tag;
    }

private:
    char Peek(std::size_t ahead = 0) const { return m_at + ahead < m_text.size() ? m_text[m_at + ahead] : '\0'; }

    bool TakeName(SpeechTag& tag)
    {
        const std::size_t begin = m_at;
        while (m_at - begin <= NameLimit && IsLetter(Peek()))
            ++m_at;
        tag.name = UpperCase(m_text.substr(begin, m_at - begin));
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

    // A quote inside the string ends it only where the tag can go on or end.
    bool AtClosingQuote() const { return Peek() == '"' && (Peek(1) == '\\' || Peek(1) == '='); }

    bool TakeString(SpeechTag& tag)
    {
        std::string value;
        ++m_at;
        while (!AtClosingQuote()) {
            if (m_at >= m_text.size() || value.size() >= StringLimit)
                return false;
            if (Peek() == '\\' && Peek(1) != '\\')
                return false;
            m_at += Peek() == '\\' ? 1u : 0u;
            value += m_text[m_at++];
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
