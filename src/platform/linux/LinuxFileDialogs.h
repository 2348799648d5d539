#pragma once
#include "platform/FileDialogs.h"
#include <QStringList>

namespace platform::linuxdesktop {

// The desktop's file dialogs; cancelled when the display has gone. Needs a QApplication.
class CLinuxFileDialogs final : public IFileDialogs {
public:
    std::string Ask(const FileDialog& dialog) override;
};

// The filter pairs as the toolkit writes them: "Text Documents (*.txt)". A pattern "*.*" means every file.
QStringList NameFilters(const std::string& pairs);

}
