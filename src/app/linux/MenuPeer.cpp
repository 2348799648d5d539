#include "app/linux/MenuPeer.h"
#include <algorithm>

namespace {
bool IsOffered(const ui::CMenuItem& item)
{
    return item.Visible() && !item.IsSeparator() && (item.onClick != nullptr || HasEntries(item));
}

QString CaptionOf(const ui::CMenuItem& item) { return QString::fromStdString(item.Caption()); }

void AddEntry(QMenu& native, ui::CMenuItem& item)
{
    if (HasEntries(item)) {
        QMenu* below = native.addMenu(CaptionOf(item));
        below->setEnabled(item.Enabled());
        MirrorMenu(*below, item);
        return;
    }
    QAction* action = native.addAction(CaptionOf(item));
    action->setEnabled(item.Enabled());
    action->setCheckable(item.Checked());
    action->setChecked(item.Checked());
    QObject::connect(action, &QAction::triggered, &native, [&item] { item.Click(); });
}

void Fill(QMenu& native, const ui::CMenuItem& menu)
{
    native.clear();
    bool separatorDue = false;
    for (ui::CMenuItem* item : menu.Items()) {
        separatorDue = separatorDue || (item->IsSeparator() && item->Visible());
        if (!IsOffered(*item))
            continue;
        if (separatorDue && !native.isEmpty())
            native.addSeparator();
        separatorDue = false;
        AddEntry(native, *item);
    }
}
}

bool HasEntries(const ui::CMenuItem& menu)
{
    return std::any_of(menu.Items().begin(), menu.Items().end(), [](const ui::CMenuItem* item) { return IsOffered(*item); });
}

void MirrorMenu(QMenu& native, ui::CMenuItem& menu)
{
    Fill(native, menu);
    QObject::connect(&native, &QMenu::aboutToShow, &native, [&native, &menu] { Fill(native, menu); });
}

void PopUpMenu(ui::CMenuItem& menu, const QPoint& at)
{
    QMenu native;
    Fill(native, menu);
    if (!native.isEmpty())
        native.exec(at);
}
