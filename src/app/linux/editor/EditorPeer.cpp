#include "app/linux/editor/EditorPeer.h"
#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <QTextDocumentFragment>
#include <QVBoxLayout>

namespace {
QString ForWidget(const std::string& text) { return QString::fromStdString(text).replace("\r\n", "\n"); }
std::string ForBox(QString text) { return text.replace("\n", "\r\n").toStdString(); }
}

CEditorPeer::CEditorPeer(ui::CTextBox& box, QWidget* parent) : QWidget(parent), m_box(box), m_edit(new QPlainTextEdit(this))
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_edit);
    setFocusProxy(m_edit);
    m_edit->setAccessibleName("Text");
    connect(m_edit, &QPlainTextEdit::textChanged, this, [this] {
        if (!m_putting)
            m_box.Edited();
    });
    ui::CTextBox::Keeper keeper;
    keeper.put = [this](const std::string& text) {
        const QScopedValueRollback putting(m_putting, true);
        m_edit->setPlainText(ForWidget(text));
    };
    keeper.text = [this] { return ForBox(m_edit->toPlainText()); };
    keeper.isEmpty = [this] { return m_edit->document()->isEmpty(); };
    keeper.select = [](ui::TextSelection) {};
    keeper.selection = [this] {
        return ui::TextSelection{m_edit->textCursor().selectionStart(),
                                 m_edit->textCursor().selectionEnd() - m_edit->textCursor().selectionStart()};
    };
    keeper.selectedText = [this] { return ForBox(m_edit->textCursor().selection().toPlainText()); };
    m_box.SetKeeper(std::move(keeper));
    m_box.SetPeer([this] { Mirror(); });
    Mirror();
}

CEditorPeer::~CEditorPeer()
{
    m_box.SetPeer({});
    m_box.SetKeeper({});
}

void CEditorPeer::Mirror() { setEnabled(m_box.Enabled()); }
