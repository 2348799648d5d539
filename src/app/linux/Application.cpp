#include "app/linux/Application.h"
#include "common/zbErrorTrap.h"
#include "platform/linux/DisplayLoss.h"
#include <QThread>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <unistd.h>
#include <utility>

namespace {
QtMessageHandler formerHandler = nullptr;

std::function<void()>& LastWords()
{
    static std::function<void()> lastWords;
    return lastWords;
}

[[noreturn]] void EndBecauseOf(const QString& message)
{
    std::fprintf(stderr, "Parlune cannot go on: %s\n", message.toUtf8().constData());
    ::_exit(1);
}

// Taken before it runs: what it does may fail at the display as well.
void SayLastWords()
{
    if (const auto lastWords = std::exchange(LastWords(), {}))
        lastWords();
}

bool IsOnInterfaceThread() { return qApp && QThread::currentThread() == qApp->thread(); }

// Qt ends the program by a crash when it cannot reach the display. One that goes away later it tells of in a warning, and
// then leaves from the middle of everything, past the end of the main procedure.
void HandleMessage(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (type == QtFatalMsg)
        EndBecauseOf(message);
    if (type != QtWarningMsg || !LastWords() || !IsOnInterfaceThread() || !platform::linuxdesktop::DisplayIsLost())
        return formerHandler(type, context, message);
    SayLastWords();
    EndBecauseOf(message);
}

const char* DescriptionOfCurrent()
{
    try {
        std::rethrow_exception(std::current_exception());
    } catch (const std::exception& failure) {
        static char text[512];
        std::snprintf(text, sizeof text, "%s", failure.what());
        return text;
    } catch (...) {
        return "unknown failure";
    }
}

void HandleTerminate()
{
    std::fprintf(stderr, "Parlune ends: %s\n", std::current_exception() ? DescriptionOfCurrent() : "no failure is known");
    std::abort();
}
}

bool CApplication::notify(QObject* receiver, QEvent* event)
{
    bool handled = false;
    const zbErrorTrap::CGuard guard("Parlune", "Event");
    guard([&] { handled = QApplication::notify(receiver, event); });
    return handled;
}

void ReportSuddenEnds()
{
    formerHandler = qInstallMessageHandler(HandleMessage);
    std::set_terminate(HandleTerminate);
}

CDisplayLoss::CDisplayLoss(std::function<void()> lastWords) { LastWords() = std::move(lastWords); }

CDisplayLoss::~CDisplayLoss() { LastWords() = {}; }
