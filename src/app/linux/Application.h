#pragma once
#include <QApplication>
#include <functional>

// The application object. A failure that escapes an event handler is reported to the user like every unexpected failure,
// and the program goes on.
class CApplication final : public QApplication {
public:
    using QApplication::QApplication;
    bool notify(QObject* receiver, QEvent* event) override;
};

// Makes the ends of the program that nothing else reports readable: no display, and a failure that nobody caught.
void ReportSuddenEnds();

// While it lives, `lastWords` runs when the display goes away, before the program ends with 1: the last moment to save
// something. Windows must be left alone then. One object at a time.
class CDisplayLoss {
public:
    explicit CDisplayLoss(std::function<void()> lastWords);
    ~CDisplayLoss();
    CDisplayLoss(const CDisplayLoss&) = delete;
    CDisplayLoss& operator=(const CDisplayLoss&) = delete;
};
