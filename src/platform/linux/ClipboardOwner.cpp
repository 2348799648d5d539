#include "platform/linux/ClipboardOwner.h"
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QLibrary>
#include <QTimer>
#include <cstdlib>
#include <poll.h>
#include <string>
#include <utility>

namespace platform::linuxdesktop {
namespace {

// The calls of libxcb that are needed. Qt's xcb platform has the library loaded already, so nothing of it is linked or
// included here; the layouts are those of the X protocol.
struct XcbCookie {
    unsigned int sequence;
};
struct XcbAtomReply {
    std::uint8_t responseType, pad;
    std::uint16_t sequence;
    std::uint32_t length;
    std::uint32_t atom;
};
struct XcbScreens {
    const std::uint32_t* root;  // The first field of a screen.
    int remaining;
    int index;
};
struct XcbEvent {
    std::uint8_t responseType, pad;
    std::uint16_t sequence;
    std::uint32_t time;
    std::uint32_t requestor;  // Of a SelectionNotify.
};
constexpr std::uint8_t SelectionNotify = 31;
constexpr std::uint8_t SentBySomebody = 0x80;
constexpr std::uint16_t InputOnly = 2;

using Connection = xcb_connection_t*;
struct XcbCalls {
    Connection (*connect)(const char* display, int* screen) = nullptr;
    void (*disconnect)(Connection) = nullptr;
    int (*hasError)(Connection) = nullptr;
    int (*descriptor)(Connection) = nullptr;
    std::uint32_t (*generateId)(Connection) = nullptr;
    const void* (*setup)(Connection) = nullptr;
    XcbScreens (*screens)(const void* setup) = nullptr;
    XcbCookie (*createWindow)(Connection, std::uint8_t depth, std::uint32_t window, std::uint32_t parent, std::int16_t x,
                              std::int16_t y, std::uint16_t width, std::uint16_t height, std::uint16_t border,
                              std::uint16_t kind, std::uint32_t visual, std::uint32_t mask, const void* values) = nullptr;
    XcbCookie (*internAtom)(Connection, std::uint8_t onlyIfExists, std::uint16_t length, const char* name) = nullptr;
    XcbAtomReply* (*internAtomReply)(Connection, XcbCookie, void** error) = nullptr;
    XcbCookie (*convertSelection)(Connection, std::uint32_t requestor, std::uint32_t selection, std::uint32_t target,
                                  std::uint32_t property, std::uint32_t time) = nullptr;
    int (*flush)(Connection) = nullptr;
    XcbEvent* (*pollForEvent)(Connection) = nullptr;
    bool complete = true;
};

template <class Call> void Resolve(QLibrary& library, XcbCalls& calls, Call& call, const char* name)
{
    call = reinterpret_cast<Call>(library.resolve(name));
    calls.complete = calls.complete && call;
}

const XcbCalls& Xcb()
{
    static const XcbCalls found = [] {
        QLibrary library(QStringLiteral("xcb"), 1);
        XcbCalls calls;
        Resolve(library, calls, calls.connect, "xcb_connect");
        Resolve(library, calls, calls.disconnect, "xcb_disconnect");
        Resolve(library, calls, calls.hasError, "xcb_connection_has_error");
        Resolve(library, calls, calls.descriptor, "xcb_get_file_descriptor");
        Resolve(library, calls, calls.generateId, "xcb_generate_id");
        Resolve(library, calls, calls.setup, "xcb_get_setup");
        Resolve(library, calls, calls.screens, "xcb_setup_roots_iterator");
        Resolve(library, calls, calls.createWindow, "xcb_create_window");
        Resolve(library, calls, calls.internAtom, "xcb_intern_atom");
        Resolve(library, calls, calls.internAtomReply, "xcb_intern_atom_reply");
        Resolve(library, calls, calls.convertSelection, "xcb_convert_selection");
        Resolve(library, calls, calls.flush, "xcb_flush");
        Resolve(library, calls, calls.pollForEvent, "xcb_poll_for_event");
        return calls;
    }();
    return found;
}

std::uint32_t Atom(Connection connection, const std::string& name)
{
    const auto cookie = Xcb().internAtom(connection, 0, static_cast<std::uint16_t>(name.size()), name.c_str());
    XcbAtomReply* reply = Xcb().internAtomReply(connection, cookie, nullptr);
    const std::uint32_t atom = reply ? reply->atom : 0;
    std::free(reply);
    return atom;
}

std::uint32_t MakeWindow(Connection connection)
{
    const XcbScreens screens = Xcb().screens(Xcb().setup(connection));
    if (screens.remaining < 1)
        return 0;
    const std::uint32_t window = Xcb().generateId(connection);
    Xcb().createWindow(connection, 0, window, *screens.root, -1, -1, 1, 1, 0, InputOnly, 0, 0, nullptr);
    return window;
}

}

CClipboardOwner::CClipboardOwner()
{
    if (QGuiApplication::platformName() != QLatin1String("xcb") || !Xcb().complete)
        return;
    if (Connect()) {
        m_notifier = std::make_unique<QSocketNotifier>(Xcb().descriptor(m_connection), QSocketNotifier::Read);
        connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
            TakeAnswers();
            PassAnswer();
        });
        return;
    }
    Xcb().disconnect(m_connection);
    m_connection = nullptr;
}

