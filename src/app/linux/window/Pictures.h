#pragma once
#include <QIcon>
#include <QPainter>
#include <string_view>

// Draws the program's own pictures.
namespace pictures {

// As large as fits, in the middle of a place; `ink` for the parts that follow the text's colour. Draws nothing when there is
// no picture of that name.
void Draw(QPainter& painter, std::string_view name, const QRectF& place, const QColor& ink);

// An icon that is drawn anew for every size and follows the desktop's colours.
QIcon IconOf(std::string_view name);

// The program's icon, in every usual size.
QIcon ProgramIcon();

}
