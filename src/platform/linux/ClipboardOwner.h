#pragma once
#include <QObject>
#include <QSocketNotifier>
#include <cstdint>
#include <functional>
#include <memory>

struct xcb_connection_t;

namespace platform::linuxdesktop {

// Asks the program that owns the X clipboard whether it answers at all. The toolkit waits many seconds for one that is
// frozen and shows the user a frozen window meanwhile; here nobody waits longer than they want to. Where there is no X
// server, every owner counts as answering.
class CClipboardOwner final : public QObject {
    Q_OBJECT
public:
    CClipboardOwner();
    ~CClipboardOwner() override;

    // Calls `answered` once, from the event loop, as soon as the owner answers; perhaps never. A second call replaces the
    // first.
    void WhenItAnswers(std::function<void()> answered);
    void Forget() { m_answered = nullptr; }
    bool AnswersWithin(int milliseconds);

private:
    bool Connect();
    void Ask(std::uint32_t window);
    bool TakeAnswers();  // True when one came to the window that waits.
    void PassAnswer();

    xcb_connection_t* m_connection = nullptr;
    std::uint32_t m_patient = 0;  // The window whose answer may come at any time.
    std::uint32_t m_waiting = 0;  // The window that somebody waits for.
    std::uint32_t m_clipboard = 0, m_targets = 0, m_property = 0;
    std::unique_ptr<QSocketNotifier> m_notifier;
    bool m_patientAnswered = false;
    std::function<void()> m_answered;
};

}
