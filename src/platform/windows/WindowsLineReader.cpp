#include "platform/windows/WindowsLineReader.h"
#include "platform/windows/FileEncoding.h"
#include "platform/windows/SystemPaths.h"
#include "platform/windows/WholeFile.h"
#include <algorithm>
#include <string_view>

namespace platform::windowsdesktop {
namespace {
constexpr DWORD PieceSize = 1 << 20;
constexpr DWORD Everybody = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

bool IsUtf16(std::string_view bytes) { return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF"); }

CHandle OpenForReading(const std::wstring& path)
{
    CHandle file(
        CreateFileW(path.c_str(), GENERIC_READ, Everybody, nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (!file.Open())
        throw FailureOfError(GetLastError());
    if (GetFileType(file.Get()) != FILE_TYPE_DISK)
        throw failure::PathFileAccess();
    return file;
}
}

CWindowsLineReader::CWindowsLineReader(const std::string& path) : m_file(OpenForReading(AbsolutePath(path)))
{
    if (!Fill() || !IsUtf16(m_piece))
        return;
    std::uint32_t error = 0;
    auto bytes = ReadWhole(AbsolutePath(path), error);
    if (!bytes)
        throw FailureOfError(error);
    m_piece = TextOfFile(std::move(*bytes));
    m_lineFeed = m_piece.find('\n');
    m_readAtOnce = m_atEnd = true;
}

// The next piece of the file; false at its end, even if it grows later: a line that ended there must not go on.
bool CWindowsLineReader::Fill()
{
    if (m_atEnd)
        return false;
    m_at = 0;
    m_piece.resize(PieceSize);
    DWORD got = 0;
    if (ReadFile(m_file.Get(), m_piece.data(), PieceSize, &got, nullptr) == 0)
        throw FailureOfError(GetLastError());
    m_piece.resize(got);
    m_lineFeed = m_piece.find('\n');
    m_atEnd = got == 0;
    return !m_atEnd;
}

bool CWindowsLineReader::HasMore()
{
    while (m_at < m_piece.size() || Fill()) {
        if (!std::exchange(m_afterReturn, false) || m_piece[m_at] != '\n')
            return true;
        ++m_at;
    }
    return false;
}

// Where the line that begins at m_at ends in the piece; the piece's size when it goes on in the next one.
std::size_t CWindowsLineReader::EndOfLine()
{
    if (m_lineFeed < m_at)
        m_lineFeed = m_piece.find('\n', m_at);
    const std::size_t end = std::min(m_lineFeed, m_piece.size());
    const std::size_t carriageReturn = std::string_view(m_piece).substr(m_at, end - m_at).find('\r');
    return carriageReturn == std::string_view::npos ? end : m_at + carriageReturn;
}

bool CWindowsLineReader::AppendLine(std::string& lines)
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

std::string CWindowsLineReader::Text(std::string lines) const
{
    return m_readAtOnce ? std::move(lines) : TextOfFile(std::move(lines));
}

}
