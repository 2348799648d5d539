#include "platform/text/FileForm.h"
#include "platform/text/FileLines.h"
#include <algorithm>
#include <optional>

namespace platform::text {
namespace {
constexpr std::string_view CrLf = "\r\n";

std::string_view WithoutEndOfText(std::string_view text)
{
    while (text.ends_with(CrLf))
        text.remove_suffix(CrLf.size());
    return text;
}

// Whether the text is what the editor shows of a file that holds `content`.
bool IsAsOpened(std::string_view text, std::string_view content)
{
    const bool endsAsOpened = text.empty() || (text.ends_with(CrLf) && !text.ends_with("\r\n\r\n"));
    return endsAsOpened && WithoutEndOfText(text) == WithoutEndOfText(content);
}

// Lines one after another, each with its end, the last one's only where the form says so.
class CComposition {
public:
    explicit CComposition(const FileForm& form) : m_form(form), m_usualEnd(*Encoded(form.lineEnd, form.encoding))
    {
        if (form.mark)
            m_bytes = MarkOf(form.encoding);
    }
    // An end of no bytes stands for the usual one.
    void Add(std::string_view content, std::string_view end)
    {
        m_bytes.append(m_end).append(content);
        m_end = end.empty() ? std::string_view(m_usualEnd) : end;
    }
    std::string Finished()
    {
        if (m_form.lastLineEnds)
            m_bytes.append(m_end);
        return std::move(m_bytes);
    }

private:
    const FileForm& m_form;
    std::string m_usualEnd;
    std::string m_bytes;
    std::string_view m_end;
};

std::string_view WithoutMark(std::string_view bytes, Encoding encoding)
{
    const std::string_view mark = MarkOf(encoding);
    return bytes.starts_with(mark) ? bytes.substr(mark.size()) : bytes;
}

bool Same(const FileLine& former, const FileLine& wanted, Encoding encoding)
{
    if (encoding == Encoding::Utf8 && former.content == wanted.content)
        return true;
    return Decoded(std::string(former.content), encoding) == wanted.content;
}

bool IsWide(Encoding encoding) { return encoding == Encoding::Utf16Little || encoding == Encoding::Utf16Big; }

// `text` ends in a line end. Lines that are the same at the start and at the end keep their bytes. A changed line keeps the
// end of the line in whose place it stands. Nothing when the encoding cannot hold the text.
std::optional<std::string> Composed(std::string_view text, const FileForm& form, std::string_view former)
{
    CComposition bytes(form);
    CFileLines was(WithoutMark(former, form.encoding), form.encoding);
    CFileLines wanted(text, Encoding::Utf8);
    for (; !was.Empty() && !wanted.Empty() && Same(was.Front(), wanted.Front(), form.encoding);
         was.DropFront(), wanted.DropFront())
        bytes.Add(was.Front().content, was.Front().end);
    CFileLines tail = was.None();
    for (; !was.Empty() && !wanted.Empty() && Same(was.Back(), wanted.Back(), form.encoding);
         was.DropBack(), wanted.DropBack())
        tail.TakeBefore(was.Back());
    for (; !wanted.Empty(); wanted.DropFront()) {
        const auto content = Encoded(wanted.Front().content, form.encoding);
        if (!content)
            return std::nullopt;
        bytes.Add(*content, was.Empty() ? std::string_view() : was.Front().end);
        if (!was.Empty())
            was.DropFront();
    }
    for (; !tail.Empty(); tail.DropFront())
        bytes.Add(tail.Front().content, tail.Front().end);
    return bytes.Finished();
}

bool ReadsAs(const std::string& bytes, const std::string& text, const FileForm& form)
{
    const std::string read = TextOfBytes(bytes);
    return form.lastLineEnds ? read == text : read + "\r\n" == text;
}

// Bytes with the mark of another encoding are another text from their start on.
std::string_view InItsEncoding(std::string_view former, Encoding encoding)
{
    const bool wide = former.starts_with("\xFF\xFE") || former.starts_with("\xFE\xFF");
    return wide == IsWide(encoding) && (!wide || former.starts_with(MarkOf(encoding))) ? former : std::string_view();
}
}

FileForm FormOf(Encoding encoding, bool mark, const LineEnds& ends)
{
    FileForm form{.encoding = encoding, .mark = mark, .lineEnd = "\n", .lastLineEnds = ends.lastLineEnds};
    if (ends.crLf > ends.lf && ends.crLf >= ends.cr)
        form.lineEnd = CrLf;
    else if (ends.cr > ends.lf)
        form.lineEnd = "\r";
    return form;
}

std::string BytesOfEdited(const std::string& text, FileForm& form, const std::string& former)
{
    if (IsAsOpened(text, TextOfBytes(former)))
        return former;
    const std::string lines = text.ends_with(CrLf) ? text : text + std::string(CrLf);
    auto bytes = Composed(lines, form, InItsEncoding(former, form.encoding));
    if (bytes && ReadsAs(*bytes, lines, form))
        return std::move(*bytes);
    form.encoding = Encoding::Utf8;
    form.mark = form.mark || lines.starts_with(MarkOf(Encoding::Utf8));
    return *Composed(lines, form, "");
}

std::string BytesOfNew(const std::string& text) { return WithLf(text) + "\n"; }

}
