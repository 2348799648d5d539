#pragma once
#include "platform/Clock.h"
#include "platform/EventPump.h"
#include "platform/Fonts.h"
#include "platform/OfficeApplications.h"
#include "platform/Program.h"
#include "platform/RandomNumbers.h"
#include "platform/Screen.h"
#include <QObject>
#include <functional>
#include <random>

// The small services. Fonts, screen and event pump need a QGuiApplication.
namespace platform::linuxdesktop {

class CLinuxClock final : public IClock {
public:
    LocalTime Now() const override;
    std::int64_t SteadyMilliseconds() const override;
};

class CLinuxEventPump final : public IEventPump {
public:
    void RunPendingEvents() override;
    void WaitForEvents(std::int32_t milliseconds) override;
    void CallLater(std::int32_t milliseconds, std::function<void()> call) override;

private:
    QObject m_owner;  // Calls that are due go with it.
};

class CLinuxFonts final : public IFonts {
public:
    void EnumerateFamilies(const std::function<std::int32_t(std::string_view faceName)>& family) const override;
};

// There are none.
class CLinuxOffice final : public IOfficeApplications {
public:
    std::unique_ptr<IWord> RunningWord() override { return nullptr; }
    std::unique_ptr<IExcel> RunningExcel() override { return nullptr; }
};

// `lastWords` runs before the end.
class CLinuxProgram final : public IProgram {
public:
    explicit CLinuxProgram(std::function<void()> lastWords) : m_lastWords(std::move(lastWords)) {}
    [[noreturn]] void End() override;

private:
    std::function<void()> m_lastWords;
};

class CLinuxRandomNumbers final : public IRandomNumbers {
public:
    CLinuxRandomNumbers() : m_generator(std::random_device{}()) {}
    void Seed(double seed) override;
    double Next() override;

private:
    std::mt19937 m_generator;
};

// Units are device pixels of the main screen, the coordinates of the characters, times 15.
class CLinuxScreen final : public IScreen {
public:
    std::int32_t WidthInUnits() const override;
    std::int32_t HeightInUnits() const override;
    std::int32_t UnitsPerPixelX() const override { return UnitsPerPixel; }
    std::int32_t UnitsPerPixelY() const override { return UnitsPerPixel; }
    void SetPointer(Pointer pointer) override;

private:
    static constexpr std::int32_t UnitsPerPixel = 15;
    bool m_busy = false;
};

}
