#pragma once
#include "ui/controls/Controls.h"
#include <QMenu>

// Makes a native menu mirror a menu of the program: its entries are filled in anew whenever it is about to open. Entries
// that are invisible or have nothing to do yet are left out, and separators that separate nothing.
void MirrorMenu(QMenu& native, ui::CMenuItem& menu);

// Whether the menu has anything to offer.
bool HasEntries(const ui::CMenuItem& menu);

// Opens a menu at a place of the screen; returns when it has closed. Does nothing when it has nothing to offer.
void PopUpMenu(ui::CMenuItem& menu, const QPoint& at);
