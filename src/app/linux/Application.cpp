#include "app/linux/Application.h"
#include "common/zbErrorTrap.h"
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <unistd.h>

namespace {
QtMessageHandler formerHandler = nullptr;

// Qt ends the program by a crash when it cannot reach the display.
void HandleMessage(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (type != QtFatalMsg)
        return formerHandler(type, context, message);
    std::fprintf(stderr, "Parlune cannot go on: %s\n", message.toUtf8().constData());
    ::_exit(1);
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
