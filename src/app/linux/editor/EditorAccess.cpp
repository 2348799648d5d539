#include "app/linux/editor/EditorAccess.h"
#include "app/linux/editor/EditorView.h"
#include <QAccessibleWidget>
#include <QTextBoundaryFinder>

namespace {

using Boundary = QAccessible::TextBoundaryType;

// Offsets of this interface are characters, as screen readers count them.
class CEditorAccess final : public QAccessibleWidget,
                            public QAccessibleTextInterface,
                            public QAccessibleEditableTextInterface {
public:
    explicit CEditorAccess(CEditorView* view) : QAccessibleWidget(view, QAccessible::EditableText), m_view(*view) {}

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface*>(this);
        if (type == QAccessible::EditableTextInterface)
            return static_cast<QAccessibleEditableTextInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.multiLine = state.editable = state.selectableText = state.focusable = true;
        return state;
    }

    void selection(int number, int* begin, int* end) const override
    {
        *begin = number == 0 ? Offset(m_view.Text().SelectionBegin()) : 0;
        *end = number == 0 ? Offset(m_view.Text().SelectionEnd()) : 0;
    }
    int selectionCount() const override { return m_view.Text().HasSelection() ? 1 : 0; }
    void addSelection(int begin, int end) override { m_view.Select(Place(begin), Place(end)); }
    void removeSelection(int) override { setCursorPosition(cursorPosition()); }
    void setSelection(int, int begin, int end) override { addSelection(begin, end); }
    int cursorPosition() const override { return Offset(m_view.Text().Caret()); }
    void setCursorPosition(int position) override { m_view.Select(Place(position), Place(position)); }
    QString text(int begin, int end) const override { return Between(Place(begin), Place(end)); }
    int characterCount() const override { return Offset(Buffer().Size()); }
    QString textAtOffset(int offset, Boundary boundary, int* begin, int* end) const override
    {
        return Told(Around(Place(offset), boundary), begin, end);
    }
    QString textBeforeOffset(int offset, Boundary boundary, int* begin, int* end) const override
    {
        const std::size_t here = Around(Place(offset), boundary).first;
        return here == 0 ? Nothing(begin, end) : Told(Around(m_view.PreviousCharacter(here), boundary), begin, end);
    }
    QString textAfterOffset(int offset, Boundary boundary, int* begin, int* end) const override
    {
        const std::size_t behind = Around(Place(offset), boundary).second;
        return behind >= Buffer().Size() ? Nothing(begin, end) : Told(Around(behind, boundary), begin, end);
    }
    QRect characterRect(int offset) const override
    {
        const std::size_t place = Place(offset);
        const QRect left = m_view.CaretRectangle(place);
        const QRect right = m_view.CaretRectangle(m_view.NextCharacter(place));
        const int width = right.top() == left.top() ? right.left() - left.left() : left.width();
        return {m_view.viewport()->mapToGlobal(left.topLeft()), QSize(std::max(1, width), left.height())};
    }
    int offsetAtPoint(const QPoint& point) const override
    {
        return Offset(m_view.PositionAt(m_view.viewport()->mapFromGlobal(point)));
    }
    void scrollToSubstring(int begin, int) override { m_view.ShowPosition(Place(begin)); }
    QString attributes(int, int* begin, int* end) const override
    {
        *begin = 0;
        *end = characterCount();
        return {};
    }

    void deleteText(int begin, int end) override { m_view.ReplaceRange(Place(begin), Place(end), ""); }
    void insertText(int offset, const QString& text) override { replaceText(offset, offset, text); }
    void replaceText(int begin, int end, const QString& text) override
    {
        m_view.ReplaceRange(Place(begin), Place(end), text.toStdString());
    }

private:
    using Range = std::pair<std::size_t, std::size_t>;
    const CTextBuffer& Buffer() const { return m_view.Text().Buffer(); }
    int Offset(std::size_t position) const { return static_cast<int>(Buffer().CharactersBefore(position)); }
    std::size_t Place(int offset) const
    {
        return Buffer().PositionOfCharacter(static_cast<std::size_t>(std::max(0, offset)));
    }
    QString Between(std::size_t begin, std::size_t end) const { return QString::fromStdString(Buffer().Text(begin, end)); }
    QString Told(Range range, int* begin, int* end) const
    {
        *begin = Offset(range.first);
        *end = Offset(range.second);
        return Between(range.first, range.second);
    }
    static QString Nothing(int* begin, int* end)
    {
        *begin = *end = -1;
        return {};
    }
    Range Around(std::size_t position, Boundary boundary) const
    {
        const std::size_t block = Buffer().BlockAt(position);
        switch (boundary) {
        case QAccessible::CharBoundary:
            return {position, m_view.NextCharacter(position)};
        case QAccessible::WordBoundary:
            return m_view.WordAround(position);
        case QAccessible::LineBoundary:
            return m_view.RowAround(position);
        case QAccessible::NoBoundary:
            return {0, Buffer().Size()};
        default:
            return {Buffer().BlockBegin(block), Buffer().BlockBehind(block)};
        }
    }
    CEditorView& m_view;
};

QAccessibleInterface* MakeAccess(const QString&, QObject* object)
{
    auto* view = dynamic_cast<CEditorView*>(object);
    return view != nullptr ? new CEditorAccess(view) : nullptr;
}
}

void InstallEditorAccess()
{
    static const bool installed = (QAccessible::installFactory(MakeAccess), true);
    (void)installed;
}

void TellEdit(CEditorView& view, std::size_t begin, std::size_t removed, std::size_t inserted)
{
    if (!QAccessible::isActive())
        return;
    const CTextBuffer& buffer = view.Text().Buffer();
    const int offset = static_cast<int>(buffer.CharactersBefore(begin));
    const QString text = QString::fromStdString(buffer.Text(begin, begin + inserted));
    if (removed > 0) {
        // What is gone is not kept for this; its length is enough for a reader to look anew.
        QAccessibleTextRemoveEvent event(&view, offset, QString(static_cast<qsizetype>(removed), QChar(' ')));
        QAccessible::updateAccessibility(&event);
    }
    if (inserted > 0) {
        QAccessibleTextInsertEvent event(&view, offset, text);
        QAccessible::updateAccessibility(&event);
    }
}

void TellCaret(CEditorView& view)
{
    if (!QAccessible::isActive())
        return;
    const CTextBuffer& buffer = view.Text().Buffer();
    QAccessibleTextCursorEvent event(&view, static_cast<int>(buffer.CharactersBefore(view.Text().Caret())));
    QAccessible::updateAccessibility(&event);
}
