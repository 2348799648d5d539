#pragma once
#include "ui/controls/CControl.h"
#include "ui/layout/FormLayout.h"
#include <string_view>

// By what the program's windows, controls and menu entries are known from outside: to assistive programs and to the tests of
// the whole program. Free of the system's headers.
namespace appwindows {

inline constexpr wchar_t MainWindowClass[] = L"ParluneMain";
inline constexpr wchar_t SplashWindowClass[] = L"ParluneSplash";
inline constexpr wchar_t TrayWindowClass[] = L"ParluneTray";
inline constexpr wchar_t PageClass[] = L"ParlunePage";  // A page of a tab strip; its controls are its children.

// Below these are the identifiers that dialogs use for themselves.
inline constexpr int FirstControlId = 1000;
inline constexpr int FirstCommandId = 4000;
inline constexpr int FirstToolButtonId = 3000;  // The tool bar's buttons, from left to right.

// The identifier of a native control: it counts the rows of its form's table. 0 when the table has no such control. Controls
// stand in the window itself or in pages at any depth, so look for the identifier among all windows below the form's one.
constexpr int IdOf(const ui::layout::FormLayout& layout, std::string_view control)
{
    int id = FirstControlId;
    for (const ui::layout::Row& row : layout.rows) {
        if (row.control == control)
            return id;
        ++id;
    }
    return 0;
}

// The identifier of a menu entry: it counts the form's controls. 0 when the form has none of that name.
inline int CommandOf(const ui::CForm& form, std::string_view menuEntry)
{
    int id = FirstCommandId;
    for (const ui::CControl* control : form.Controls()) {
        if (control->Name() == menuEntry)
            return id;
        ++id;
    }
    return 0;
}

// The entry with this identifier; null when there is none.
inline ui::CControl* ControlOfCommand(const ui::CForm& form, int id)
{
    const auto index = static_cast<std::size_t>(id - FirstCommandId);
    return id >= FirstCommandId && index < form.Controls().size() ? form.Controls()[index] : nullptr;
}

}
