#include "app/linux/editor/EditorPeer.h"
#include "app/linux/editor/EditorView.h"
#include "platform/text/Encoding.h"
#include <QVBoxLayout>

CEditorPeer::CEditorPeer(ui::CTextBox& box, QWidget* parent) : QWidget(parent), m_box(box), m_view(new CEditorView(this))
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_view);
    setFocusProxy(m_view);
    m_view->setAccessibleName("Text");
    m_view->onEdited = [this] { m_box.Edited(); };
    m_view->onFileDropped = [this](const std::string& path) {
        if (onFileDropped)
            onFileDropped(path);
    };
    m_box.SetKeeper(Keeper());
    m_box.SetPeer([this] { Mirror(); });
    Mirror();
}

CEditorPeer::~CEditorPeer()
{
    m_box.SetPeer({});
    m_box.SetKeeper({});
}

ui::CTextBox::Keeper CEditorPeer::Keeper()
{
    ui::CTextBox::Keeper keeper;
    keeper.put = [this](std::string text) { m_view->SetText(platform::text::WithCrLf(std::move(text))); };
    keeper.text = [this] { return m_view->Text().Buffer().Text(0, m_view->Text().Buffer().Size()); };
    keeper.isEmpty = [this] { return m_view->Text().Buffer().Size() == 0; };
    keeper.select = [this](ui::TextSelection selection) {
        const auto place = [&](std::int32_t character) {
            return m_view->Text().Buffer().PositionOfCharacter(static_cast<std::size_t>(std::max(0, character)));
        };
        m_view->Select(place(selection.start), place(selection.start + selection.length));
    };
    keeper.selection = [this] {
        const CTextBuffer& buffer = m_view->Text().Buffer();
        const auto begin = static_cast<std::int32_t>(buffer.CharactersBefore(m_view->Text().SelectionBegin()));
        const auto end = static_cast<std::int32_t>(buffer.CharactersBefore(m_view->Text().SelectionEnd()));
        return ui::TextSelection{begin, end - begin};
    };
    keeper.selectedText = [this] { return m_view->Text().SelectedText(); };
    return keeper;
}

void CEditorPeer::Mirror() { m_view->setEnabled(m_box.Enabled()); }
