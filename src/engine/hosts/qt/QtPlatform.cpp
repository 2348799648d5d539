#include "engine/hosts/qt/QtHost.h"
#include <QByteArray>
#include <cstdio>

namespace engine {
namespace {

bool IsSet(const char* variable) { return !qgetenv(variable).isEmpty(); }

// Platforms of Qt that need no display: what a test or the user has asked for by name.
bool NeedsDisplay(const QByteArray& platform) { return platform.isEmpty() || platform.startsWith("xcb"); }

}

std::optional<std::string> PrepareQtPlatform()
{
    const QByteArray chosen = qgetenv("QT_QPA_PLATFORM");
    if (!NeedsDisplay(chosen))
        return std::nullopt;
    if (!IsSet("DISPLAY"))
        return "Parlune needs an X display, but DISPLAY is not set. Under Wayland, switch XWayland on.";
    if (chosen.isEmpty() && IsSet("WAYLAND_DISPLAY"))
        std::fputs("Parlune: Wayland session: showing the character through XWayland.\n", stderr);
    if (chosen.isEmpty())
        qputenv("QT_QPA_PLATFORM", "xcb");
    return std::nullopt;
}

}
