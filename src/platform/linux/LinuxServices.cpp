#include "platform/linux/LinuxServices.h"
#include <QCoreApplication>
#include <QCursor>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QScreen>
#include <QTimer>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <ctime>

namespace platform::linuxdesktop {
namespace {
std::int32_t PixelsOfMainScreen(int (QSize::*side)() const noexcept)
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? static_cast<std::int32_t>(std::lround((screen->size().*side)() * screen->devicePixelRatio())) : 0;
}
}

LocalTime CLinuxClock::Now() const
{
    const std::time_t now = std::time(nullptr);
    std::tm local = {};
    ::localtime_r(&now, &local);
    return {.year = local.tm_year + 1900,
            .month = local.tm_mon + 1,
            .day = local.tm_mday,
            .hour = local.tm_hour,
            .minute = local.tm_min,
            .second = local.tm_sec,
            .weekday = local.tm_wday};
}

std::int64_t CLinuxClock::SteadyMilliseconds() const
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

void CLinuxEventPump::RunPendingEvents() { QCoreApplication::processEvents(QEventLoop::AllEvents); }

void CLinuxEventPump::WaitForEvents(std::int32_t milliseconds)
{
    if (milliseconds <= 0)
        return RunPendingEvents();
    QTimer timeIsUp;
    timeIsUp.setTimerType(Qt::PreciseTimer);
    timeIsUp.setSingleShot(true);
    timeIsUp.start(milliseconds);
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

void CLinuxEventPump::CallLater(std::int32_t milliseconds, std::function<void()> call)
{
    QTimer::singleShot(milliseconds, &m_owner, std::move(call));
}

void CLinuxFonts::EnumerateFamilies(const std::function<std::int32_t(std::string_view faceName)>& family) const
{
    for (const QString& name : QFontDatabase::families()) {
        if (QFontDatabase::isPrivateFamily(name))
            continue;
        const std::string faceName = name.toStdString() + '\0';
        if (family(faceName) == 0)
            return;
    }
}

void CLinuxProgram::End()
{
    if (m_lastWords)
        m_lastWords();
    std::_Exit(0);
}

void CLinuxRandomNumbers::Seed(double seed)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &seed, sizeof bits);
    m_generator.seed(static_cast<std::uint32_t>(bits ^ (bits >> 32)));
}

double CLinuxRandomNumbers::Next() { return static_cast<double>(m_generator()) / 4294967296.0; }

std::int32_t CLinuxScreen::WidthInUnits() const { return PixelsOfMainScreen(&QSize::width) * UnitsPerPixel; }

std::int32_t CLinuxScreen::HeightInUnits() const { return PixelsOfMainScreen(&QSize::height) * UnitsPerPixel; }

void CLinuxScreen::SetPointer(Pointer pointer)
{
    const bool busy = pointer == Pointer::Hourglass;
    if (busy == m_busy)
        return;
    m_busy = busy;
    if (busy)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

}
