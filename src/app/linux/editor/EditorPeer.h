#pragma once
#include "ui/controls/Controls.h"
#include <QWidget>
#include <functional>
#include <string>

class CEditorView;

// The native editor of a text box: keeps the text in the box's place and reports what the user does.
class CEditorPeer final : public QWidget {
public:
    // The box is borrowed and must outlive this widget.
    explicit CEditorPeer(ui::CTextBox& box, QWidget* parent = nullptr);
    ~CEditorPeer() override;

    CEditorView& View() { return *m_view; }
    // Called with the path of a text file that the user drops here.
    std::function<void(const std::string& path)> onFileDropped;

private:
    ui::CTextBox::Keeper Keeper();
    void Mirror();
    ui::CTextBox& m_box;
    CEditorView* m_view;
};
