#include "app/linux/editor/EditorPeer.h"
#include "app/linux/window/Peer.h"
#include "settings/bOptions.h"
#include <QFocusEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTimer>

namespace {
using ui::layout::Kind;

// Native texts end their lines by "\n" and count in UTF-16.
std::string ToText(QString native) { return native.replace("\n", "\r\n").toStdString(); }

QString ToNative(const std::string& text) { return FromText(text).replace("\r\n", "\n"); }

// Characters of the program's text that a part of a native one makes.
std::int32_t CountIn(const QString& native, qsizetype first, qsizetype end)
{
    return static_cast<std::int32_t>(native.mid(first, end - first).replace("\n", "\r\n").toUcs4().size());
}

// The index in a native text of a place counted in characters of the program's text.
qsizetype IndexOf(const QString& native, std::int32_t characters)
{
    qsizetype index = 0;
    for (std::int32_t left = characters; left > 0 && index < native.size(); ++index) {
        left -= native[index] == u'\n' ? 2 : 1;
        if (native[index].isHighSurrogate() && index + 1 < native.size())
            ++index;
    }
    return index;
}

// What both kinds of boxes do: text and selection both ways, and the focus that comes.
template <class Widget> class CTextPeer : public CPeerOf<ui::CTextBox, Widget> {
public:
    CTextPeer(ui::CTextBox& control, const ui::layout::Row& row, Widget* native)
        : CPeerOf<ui::CTextBox, Widget>(control, row, native)
    {
        native->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::FocusIn)
            TellEntered(static_cast<QFocusEvent*>(event)->reason());
        return false;
    }
    // A click puts the caret where it was, but only after the focus has come.
    void TellEntered(Qt::FocusReason reason)
    {
        if (reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason)
            return;
        QTimer::singleShot(0, this, [this] { this->m_control.Enter(); });
    }
    virtual QString Text() const = 0;
    virtual void SetText(const QString& text) = 0;
    virtual std::pair<qsizetype, qsizetype> Selection() const = 0;  // From, to.
    virtual void SetSelection(qsizetype from, qsizetype to) = 0;

    void ReportText()
    {
        this->Report([this] {
            this->m_control.SetText(ToText(Text()));
            ReportSelection();
        });
    }
    void ReportSelection()
    {
        this->Report([this] {
            const auto [from, to] = Selection();
            const std::int32_t start = CountIn(Text(), 0, from), length = CountIn(Text(), from, to);
            if (this->m_control.SelectionStart() != start || this->m_control.SelectionLength() != length)
                this->m_control.Select(start, length);
        });
    }
    void MirrorOwn() override
    {
        if (Text() != ToNative(this->m_control.Text()))
            SetText(ToNative(this->m_control.Text()));
        const qsizetype from = IndexOf(Text(), this->m_control.SelectionStart());
        const qsizetype to = IndexOf(Text(), this->m_control.SelectionStart() + this->m_control.SelectionLength());
        if (Selection() != std::pair(from, to))
            SetSelection(from, to);
    }
};

class CLinePeer final : public CTextPeer<QLineEdit> {
public:
    CLinePeer(ui::CTextBox& control, const ui::layout::Row& row, QLineEdit* native) : CTextPeer(control, row, native)
    {
        QObject::connect(native, &QLineEdit::textEdited, this, [this] { ReportText(); });
        QObject::connect(native, &QLineEdit::selectionChanged, this, [this] { ReportSelection(); });
        QObject::connect(native, &QLineEdit::cursorPositionChanged, this, [this] { ReportSelection(); });
        QObject::connect(native, &QLineEdit::editingFinished, this, [this] { m_control.Commit(); });
    }

private:
    QString Text() const override { return m_native.text(); }
    void SetText(const QString& text) override { m_native.setText(text); }
    std::pair<qsizetype, qsizetype> Selection() const override
    {
        if (m_native.hasSelectedText())
            return {m_native.selectionStart(), m_native.selectionEnd()};
        return {m_native.cursorPosition(), m_native.cursorPosition()};
    }
    void SetSelection(qsizetype from, qsizetype to) override
    {
        m_native.setSelection(static_cast<int>(from), static_cast<int>(to - from));
    }
};

class CAreaPeer final : public CTextPeer<QPlainTextEdit> {
public:
    CAreaPeer(ui::CTextBox& control, const ui::layout::Row& row, QPlainTextEdit* native) : CTextPeer(control, row, native)
    {
        native->setTabChangesFocus(true);
        QObject::connect(native, &QPlainTextEdit::textChanged, this, [this] { ReportText(); });
        QObject::connect(native, &QPlainTextEdit::selectionChanged, this, [this] { ReportSelection(); });
        QObject::connect(native, &QPlainTextEdit::cursorPositionChanged, this, [this] { ReportSelection(); });
    }

private:
    QString Text() const override { return m_native.toPlainText(); }
    void SetText(const QString& text) override { m_native.setPlainText(text); }
    std::pair<qsizetype, qsizetype> Selection() const override
    {
        const QTextCursor cursor = m_native.textCursor();
        return {cursor.selectionStart(), cursor.selectionEnd()};
    }
    void SetSelection(qsizetype from, qsizetype to) override
    {
        QTextCursor cursor = m_native.textCursor();
        cursor.setPosition(static_cast<int>(from));
        cursor.setPosition(static_cast<int>(to), QTextCursor::KeepAnchor);
        m_native.setTextCursor(cursor);
    }
};

// The editor mirrors itself.
class CEditorHolder final : public CPeerOf<ui::CTextBox, CEditorPeer> {
public:
    using CPeerOf::CPeerOf;
};

std::unique_ptr<CPeer> MakeEditor(ui::CTextBox& box, const ui::layout::Row& row, QWidget& parent)
{
    auto* editor = new CEditorPeer(box, &parent);
    editor->onFileDropped = [](const std::string& path) { bOptions::OpenFile(path); };
    return std::make_unique<CEditorHolder>(box, row, editor);
}
}

std::unique_ptr<CPeer> MakeTextPeer(ui::CControl& control, const ui::layout::Row& row, QWidget& parent)
{
    switch (row.kind) {
    case Kind::TextBox:
        return std::make_unique<CLinePeer>(dynamic_cast<ui::CTextBox&>(control), row, new QLineEdit(&parent));
    case Kind::TextArea:
        return std::make_unique<CAreaPeer>(dynamic_cast<ui::CTextBox&>(control), row, new QPlainTextEdit(&parent));
    case Kind::Editor:
        return MakeEditor(dynamic_cast<ui::CTextBox&>(control), row, parent);
    default:
        return nullptr;
    }
}
