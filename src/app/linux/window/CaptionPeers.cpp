#include "app/linux/window/Clickable.h"
#include "app/linux/window/Peer.h"
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

namespace {
using ui::layout::Kind;

class CFramePeer final : public CPeerOf<ui::CFrame, QWidget> {
public:
    using CPeerOf::CPeerOf;

private:
    void MirrorOwn() override
    {
        if (auto* box = qobject_cast<QGroupBox*>(&m_native))
            box->setTitle(FromText(m_control.Caption()));
    }
};

QWidget* MakeFrame(const ui::CControl& control, QWidget& parent)
{
    if (control.Caption().empty())
        return new QWidget(&parent);
    return new QGroupBox(&parent);
}

class CCheckBoxPeer final : public CPeerOf<ui::CCheckBox, QCheckBox> {
public:
    CCheckBoxPeer(ui::CCheckBox& control, const ui::layout::Row& row, QCheckBox* native) : CPeerOf(control, row, native)
    {
        QObject::connect(native, &QCheckBox::clicked, this, [this](bool ticked) { m_control.SetValue(ticked ? 1 : 0); });
    }

private:
    void MirrorOwn() override
    {
        m_native.setText(FromText(m_control.Caption()));
        m_native.setChecked(m_control.Ticked());
    }
};

class CButtonPeer final : public CPeerOf<ui::CButton, QPushButton> {
public:
    CButtonPeer(ui::CButton& control, const ui::layout::Row& row, QPushButton* native) : CPeerOf(control, row, native)
    {
        QObject::connect(native, &QPushButton::clicked, this, [this] { m_control.Click(); });
    }

private:
    void MirrorOwn() override { m_native.setText(FromText(m_control.Caption())); }
};

QColor ColorOf(const ui::TextStyle& style)
{
    return {style.color & 0xFF, (style.color >> 8) & 0xFF, (style.color >> 16) & 0xFF};
}

QFont FontOf(const ui::TextStyle& style, QFont font)
{
    if (!style.fontName.empty())
        font.setFamily(FromText(style.fontName));
    if (style.fontSize > 0)
        font.setPointSizeF(static_cast<qreal>(style.fontSize));
    font.setBold(style.bold);
    font.setItalic(style.italic);
    font.setUnderline(style.underline);
    font.setStrikeOut(style.strikeThrough);
    return font;
}

class CLabelPeer final : public CPeerOf<ui::CLabel, QLabel> {
public:
    CLabelPeer(ui::CLabel& control, const ui::layout::Row& row, QLabel* native) : CPeerOf(control, row, native)
    {
        native->setTextFormat(Qt::PlainText);
        native->setWordWrap(row.kind == Kind::WrappedLabel);
        if (row.kind == Kind::Preview)
            DrawAsPreview();
    }

private:
    void DrawAsPreview()
    {
        m_native.setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
        m_native.setAlignment(Qt::AlignCenter);
        m_native.setBackgroundRole(QPalette::Base);
        m_native.setForegroundRole(QPalette::Text);
        m_native.setAutoFillBackground(true);
    }
    void MirrorOwn() override
    {
        m_native.setText(FromText(m_control.Caption()));
        if (!(m_control.Style() == ui::TextStyle{}))
            m_native.setFont(FontOf(m_control.Style(), m_native.font()));
    }
};

class CLinkPeer final : public CPeerOf<ui::CLabel, CLink> {
public:
    CLinkPeer(ui::CLabel& control, const ui::layout::Row& row, CLink* native) : CPeerOf(control, row, native)
    {
        native->onClick = [this] { m_control.Click(); };
    }

private:
    void MirrorOwn() override
    {
        m_native.SetText(FromText(m_control.Caption()));
        m_native.SetColor(m_control.Style().color == 0 ? QColor() : ColorOf(m_control.Style()));
    }
};

class CPicturePeer final : public CPeerOf<ui::CPicture, CPictureView> {
public:
    CPicturePeer(ui::CPicture& control, const ui::layout::Row& row, CPictureView* native) : CPeerOf(control, row, native)
    {
        native->Show(row.picture);
        if (control.onClick)
            native->MakeClickable([this] { m_control.Click(); });
    }
};

template <class Peer, class Widget, class Control>
std::unique_ptr<CPeer> Make(ui::CControl& control, const ui::layout::Row& row, Widget* native)
{
    return std::make_unique<Peer>(dynamic_cast<Control&>(control), row, native);
}
}

std::unique_ptr<CPeer> MakeCaptionPeer(ui::CControl& control, const ui::layout::Row& row, QWidget& parent)
{
    switch (row.kind) {
    case Kind::Frame:
        return Make<CFramePeer, QWidget, ui::CFrame>(control, row, MakeFrame(control, parent));
    case Kind::CheckBox:
        return Make<CCheckBoxPeer, QCheckBox, ui::CCheckBox>(control, row, new QCheckBox(&parent));
    case Kind::Button:
        return Make<CButtonPeer, QPushButton, ui::CButton>(control, row, new QPushButton(&parent));
    case Kind::Label:
    case Kind::WrappedLabel:
    case Kind::Preview:
        return Make<CLabelPeer, QLabel, ui::CLabel>(control, row, new QLabel(&parent));
    case Kind::Link:
        return Make<CLinkPeer, CLink, ui::CLabel>(control, row, new CLink(parent));
    case Kind::Picture:
        return Make<CPicturePeer, CPictureView, ui::CPicture>(control, row, new CPictureView(parent));
    default:
        return nullptr;
    }
}