CClipboardOwner::~CClipboardOwner()
{
    m_notifier.reset();
    if (m_connection)
        Xcb().disconnect(m_connection);
}

bool CClipboardOwner::Connect()
{
    m_connection = Xcb().connect(nullptr, nullptr);
    if (Xcb().hasError(m_connection) != 0)
        return false;
    m_clipboard = Atom(m_connection, "CLIPBOARD");
    m_targets = Atom(m_connection, "TARGETS");
    m_property = Atom(m_connection, "PARLUNE_CLIPBOARD");
    m_patient = MakeWindow(m_connection);
    m_waiting = MakeWindow(m_connection);
    return m_clipboard != 0 && m_targets != 0 && m_property != 0 && m_patient != 0 && m_waiting != 0;
}

// Where there is no owner, the X server itself answers.
void CClipboardOwner::Ask(std::uint32_t window)
{
    Xcb().convertSelection(m_connection, window, m_clipboard, m_targets, m_property, 0);
    Xcb().flush(m_connection);
}

bool CClipboardOwner::TakeAnswers()
{
    bool came = false;
    while (XcbEvent* event = Xcb().pollForEvent(m_connection)) {
        const bool answer = (event->responseType & ~SentBySomebody) == SelectionNotify;
        came = came || (answer && event->requestor == m_waiting);
        m_patientAnswered = m_patientAnswered || (answer && event->requestor == m_patient);
        std::free(event);
    }
    if (Xcb().hasError(m_connection) != 0)
        m_notifier->setEnabled(false);  // The server has gone; a closed socket is always ready.
    return came;
}

void CClipboardOwner::PassAnswer()
{
    if (!std::exchange(m_patientAnswered, false))
        return;
    if (const std::function<void()> answered = std::exchange(m_answered, nullptr))
        answered();
}

void CClipboardOwner::WhenItAnswers(std::function<void()> answered)
{
    m_answered = std::move(answered);
    m_patientAnswered = false;
    if (m_connection) {
        Ask(m_patient);
        return;
    }
    m_patientAnswered = true;
    QTimer::singleShot(0, this, &CClipboardOwner::PassAnswer);
}

bool CClipboardOwner::AnswersWithin(int milliseconds)
{
    if (!m_connection)
        return true;
    Ask(m_waiting);
    QElapsedTimer waited;
    waited.start();
    bool came = false;
    while (!(came = TakeAnswers()) && waited.elapsed() < milliseconds && Xcb().hasError(m_connection) == 0) {
        pollfd ready = {Xcb().descriptor(m_connection), POLLIN, 0};
        ::poll(&ready, 1, static_cast<int>(milliseconds - waited.elapsed()));
    }
    if (m_patientAnswered)
        QTimer::singleShot(0, this, &CClipboardOwner::PassAnswer);
    return came;
}

}
