#pragma once
#include "engine/Host.h"
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

// The character engine's host on the Linux desktop: Qt windows, timers of the event loop, libespeak-ng, libpulse.
//
// Engine coordinates are device pixels of the whole desktop, as the X server counts them. Qt's own positions are divided
// by the screen's pixel ratio; the host converts places, sizes, mouse positions and work areas alike, so that a
// character of 128 pixels covers 128 pixels of the screen whatever the ratio is.
namespace engine {

// To be called before the QApplication is made: Qt ends the program when there is no display, and a Wayland client can
// neither place its windows nor keep them above, so the X server inside Wayland is asked for (said once on the standard
// error output) unless QT_QPA_PLATFORM names something else. Returns what to tell the user when the program cannot show
// anything; no value when all is well.
std::optional<std::string> PrepareQtPlatform();

struct QtHostOptions {
    // "auto": the sound server, and a clock that plays nothing while there is none. "clock": always that clock.
    // "wav:FILE": the clock, and FILE becomes a WAVE file of what would have been heard, the silence between left out.
    // Anything else is taken as "auto" and said on the standard error output, as is a FILE that cannot be written.
    std::string sound = "auto";
    // Null: what the user sets lasts until the end of the program; no other program is known of.
    std::shared_ptr<ISettingsFile> settingsFile;
    std::shared_ptr<ILoadedCharacters> loadedCharacters;
};

class IQtHost : public IHost {
public:
    // Begins to load the synthesiser and to connect to the sound server without waiting for either.
    virtual void WarmUp() = 0;
    // When the first sample of the stream begun last reached the ear, on the clock of Timers().NowMilliseconds(). No
    // value until a sample was heard.
    virtual std::optional<std::int64_t> FirstSampleHeardMilliseconds() const = 0;
};

// Needs a QApplication, which must outlive it. User-interface thread only. Windows and sound outputs made by the host
// must be gone before it.
std::unique_ptr<IQtHost> CreateQtHost(const QtHostOptions& options = {});

}
