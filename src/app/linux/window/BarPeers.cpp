#include "app/linux/window/Peer.h"
#include "app/linux/window/Pictures.h"
#include <QAction>
#include <QLabel>
#include <QStatusBar>
#include <QTabWidget>
#include <QToolBar>
#include <algorithm>

namespace {
using ui::layout::Kind;

constexpr int TextIndent = 6;
constexpr int LeastIcon = 22;

QString FromView(std::string_view text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }

class CTabPeer final : public CPeerOf<ui::CTabStrip, QTabWidget> {
public:
    CTabPeer(ui::CTabStrip& control, const ui::layout::Row& row, QTabWidget* native) : CPeerOf(control, row, native)
    {
        for (const std::string& caption : control.Tabs())
            native->addTab(new QWidget, FromText(caption));
        QObject::connect(native, &QTabWidget::currentChanged, this,
                         [this](int tab) { Report([&] { m_control.Select(tab); }); });
    }

private:
    void MirrorOwn() override { m_native.setCurrentIndex(m_control.Selected()); }
};

class CToolBarPeer final : public CPeerOf<ui::CToolBar, QToolBar> {
public:
    CToolBarPeer(ui::CToolBar& control, const ui::layout::Row& row, QToolBar* native) : CPeerOf(control, row, native)
    {
        const int icon = std::max(LeastIcon, native->fontMetrics().height() * 3 / 2);
        native->setIconSize(QSize(icon, icon));
        for (const ui::layout::ToolButton& button : ui::layout::ToolBarButtons())
            AddButton(button);
    }

private:
    void AddButton(const ui::layout::ToolButton& button)
    {
        QAction* action = m_native.addAction(pictures::IconOf(button.picture), FromView(button.toolTip));
        action->setToolTip(FromView(button.toolTip));
        QObject::connect(action, &QAction::triggered, this, [this, key = std::string(button.key)] { m_control.Click(key); });
    }
};

class CStatusPeer final : public CPeerOf<ui::CStatusBar, QStatusBar> {
public:
    CStatusPeer(ui::CStatusBar& control, const ui::layout::Row& row, QStatusBar* native) : CPeerOf(control, row, native)
    {
        native->addWidget(m_text, 1);
        m_text->setTextFormat(Qt::PlainText);
        m_text->setIndent(TextIndent);
    }

private:
    void MirrorOwn() override
    {
        m_text->setText(FromText(m_control.Text()));
        m_text->setAccessibleName(m_control.Text().empty() ? m_native.accessibleName() : FromText(m_control.Text()));
    }
    QLabel* m_text = new QLabel;
};
}

std::unique_ptr<CPeer> MakeBarPeer(ui::CControl& control, const ui::layout::Row& row, QWidget& parent)
{
    switch (row.kind) {
    case Kind::TabStrip:
        return std::make_unique<CTabPeer>(dynamic_cast<ui::CTabStrip&>(control), row, new QTabWidget(&parent));
    case Kind::ToolBar:
        return std::make_unique<CToolBarPeer>(dynamic_cast<ui::CToolBar&>(control), row, new QToolBar(&parent));
    case Kind::StatusBar:
        return std::make_unique<CStatusPeer>(dynamic_cast<ui::CStatusBar&>(control), row, new QStatusBar(&parent));
    default:
        return nullptr;
    }
}
