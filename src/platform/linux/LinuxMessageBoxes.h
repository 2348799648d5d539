#pragma once
#include "platform/MessageBoxes.h"

namespace platform::linuxdesktop {

// Boxes whose text can be selected and copied. When the display has gone nobody can be asked: Ok, which lets the program go
// on, or No. Needs a QApplication.
class CLinuxMessageBoxes final : public IMessageBoxes {
public:
    BoxAnswer Show(const MessageBox& box) override;
};

}
