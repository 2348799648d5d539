#pragma once
#include "platform/Clipboard.h"
#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <memory>

namespace platform::linuxdesktop {

class CClipboardOwner;

// The desktop's clipboard; the selection made with the mouse is no part of it. A program that owns the clipboard and does
// not answer counts as having nothing in it. Needs a QGuiApplication.
class CLinuxClipboard final : public IClipboard {
public:
    CLinuxClipboard();
    ~CLinuxClipboard() override;
    bool HasText() const override;
    std::string Text() const override;
    bool IsSecret() const override;
    bool CanWatch() const override;
    void Watch(std::function<void()> changed) override;
    void StopWatching() override;

private:
    bool Answers() const;
    CClipboardOwner& Owner() const;
    void NoteChange();
    void AskOwner();
    void Tell();

    mutable std::unique_ptr<CClipboardOwner> m_owner;  // From the first need on.
    mutable QElapsedTimer m_silentSince;               // When the owner did not answer last.
    std::unique_ptr<QObject> m_watcher;                // While it lives, changes are noted.
    QTimer m_soon;
    QElapsedTimer m_sinceTold;
    std::function<void()> m_changed;
};

}
