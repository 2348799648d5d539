#include "platform/linux/LinuxLineReader.h"
#include "platform/linux/WholeFile.h"
#include "platform/text/Encoding.h"
#include <fcntl.h>
#include <sys/stat.h>

namespace platform::linuxdesktop {
namespace {
constexpr std::size_t PieceSize = 1 << 20;

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
CLinuxLineReader::CLinuxLineReader(std::string path, std::function<void(const text::FileForm& form)> readAs)
    : m_path(std::move(path)),
      m_file(m_path.find('\0') == std::string::npos ? ::open(m_path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)
                                                    : (errno = EINVAL, -1)),
      m_lines([this](std::string& piece) { ReadPiece(piece); }), m_readAs(std::move(readAs))
{
    if (!m_file.Open())
        throw FailureOfError(errno, m_path);
    RequireRegularFile(m_file.Get(), m_path);
    if (m_lines.IsUtf16())
        ReadAtOnce();
}

void CLinuxLineReader::ReadAtOnce()
{
    int error = 0;
    auto bytes = ReadWhole(m_path, error);
    if (!bytes)
        throw FailureOfError(error, m_path);
    m_readAtOnce = text::EncodingOf(*bytes);
    m_lines.ReadFrom(text::Decoded(std::move(*bytes), *m_readAtOnce));
}

void CLinuxLineReader::Tell(text::Encoding encoding, bool mark) const
{
    if (m_readAs)
        m_readAs(text::FormOf(encoding, mark, m_lines.Ends()));
}

void CLinuxLineReader::ReadPiece(std::string& piece) const
{
    piece.resize(PieceSize);
    ssize_t got = 0;
    do
        got = ::read(m_file.Get(), piece.data(), piece.size());
    while (got < 0 && errno == EINTR);
    if (got < 0)
        throw FailureOfError(errno, m_path);
    piece.resize(static_cast<std::size_t>(got));
}

std::string CLinuxLineReader::Text(std::string lines) const
{
    const text::Encoding encoding = m_readAtOnce ? *m_readAtOnce : text::EncodingOf(lines);
    Tell(encoding, m_readAtOnce || text::HasMark(lines));
    return m_readAtOnce ? std::move(lines) : text::WithCrLf(text::Decoded(std::move(lines), encoding));
}

}
