#pragma once
#include <cstddef>
#include <functional>
#include <string>

namespace platform::text {

struct LineEnds {
    std::size_t crLf = 0;
    std::size_t lf = 0;
    std::size_t cr = 0;
    bool lastLineEnds = true;  // Also when there is no line.
};

// Cuts the bytes of a file, which come in pieces, into lines. CR LF, LF and a lone CR end a line.
class CLineCutter {
public:
    // Puts what comes next into `piece`, or nothing at the end. What it throws goes to whoever asked for a line.
    using Source = std::function<void(std::string& piece)>;
    explicit CLineCutter(Source source) : m_source(std::move(source)) {}

    // Appends the next line, without its end. False, and nothing appended, behind the last one. After the end of the file
    // there is nothing more, even if it grows later: a line that ended there must not go on.
    bool AppendLine(std::string& lines);

    const LineEnds& Ends() const { return m_ends; }  // Of the lines so far; of all behind the last one.

    bool IsUtf16();                        // Whether the file begins with the mark of UTF-16, whose bytes tell no lines.
    void ReadFrom(std::string wholeText);  // From here on the lines are those of a text; the source is asked no more.

private:
    bool Fill();
    bool HasMore();
    std::size_t EndOfLine();
    Source m_source;
    std::string m_piece;
    std::size_t m_at = 0;        // What comes next in the piece.
    std::size_t m_lineFeed = 0;  // The first line feed of the piece from m_at on.
    LineEnds m_ends;
    bool m_afterReturn = false;  // A line feed that comes next belongs to the carriage return before it.
    bool m_atEnd = false;
};

}
