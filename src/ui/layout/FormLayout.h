#pragma once
#include <cstddef>
#include <string_view>

// The look of a form: one table per form, a row per control in the order in which the Tab key reaches them. Captions, tool
// tips, lists and design states are the controls' own. Places are in dialog units: a quarter of the average character's
// width, an eighth of the font's height. They are measured from the upper left corner of what holds the control.
namespace ui::layout {

enum class Kind {
    TabStrip,
    Frame,  // A border with a caption; without a caption it is not seen.
    CheckBox,
    Button,
    Label,         // Its text is in the middle of its height, so that it stands level with a box beside it.
    WrappedLabel,  // A label of several lines.
    Preview,       // A label within a border that shows a text in any font.
    Link,          // A label to be clicked.
    Picture,
    TextBox,        // One line.
    TextArea,       // Several lines.
    EditableCombo,  // Its text may differ from the entries of its list.
    DropDownList,   // Shows one of its entries or none.
    ListBox,
    Slider,
    ProgressBar,
    ToolBar,
    Editor,
    StatusBar,
};

struct Rectangle {
    int x = 0, y = 0, width = 0, height = 0;
    constexpr int Right() const { return x + width; }
    constexpr int Bottom() const { return y + height; }
};

// What holds a control: a page of a tab strip, a frame, or the form itself.
struct Holder {
    std::string_view control;  // Empty for the form.
    int page = -1;             // From 0 on a tab strip.
};

// Which part of the room that its holder has gained a control takes.
enum class Growth { None, Wide, Tall, Both };

struct Row {
    Kind kind = Kind::Label;
    std::string_view control;  // Its name on the form.
    Holder holder;
    Rectangle place;
    std::string_view names = {};   // A label: the control that it names.
    std::string_view spoken = {};  // What a screen reader says for a control without caption and label.
    std::string_view picture = {};
    Growth growth = Growth::None;
    std::string_view covers = {};  // The control whose place below it takes while that is invisible.
    bool movesDown = false;        // Stays at the lower edge when its holder grows.

private:
    // Stands before its users: some compilers cannot use it in constants otherwise.
    template <class Field> constexpr Row With(Field Row::*field, Field value) const
    {
        Row changed = *this;
        changed.*field = value;
        return changed;
    }

public:
    constexpr Row Names(std::string_view named) const { return With(&Row::names, named); }
    constexpr Row Spoken(std::string_view text) const { return With(&Row::spoken, text); }
    constexpr Row Shows(std::string_view name) const { return With(&Row::picture, name); }
    constexpr Row Covers(std::string_view below) const { return With(&Row::covers, below); }
    constexpr Row Grows(Growth direction) const { return With(&Row::growth, direction); }
    constexpr Row MovesDown() const { return With(&Row::movesDown, true); }
};

// A button of a tool bar.
struct ToolButton {
    std::string_view key;
    std::string_view toolTip;
    std::string_view picture;
};

// A table or a part of one. Borrowed for good.
template <class Entry> struct Table {
    const Entry* first = nullptr;
    std::size_t count = 0;
    constexpr const Entry* begin() const { return first; }
    constexpr const Entry* end() const { return first + count; }
};

struct FormLayout {
    int width = 0, height = 0;  // Of the inside of the form.
    Table<Row> rows;
};

const FormLayout& MainWindowLayout();
const FormLayout& SplashLayout();
Table<ToolButton> ToolBarButtons();  // The main window's tool bar, from left to right.

// The room inside what holds a control: of a page what the tabs and the border leave. Empty when the form has no such
// holder.
Rectangle InsideOf(const FormLayout& form, const Holder& holder);

// The row of a control; null when the form has none of that name.
const Row* FindRow(const FormLayout& form, std::string_view control);

}
