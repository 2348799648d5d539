#pragma once
#include <QApplication>

// The application object. A failure that escapes an event handler is reported to the user like every unexpected failure,
// and the program goes on.
class CApplication final : public QApplication {
public:
    using QApplication::QApplication;
    bool notify(QObject* receiver, QEvent* event) override;
};

// Makes the ends of the program that nothing else reports readable: no display, and a failure that nobody caught.
void ReportSuddenEnds();
