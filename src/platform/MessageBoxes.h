#pragma once
#include <string>

namespace platform {

enum class BoxButtons { Ok, OkCancel, YesNo };
enum class BoxIcon { Critical, Question, Exclamation, Information };
enum class BoxAnswer { Ok, Cancel, Yes, No };

// A modal message box. `text` has lines separated by "\r\n".
struct MessageBox {
    std::string text;
    std::string title;
    BoxButtons buttons = BoxButtons::Ok;
    BoxIcon icon = BoxIcon::Exclamation;
    bool secondButtonIsDefault = false;
};

class IMessageBoxes {
public:
    virtual ~IMessageBoxes() = default;
    // Returns when the user has answered. Closing the box answers Cancel, No or Ok, the first that it offers.
    virtual BoxAnswer Show(const MessageBox& box) = 0;
};

}
