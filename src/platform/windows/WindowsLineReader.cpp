#include "platform/windows/WindowsLineReader.h"
#include "platform/windows/FileEncoding.h"
#include "platform/windows/SystemPaths.h"
#include "platform/windows/WholeFile.h"
#include <utility>

namespace platform::windowsdesktop {
namespace {
constexpr DWORD PieceSize = 1 << 20;
constexpr DWORD Everybody = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

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

CWindowsLineReader::CWindowsLineReader(const std::string& path)
    : m_file(OpenForReading(AbsolutePath(path))), m_lines([this](std::string& piece) { ReadPiece(piece); })
{
    if (!m_lines.IsUtf16())
        return;
    std::uint32_t error = 0;
    auto bytes = ReadWhole(AbsolutePath(path), error);
    if (!bytes)
        throw FailureOfError(error);
    m_lines.ReadFrom(TextOfFile(std::move(*bytes)));
    m_readAtOnce = true;
}

void CWindowsLineReader::ReadPiece(std::string& piece) const
{
    piece.resize(PieceSize);
    DWORD got = 0;
    if (ReadFile(m_file.Get(), piece.data(), PieceSize, &got, nullptr) == 0)
        throw FailureOfError(GetLastError());
    piece.resize(got);
}

std::string CWindowsLineReader::Text(std::string lines) const
{
    return m_readAtOnce ? std::move(lines) : TextOfFile(std::move(lines));
}

}
