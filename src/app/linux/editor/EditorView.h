#pragma once
#include "app/linux/editor/BlockLayout.h"
#include "app/linux/editor/EditedText.h"
#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <QElapsedTimer>
#include <QTextLayout>
#include <functional>
#include <memory>
#include <optional>
#include <unordered_map>

class QMenu;

// A text editor for texts of any size: only what is seen is laid out. Lines are wrapped at the window's edge. Scrolling
// counts blocks, for nobody knows how many rows a hundred megabytes have.
class CEditorView final : public QAbstractScrollArea {
public:
    explicit CEditorView(QWidget* parent = nullptr);

    const CEditedText& Text() const { return m_text; }
    void SetText(std::string_view text);
    void Select(std::size_t anchor, std::size_t caret);

    std::function<void()> onEdited;  // By the user.
    std::function<void(const std::string& path)> onFileDropped;

    void Undo();
    void Redo();
    void Cut();
    void Copy();
    void Paste();
    void Delete();
    void SelectAll();
    void Insert(std::string_view text);
    void ReplaceRange(std::size_t begin, std::size_t end, std::string_view text);
    std::unique_ptr<QMenu> ContextMenu();

    // Where a place of the text is shown, in the viewport; and the place shown there.
    QRect CaretRectangle(std::size_t position);
    std::size_t PositionAt(QPoint point);
    std::size_t CharacterAt(QPoint point);  // The character itself, not the nearest gap.
    std::size_t TopPosition();              // Where the uppermost row begins.
    void ShowCaret();                       // Scrolls as little as makes the caret visible.
    void ShowPosition(std::size_t position);
    // The row that holds a place, without its line end.
    std::pair<std::size_t, std::size_t> RowAround(std::size_t position);
    std::pair<std::size_t, std::size_t> WordAround(std::size_t position);
    std::size_t NextCharacter(std::size_t position) { return Next(position, QTextLayout::SkipCharacters); }
    std::size_t PreviousCharacter(std::size_t position) { return Previous(position, QTextLayout::SkipCharacters); }

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    // A row of the text: of all rows, those of one block are counted from 0.
    struct Row {
        std::size_t block = 0;
        int row = 0;
        friend auto operator<=>(const Row&, const Row&) = default;
    };
    enum class Unit { Character, Word, Line };

    const CBlockLayout& LayoutOf(std::size_t block);
    std::size_t PlaceAt(QPoint point, QTextLine::CursorPosition which);
    Row RowOf(std::size_t position);
    Row Moved(Row row, int rows);
    Row UpFrom(Row row, int height);
    Row LastTop();
    int RowHeight() const;
    int PageRows() const;
    int TextWidth() const;

    void TextChanged();
    void CaretMoved();
    void ForgetLayouts();
    void ScrollRows(int rows);
    void SetTop(Row top);
    void MirrorScrollBar();
    int ScrollValueOf(Row row);
    void StepByScrollBar(int action);

    bool MoveByKey(QKeyEvent& event);
    bool EditByKey(QKeyEvent& event);
    bool TypeByKey(QKeyEvent& event);
    void Move(std::size_t position, bool select);
    void MoveRows(int rows, bool select);
    std::size_t NextWord(std::size_t position) { return Next(position, QTextLayout::SkipWords); }
    std::size_t PreviousWord(std::size_t position) { return Previous(position, QTextLayout::SkipWords); }
    std::size_t Next(std::size_t position, QTextLayout::CursorMode over);
    std::size_t Previous(std::size_t position, QTextLayout::CursorMode over);
    void EraseTo(std::size_t position, bool wordwise);

    void SelectTo(std::size_t position);
    std::pair<std::size_t, std::size_t> UnitAround(std::size_t position);
    void DragSelection();
    void OfferSelection();
    void PasteFrom(bool selectionOfMouse);
    void ShowDropPlace(QPoint point);
    void RestartBlinking();
    void PaintBlock(QPainter& painter, std::size_t block, int y);
    QList<QTextLayout::FormatRange> SelectionIn(std::size_t block) const;

    CEditedText m_text;
    std::unordered_map<std::size_t, std::unique_ptr<CBlockLayout>> m_layouts;
    Row m_top;
    std::optional<Row> m_lastTop;
    bool m_mirroring = false;
    double m_wheelRest = 0;
    std::optional<double> m_wantedX;  // While the caret goes up and down.
    CBlockLayout::Preedit m_preedit;

    Unit m_unit = Unit::Character;                  // What the mouse selects by.
    std::pair<std::size_t, std::size_t> m_pressed;  // The unit where it was pressed.
    QPoint m_pressPoint;
    bool m_selecting = false;
    bool m_mayDrag = false;
    QElapsedTimer m_sinceDoubleClick;
    QPoint m_scrollPoint;
    std::optional<std::size_t> m_dropPlace;
    QBasicTimer m_blink;
    QBasicTimer m_autoScroll;
    bool m_caretShown = false;
};
