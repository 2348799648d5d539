#include "engine/hosts/qt/Compositor.h"
#include "engine/hosts/qt/SteadyClock.h"
#include <QGuiApplication>
#include <QLibrary>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>

namespace engine {
namespace {

// The few calls of libxcb that the question needs. Qt's xcb platform has the library loaded already, so nothing of it is
// linked or included here. The layouts are those of the X protocol's replies.
struct XcbCookie {
    unsigned int sequence;
};
struct XcbReply {
    std::uint8_t responseType;
    std::uint8_t pad;
    std::uint16_t sequence;
    std::uint32_t length;
    std::uint32_t value;  // The atom, or the window that owns the selection.
};

struct XcbCalls {
    using Connection = xcb_connection_t*;
    XcbCookie (*internAtom)(Connection, std::uint8_t onlyIfExists, std::uint16_t length, const char* name) = nullptr;
    XcbReply* (*internAtomReply)(Connection, XcbCookie, void** error) = nullptr;
    XcbCookie (*selectionOwner)(Connection, std::uint32_t selection) = nullptr;
    XcbReply* (*selectionOwnerReply)(Connection, XcbCookie, void** error) = nullptr;
    bool Complete() const { return internAtom && internAtomReply && selectionOwner && selectionOwnerReply; }
};

template <class Call> void Resolve(QLibrary& library, Call& call, const char* name)
{
    call = reinterpret_cast<Call>(library.resolve(name));
}

const XcbCalls& Xcb()
{
    static const XcbCalls calls = [] {
        QLibrary library(QStringLiteral("xcb"), 1);
        XcbCalls found;
        Resolve(library, found.internAtom, "xcb_intern_atom");
        Resolve(library, found.internAtomReply, "xcb_intern_atom_reply");
        Resolve(library, found.selectionOwner, "xcb_get_selection_owner");
        Resolve(library, found.selectionOwnerReply, "xcb_get_selection_owner_reply");
        return found;
    }();
    return calls;
}

xcb_connection_t* Connection()
{
    const auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

std::uint32_t TakeValue(XcbReply* reply)
{
    const std::uint32_t value = reply ? reply->value : 0;
    std::free(reply);
    return value;
}

bool AskServer()
{
    xcb_connection_t* connection = Connection();
    if (!connection || !Xcb().Complete())
        return true;
    static const std::string name = "_NET_WM_CM_S0";
    const auto length = static_cast<std::uint16_t>(name.size());
    static const std::uint32_t atom =
        TakeValue(Xcb().internAtomReply(connection, Xcb().internAtom(connection, 0, length, name.c_str()), nullptr));
    return TakeValue(Xcb().selectionOwnerReply(connection, Xcb().selectionOwner(connection, atom), nullptr)) != 0;
}

}

bool CompositorRuns(bool now)
{
    static std::optional<bool> answer;
    static std::int64_t askedAt = 0;
    const std::int64_t clock = SteadyMicroseconds();
    if (now || !answer || clock - askedAt > 1000000) {
        answer = AskServer();
        askedAt = clock;
    }
    return *answer;
}

}
