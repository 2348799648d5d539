#include "app/linux/window/Peer.h"
#include <QAbstractItemView>
#include <QComboBox>
#include <QEvent>
#include <QLineEdit>
#include <QListWidget>

namespace {
using ui::layout::Kind;

// Brings a native list up to date: entries are mostly added at the end, and a list of hundreds is not built anew for each.
template <class Widget> void MirrorEntries(Widget& native, const ui::CListControl& control, QString (*textAt)(Widget&, int))
{
    int same = 0;
    while (same < native.count() && same < control.Count() && textAt(native, same) == FromText(control.Item(same)))
        ++same;
    if (same < native.count()) {
        native.clear();
        same = 0;
    }
    QStringList added;
    for (int index = same; index < control.Count(); ++index)
        added.append(FromText(control.Item(index)));
    native.addItems(added);
}

QString ComboTextAt(QComboBox& native, int index) { return native.itemText(index); }

QString ListTextAt(QListWidget& native, int index) { return native.item(index)->text(); }

class CComboPeer final : public CPeerOf<ui::CComboBox, QComboBox> {
public:
    CComboPeer(ui::CComboBox& control, const ui::layout::Row& row, QComboBox* native) : CPeerOf(control, row, native)
    {
        if (row.kind == Kind::EditableCombo)
            MakeEditable();
        native->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        native->installEventFilter(this);
        QObject::connect(native, &QComboBox::activated, this, [this](int index) { m_control.SetIndex(index); });
    }

private:
    // A wheel that only passes over the box scrolls the page instead of choosing an entry.
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() != QEvent::Wheel || m_native.hasFocus())
            return false;
        event->ignore();
        return true;
    }
    void MakeEditable()
    {
        m_native.setEditable(true);
        m_native.setInsertPolicy(QComboBox::NoInsert);
        m_native.setCompleter(nullptr);  // What is typed is meant as it is typed.
        QObject::connect(m_native.lineEdit(), &QLineEdit::textEdited, this,
                         [this](const QString& text) { m_control.SetText(text.toStdString()); });
    }
    void MirrorOwn() override
    {
        MirrorEntries(m_native, m_control, ComboTextAt);
        if (m_native.currentIndex() != m_control.Index())
            m_native.setCurrentIndex(m_control.Index());
        if (QLineEdit* line = m_native.lineEdit()) {
            if (line->text() != FromText(m_control.Text()))
                line->setText(FromText(m_control.Text()));
            line->setAccessibleName(m_native.accessibleName());
        }
    }
};

class CListPeer final : public CPeerOf<ui::CListBox, QListWidget> {
public:
    CListPeer(ui::CListBox& control, const ui::layout::Row& row, QListWidget* native) : CPeerOf(control, row, native)
    {
        native->setUniformItemSizes(true);
        QObject::connect(native, &QListWidget::currentRowChanged, this,
                         [this](int index) { Report([&] { m_control.SetIndex(index); }); });
        QObject::connect(native, &QListWidget::itemDoubleClicked, this, [this] { m_control.DoubleClick(); });
    }

private:
    void MirrorOwn() override
    {
        MirrorEntries(m_native, m_control, ListTextAt);
        if (m_native.currentRow() != m_control.Index())
            m_native.setCurrentRow(m_control.Index());
    }
};
}

std::unique_ptr<CPeer> MakeListPeer(ui::CControl& control, const ui::layout::Row& row, QWidget& parent)
{
    switch (row.kind) {
    case Kind::EditableCombo:
    case Kind::DropDownList:
        return std::make_unique<CComboPeer>(dynamic_cast<ui::CComboBox&>(control), row, new QComboBox(&parent));
    case Kind::ListBox:
        return std::make_unique<CListPeer>(dynamic_cast<ui::CListBox&>(control), row, new QListWidget(&parent));
    default:
        return nullptr;
    }
}
