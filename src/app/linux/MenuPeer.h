#pragma once
#include "ui/controls/Controls.h"
#include <QMenu>

// Makes a native menu mirror a menu of the program: its visible entries, in their order, are filled in anew whenever it is
// about to open.
void MirrorMenu(QMenu& native, ui::CMenuItem& menu);

// Opens a menu at a place of the screen; returns when it has closed. Does nothing when no entry is visible.
void PopUpMenu(ui::CMenuItem& menu, const QPoint& at);
