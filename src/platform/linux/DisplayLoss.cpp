#include "platform/linux/DisplayLoss.h"
#include <QGuiApplication>
#include <QLibrary>

namespace platform::linuxdesktop {
namespace {
using HasError = int (*)(xcb_connection_t*);

// Qt's xcb platform has the library loaded already.
HasError HasErrorCall()
{
    static const auto call =
        reinterpret_cast<HasError>(QLibrary(QStringLiteral("xcb"), 1).resolve("xcb_connection_has_error"));
    return call;
}

xcb_connection_t* Connection()
{
    const auto* x11 = qApp ? qApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    return x11 ? x11->connection() : nullptr;
}
}

bool DisplayIsLost()
{
    xcb_connection_t* connection = Connection();
    return connection && HasErrorCall() && HasErrorCall()(connection) != 0;
}

}
