#include "platform/linux/LinuxMessageBoxes.h"
#include "platform/linux/DisplayLoss.h"
#include "platform/text/Encoding.h"
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

namespace platform::linuxdesktop {
namespace {
QMessageBox::Icon IconOf(BoxIcon icon)
{
    switch (icon) {
    case BoxIcon::Critical:
        return QMessageBox::Critical;
    case BoxIcon::Question:
        return QMessageBox::Question;
    case BoxIcon::Exclamation:
        return QMessageBox::Warning;
    case BoxIcon::Information:
        break;
    }
    return QMessageBox::Information;
}

struct Buttons {
    QMessageBox::StandardButton first;
    QMessageBox::StandardButton second;  // The first again when there is only one.
};

Buttons ButtonsOf(BoxButtons buttons)
{
    switch (buttons) {
    case BoxButtons::OkCancel:
        return {QMessageBox::Ok, QMessageBox::Cancel};
    case BoxButtons::YesNo:
        return {QMessageBox::Yes, QMessageBox::No};
    case BoxButtons::Ok:
        break;
    }
    return {QMessageBox::Ok, QMessageBox::Ok};
}

BoxAnswer AnswerOf(int button)
{
    switch (button) {
    case QMessageBox::Yes:
        return BoxAnswer::Yes;
    case QMessageBox::No:
        return BoxAnswer::No;
    case QMessageBox::Cancel:
        return BoxAnswer::Cancel;
    default:
        return BoxAnswer::Ok;
    }
}

QWidget* VisibleActiveWindow()
{
    QWidget* window = QApplication::activeWindow();
    return window && window->isVisible() ? window : nullptr;
}
}

BoxAnswer CLinuxMessageBoxes::Show(const MessageBox& box)
{
    if (DisplayIsLost())
        return box.buttons == BoxButtons::YesNo ? BoxAnswer::No : BoxAnswer::Ok;
    const Buttons buttons = ButtonsOf(box.buttons);
    QMessageBox native(VisibleActiveWindow());
    native.setWindowTitle(QString::fromStdString(box.title));
    native.setIcon(IconOf(box.icon));
    native.setTextFormat(Qt::PlainText);
    native.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    native.setText(QString::fromStdString(text::WithLf(box.text)));
    native.setStandardButtons(buttons.first | buttons.second);
    native.setDefaultButton(box.secondButtonIsDefault ? buttons.second : buttons.first);
    native.setEscapeButton(buttons.second);
    // When the program is closing, no box opens any more: that is an answer by closing it.
    const int pressed = native.exec();
    return AnswerOf(native.standardButtons().testFlag(static_cast<QMessageBox::StandardButton>(pressed)) ? pressed
                                                                                                         : buttons.second);
}

}
