#pragma once
#include "platform/Clipboard.h"
#include <QObject>
#include <memory>

namespace platform::linuxdesktop {

// The desktop's clipboard; the selection made with the mouse is no part of it. Needs a QGuiApplication.
class CLinuxClipboard final : public IClipboard {
public:
    bool HasText() const override;
    std::string Text() const override;
    bool IsSecret() const override;
    bool CanWatch() const override;
    void Watch(std::function<void()> changed) override;
    void StopWatching() override { m_watcher.reset(); }

private:
    std::unique_ptr<QObject> m_watcher;  // While it lives, changes are reported.
};

}
