#pragma once
#include "platform/MessageBoxes.h"

namespace platform::windowsdesktop {

// The system's own boxes, in UTF-16: they name files of the user's. A box of Yes and No cannot be closed.
class CWindowsMessageBoxes final : public IMessageBoxes {
public:
    BoxAnswer Show(const MessageBox& box) override;
};

}
