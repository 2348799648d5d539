#pragma once
#include "platform/kept/KeptTexts.h"
#include "platform/linux/LinuxFiles.h"
#include "platform/linux/LinuxKeptFolder.h"
#include <QTimer>

namespace platform::linuxdesktop {

// The safety net in a folder of its own. Needs an event loop.
class CLinuxKeptTexts {
public:
    CLinuxKeptTexts(const CLinuxFiles& files, std::string folder);  // Borrowed.
    IKeptTexts& Texts() { return m_texts; }

private:
    CLinuxKeptFolder m_folder;
    QTimer m_timer;
    kept::CKeptTexts m_texts;
};

}
