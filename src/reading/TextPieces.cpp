#include "reading/TextPieces.h"
#include "base/text/Text.h"
#include "reading/CParser.h"

namespace reading {
namespace {

constexpr std::size_t PieceLengthLimit = 100;
constexpr std::size_t LongestCharacter = 4;  // Bytes.
constexpr char SentenceEnd[] = ".  ";

// Every line break outside an empty line becomes a blank.
std::string WithLinesJoined(std::string_view text)
{
    std::string joined;
    joined.reserve(text.size());
    while (true) {
        const std::size_t lineEnd = text.find(text::LineBreak);
        joined.append(text.substr(0, lineEnd));
        if (lineEnd == std::string_view::npos)
            return joined;
        text.remove_prefix(lineEnd);
        const bool endsParagraph = text.starts_with(text::DoubleLineBreak);
        joined.append(endsParagraph ? text::DoubleLineBreak : " ");
        text.remove_prefix(endsParagraph ? 4 : 2);
    }
}

// Cuts one long text, with the three parsers that are needed on the way.
class CCutter {
public:
    CCutter(const std::function<void()>& yield, const std::function<void(const std::string&)>& speak)
        : m_yield(yield), m_speak(speak)
    {
    }

    void CutText(std::string_view text)
    {
        m_paragraphs.ParseIt(text, text::DoubleLineBreak);
        for (std::int32_t index = 1; index <= m_paragraphs.FieldCount(); ++index) {
            m_yield();
            SpeakOrCut(m_paragraphs.Field(index), &CCutter::CutParagraph);
        }
    }

private:
    void CutParagraph(const std::string& paragraph)
    {
        m_lines.ParseIt(paragraph, text::LineBreak);
        for (std::int32_t index = 1; index <= m_lines.FieldCount(); ++index)
            SpeakOrCut(m_lines.Field(index), &CCutter::CutLine);
    }

    void CutLine(const std::string& line)
    {
        m_yield();
        m_sentences.ParseIt(line, SentenceEnd);
        for (std::int32_t index = 1; index <= m_sentences.FieldCount(); ++index) {
            m_yield();
            m_speak(m_sentences.Field(index) + ".");
        }
    }

    void SpeakOrCut(const std::string& part, void (CCutter::*cut)(const std::string&))
    {
        if (IsShort(part))
            m_speak(part);
        else
            (this->*cut)(part);
    }

    const std::function<void()>& m_yield;
    const std::function<void(const std::string&)>& m_speak;
    CParser m_paragraphs;
    CParser m_lines;
    CParser m_sentences;
};

}

bool IsShort(std::string_view text)
{
    if (text.size() > PieceLengthLimit * LongestCharacter)
        return false;
    return text.size() <= PieceLengthLimit || text::Length(text) <= PieceLengthLimit;
}

void CutIntoPieces(std::string_view text, const std::function<void()>& yield,
                   const std::function<void(const std::string& piece)>& speak)
{
    CCutter cutter(yield, speak);
    if (text.find(text::DoubleLineBreak) == std::string_view::npos)
        cutter.CutText(text);
    else
        cutter.CutText(WithLinesJoined(text));
}

}
