#pragma once
#include "ui/controls/CControl.h"
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace ui {

class CFrame final : public CControl {
public:
    using CControl::CControl;
};

class CPicture final : public CControl {
public:
    using CControl::CControl;
    std::function<void()> onClick;
    void Click() { Raise(onClick); }
};

class CButton final : public CControl {
public:
    using CControl::CControl;
    std::function<void()> onClick;
    void Click()
    {
        if (Enabled())
            Raise(onClick);
    }
};

struct TextStyle {
    std::string fontName;
    float fontSize = 8;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeThrough = false;
    std::int32_t color = 0;  // 0x00BBGGRR.
    friend bool operator==(const TextStyle&, const TextStyle&) = default;
};

class CLabel final : public CControl {
public:
    using CControl::CControl;
    const TextStyle& Style() const { return m_style; }
    void SetStyle(TextStyle style) { Change(m_style, std::move(style)); }
    std::function<void()> onClick;
    void Click() { Raise(onClick); }

private:
    TextStyle m_style;
};

class CCheckBox final : public CControl {
public:
    CCheckBox(CForm& form, std::string name, std::string caption, bool ticked)
        : CControl(form, std::move(name), std::move(caption)), m_value(ticked ? 1 : 0)
    {
    }
    int Value() const { return m_value; }
    bool Ticked() const { return m_value != 0; }
    void SetValue(int value)  // Runs the click procedure, also when the value stays.
    {
        Change(m_value, value);
        Raise(onClick);
    }
    std::function<void()> onClick;

private:
    int m_value;
};

struct TextSelection {
    std::int32_t start = 0;  // Caret or start of the selection, in characters.
    std::int32_t length = 0;
};

// A text with a caret. A native editor for large texts may keep the text itself (SetKeeper): then this object asks it for
// the text only when somebody wants it, and a stroke of the user copies nothing.
class CTextBox final : public CControl {
public:
    // What keeps the text in this object's place.
    struct Keeper {
        std::function<void(std::string text)> put;  // The program's text; the caret goes to the start. Raises nothing.
        std::function<std::string()> text;
        std::function<bool()> isEmpty;
        std::function<void(TextSelection selection)> select;
        std::function<TextSelection()> selection;
        std::function<std::string()> selectedText;
    };

    CTextBox(CForm& form, std::string name, std::string text = "") : CControl(form, std::move(name)), m_text(std::move(text))
    {
    }
    // Valid until the text changes.
    const std::string& Text() const;
    // For whoever needs a large text only once: this object keeps nothing of it.
    std::string CopyOfText() const { return m_fetched ? m_text : m_keeper.text(); }
    bool IsEmpty() const { return m_fetched ? m_text.empty() : m_keeper.isEmpty(); }
    void SetText(std::string text);  // Runs the change procedure when the text changes; the caret goes to the start.
    // Caret or start of the selection, and its length, in characters.
    std::int32_t SelectionStart() const { return Selection().start; }
    std::int32_t SelectionLength() const { return Selection().length; }
    std::string SelectedText() const;
    void Select(std::int32_t start, std::int32_t length);
    std::function<void()> onChange;
    std::function<void()> onCommit;  // The user leaves the box or presses Return.
    void Commit() { Raise(onCommit); }
    std::function<void()> onEnter;  // The box gets the keyboard focus.
    void Enter() { Raise(onEnter); }
    void SelectAll();

    // Hands the present text over; from now on the keeper has it. A keeper without procedures gives it back.
    void SetKeeper(Keeper keeper);
    // The keeper tells that the user edited the text: runs the change procedure.
    void Edited();

private:
    TextSelection Selection() const { return m_keeper.selection ? m_keeper.selection() : m_selection; }
    void Forget();
    Keeper m_keeper;
    mutable std::string m_text;
    mutable bool m_fetched = true;  // m_text is the text; else the keeper has it.
    TextSelection m_selection;
};

// Entries with a number each, one of which may be selected. Index -1 is no selection.
class CListControl : public CControl {
public:
    using CControl::CControl;
    std::int32_t Count() const { return static_cast<std::int32_t>(m_items.size()); }
    const std::string& Item(std::int32_t index) const { return m_items.at(static_cast<std::size_t>(index)).text; }
    std::int32_t ItemData(std::int32_t index) const { return m_items.at(static_cast<std::size_t>(index)).data; }
    void Add(std::string text, std::int32_t data = 0)
    {
        m_items.push_back({std::move(text), data});
        Changed();
    }
    virtual void Clear()
    {
        m_items.clear();
        m_index = -1;
        Changed();
    }
    std::int32_t Index() const { return m_index; }
    // Selects an entry and runs the click procedure; -1 selects none and runs nothing. Throws CFailure 380 for any
    // other index.
    void SetIndex(std::int32_t index);
    // Selects the first entry with exactly this text and runs the click procedure. Throws CFailure 380 when there is none.
    void Select(std::string_view text);
    std::int32_t Find(std::string_view text) const;  // -1 when there is none.
    std::function<void()> onClick;
    std::function<void()> onDoubleClick;
    void DoubleClick() { Raise(onDoubleClick); }

protected:
    virtual void IndexChanged() {}
    std::int32_t m_index = -1;

private:
    struct Entry {
        std::string text;
        std::int32_t data;
    };
    std::vector<Entry> m_items;
};

class CListBox final : public CListControl {
public:
    using CListControl::CListControl;
};

// A list with a text that may differ from its entries.
class CComboBox final : public CListControl {
public:
    CComboBox(CForm& form, std::string name, std::string text = "")
        : CListControl(form, std::move(name)), m_text(std::move(text))
    {
    }
    const std::string& Text() const { return m_text; }
    // Sets the text; the entry with exactly this text, if any, becomes the selected one. Runs the change procedure.
    void SetText(std::string text);
    void Clear() override  // Empties the list; the text stays.
    {
        CListControl::Clear();
    }
    std::function<void()> onChange;

private:
    void IndexChanged() override { m_text = m_index < 0 ? std::string() : Item(m_index); }
    std::string m_text;
};

class CSlider final : public CControl {
public:
    CSlider(CForm& form, std::string name, std::int32_t minimum, std::int32_t maximum, std::int32_t value)
        : CControl(form, std::move(name)), m_minimum(minimum), m_maximum(maximum), m_value(value)
    {
    }
    std::int32_t Minimum() const { return m_minimum; }
    std::int32_t Maximum() const { return m_maximum; }
    std::int32_t Value() const { return m_value; }
    void SetValue(std::int32_t value);  // Clamped to the range; runs the change procedure when it changes.
    std::function<void()> onChange;

private:
    std::int32_t m_minimum;
    std::int32_t m_maximum;
    std::int32_t m_value;
};

class CProgressBar final : public CControl {
public:
    using CControl::CControl;
    std::int32_t Maximum() const { return m_maximum; }
    void SetMaximum(std::int32_t maximum) { Change(m_maximum, maximum); }
    std::int32_t Value() const { return m_value; }
    void SetValue(std::int32_t value) { Change(m_value, value); }

private:
    std::int32_t m_maximum = 100;
    std::int32_t m_value = 0;
};

class CTabStrip final : public CControl {
public:
    CTabStrip(CForm& form, std::string name, std::vector<std::string> tabs)
        : CControl(form, std::move(name)), m_tabs(std::move(tabs))
    {
    }
    const std::vector<std::string>& Tabs() const { return m_tabs; }
    std::int32_t Selected() const { return m_selected; }  // From 0.
    void Select(std::int32_t tab);  // Runs the click procedure, also when it stays. Throws CFailure 380 beyond the tabs.
    std::function<void()> onClick;

private:
    std::vector<std::string> m_tabs;
    std::int32_t m_selected = 0;
};

class CToolBar final : public CControl {
public:
    CToolBar(CForm& form, std::string name, std::vector<std::string> keys)
        : CControl(form, std::move(name)), m_keys(std::move(keys))
    {
    }
    const std::vector<std::string>& Keys() const { return m_keys; }
    std::function<void(const std::string& key)> onButtonClick;
    void Click(const std::string& key)
    {
        if (onButtonClick)
            Raise([&] { onButtonClick(key); });
    }

private:
    std::vector<std::string> m_keys;
};

class CStatusBar final : public CControl {
public:
    using CControl::CControl;
    const std::string& Text() const { return m_text; }
    void SetText(std::string text) { Change(m_text, std::move(text)); }

private:
    std::string m_text;
};

class CTimer final : public CControl {
public:
    CTimer(CForm& form, std::string name, std::int32_t intervalMilliseconds)
        : CControl(form, std::move(name)), m_interval(intervalMilliseconds)
    {
        SetEnabled(false);
    }
    std::int32_t Interval() const { return m_interval; }
    std::function<void()> onTimer;
    void Tick()  // Called by the peer every interval while enabled.
    {
        if (Enabled())
            Raise(onTimer);
    }

private:
    std::int32_t m_interval;
};

// An entry of a menu. A caption "-" is a separator; entries below it make it a sub-menu.
class CMenuItem final : public CControl {
public:
    CMenuItem(CForm& form, std::string name, std::string caption) : CControl(form, std::move(name), std::move(caption)) {}
    CMenuItem(CMenuItem& parent, CForm& form, std::string name, std::string caption)
        : CMenuItem(form, std::move(name), std::move(caption))
    {
        parent.m_items.push_back(this);
    }
    bool IsSeparator() const { return Caption() == "-"; }
    const std::vector<CMenuItem*>& Items() const { return m_items; }
    bool Checked() const { return m_checked; }
    void SetChecked(bool checked) { Change(m_checked, checked); }
    std::function<void()> onClick;
    void Click()
    {
        if (Enabled())
            Raise(onClick);
    }

private:
    std::vector<CMenuItem*> m_items;
    bool m_checked = false;
};

}
