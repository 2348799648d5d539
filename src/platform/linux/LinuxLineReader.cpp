#include "platform/linux/LinuxLineReader.h"
#include "platform/linux/WholeFile.h"
#include "platform/text/Encoding.h"
#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>

namespace platform::linuxdesktop {
namespace {
constexpr std::size_t PieceSize = 1 << 20;

bool IsUtf16(std::string_view bytes) { return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF"); }

void RequireRegularFile(int descriptor, const std::string& path)
{
    struct stat status = {};
    if (::fstat(descriptor, &status) != 0)
        throw FailureOfError(errno, path);
    if (!S_ISREG(status.st_mode))
        throw failure::PathFileAccess();
}
}

// Opened without waiting, for a pipe would wait for its writer.
CLinuxLineReader::CLinuxLineReader(std::string path)
    : m_path(std::move(path)),
      m_file(m_path.find('\0') == std::string::npos ? ::open(m_path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)
                                                    : (errno = EINVAL, -1))
{
    if (!m_file.Open())
        throw FailureOfError(errno, m_path);
    RequireRegularFile(m_file.Get(), m_path);
    if (!Fill() || !IsUtf16(m_piece))
        return;
    int error = 0;
    auto bytes = ReadWhole(m_path, error);
    if (!bytes)
        throw FailureOfError(error, m_path);
    m_piece = text::TextOfBytes(std::move(*bytes));
    m_lineFeed = m_piece.find('\n');
    m_readAtOnce = m_atEnd = true;
}

// The next piece of the file; false at its end, even if it grows later: a line that ended there must not go on.
bool CLinuxLineReader::Fill()
{
    if (m_atEnd)
        return false;
    m_at = 0;
    m_piece.resize(PieceSize);
    ssize_t got = 0;
    do
        got = ::read(m_file.Get(), m_piece.data(), m_piece.size());
    while (got < 0 && errno == EINTR);
    if (got < 0)
        throw FailureOfError(errno, m_path);
    m_piece.resize(static_cast<std::size_t>(got));
    m_lineFeed = m_piece.find('\n');
    m_atEnd = got == 0;
    return !m_atEnd;
}

bool CLinuxLineReader::HasMore()
{
    while (m_at < m_piece.size() || Fill()) {
        if (!std::exchange(m_afterReturn, false) || m_piece[m_at] != '\n')
            return true;
        ++m_at;
    }
    return false;
}

// Where the line that begins at m_at ends in the piece; the piece's size when it goes on in the next one.
std::size_t CLinuxLineReader::EndOfLine()
{
    if (m_lineFeed < m_at)
        m_lineFeed = m_piece.find('\n', m_at);
    const std::size_t end = std::min(m_lineFeed, m_piece.size());
    const std::size_t carriageReturn = std::string_view(m_piece).substr(m_at, end - m_at).find('\r');
    return carriageReturn == std::string_view::npos ? end : m_at + carriageReturn;
}

bool CLinuxLineReader::AppendLine(std::string& lines)
{
    bool begun = false;
    while (HasMore()) {
        const std::size_t end = EndOfLine();
        lines.append(m_piece, m_at, end - m_at);
        begun = true;
        m_at = end;
        if (end < m_piece.size()) {
            m_afterReturn = m_piece[m_at++] == '\r';
            break;
        }
    }
    return begun;
}

std::string CLinuxLineReader::Text(std::string lines) const
{
    return m_readAtOnce ? std::move(lines) : text::TextOfBytes(std::move(lines));
}

}
