#include "platform/linux/LinuxKeptTexts.h"
#include "platform/linux/LinuxServices.h"
#include "platform/linux/WholeFile.h"
#include "platform/text/Encoding.h"

namespace platform::linuxdesktop {
namespace {
constexpr int CopyAfterMilliseconds = 30'000;

std::optional<std::string> ContentOf(const std::string& path)
{
    int error = 0;
    return ReadWhole(path, error);
}
}

CLinuxKeptTexts::CLinuxKeptTexts(const CLinuxFiles& files, std::string folder)
    : m_folder(std::move(folder)),
      m_texts(
          {.folder = m_folder,
           .now = [] { return CLinuxClock().Now(); },
           .bytesOfText = text::WithLf,
           .read = ContentOf,
           .bytesToWrite = [&files](const std::string& path, const std::string& text) { return files.Bytes(path, text); },
           .startTimer = [this] { m_timer.start(CopyAfterMilliseconds); }})
{
    m_timer.setSingleShot(true);
    QObject::connect(&m_timer, &QTimer::timeout, [this] { m_texts.TimeIsUp(); });
}

}
