#pragma once
#include "platform/MessageBoxes.h"

namespace platform::linuxdesktop {

// Boxes whose text can be selected and copied. Needs a QApplication.
class CLinuxMessageBoxes final : public IMessageBoxes {
public:
    BoxAnswer Show(const MessageBox& box) override;
};

}
