#include "app/linux/MenuPeer.h"
#include <algorithm>

namespace {
bool OffersSomething(const ui::CMenuItem& menu)
{
    return std::any_of(menu.Items().begin(), menu.Items().end(),
                       [](const ui::CMenuItem* item) { return item->Visible() && !item->IsSeparator(); });
}

QString CaptionOf(const ui::CMenuItem& item) { return QString::fromStdString(item.Caption()); }

void AddCommand(QMenu& native, ui::CMenuItem& item)
{
    QAction* action = native.addAction(CaptionOf(item));
    action->setEnabled(item.Enabled());
    action->setCheckable(item.Checked());
    action->setChecked(item.Checked());
    QObject::connect(action, &QAction::triggered, &native, [&item] { item.Click(); });
}

void AddEntry(QMenu& native, ui::CMenuItem& item)
{
    if (item.IsSeparator()) {
        native.addSeparator();
    } else if (item.Items().empty()) {
        AddCommand(native, item);
    } else {
        QMenu* below = native.addMenu(CaptionOf(item));
        below->setEnabled(item.Enabled() && OffersSomething(item));  // Nothing to open is greyed.
        MirrorMenu(*below, item);
    }
}

void Fill(QMenu& native, const ui::CMenuItem& menu)
{
    native.clear();
    qDeleteAll(native.findChildren<QMenu*>(Qt::FindDirectChildrenOnly));
    for (ui::CMenuItem* item : menu.Items())
        if (item->Visible())
            AddEntry(native, *item);
}
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
