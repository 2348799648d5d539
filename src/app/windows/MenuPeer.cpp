#include "app/windows/MenuPeer.h"
#include "app/windows/ControlIds.h"
#include "platform/windows/Text.h"
#include <algorithm>

namespace appwindows {
namespace {

using platform::windowsdesktop::ToWide;

bool OffersSomething(const ui::CMenuItem& menu)
{
    return std::any_of(menu.Items().begin(), menu.Items().end(),
                       [](const ui::CMenuItem* item) { return item->Visible() && !item->IsSeparator(); });
}

void Fill(HMENU native, const ui::CForm& form, const ui::CMenuItem& menu);

HMENU MakeSubMenu(const ui::CForm& form, const ui::CMenuItem& menu)
{
    HMENU native = CreatePopupMenu();
    Fill(native, form, menu);
    return native;
}

void AddEntry(HMENU native, const ui::CForm& form, const ui::CMenuItem& item)
{
    const std::wstring caption = ToWide(item.Caption());
    if (item.IsSeparator()) {
        AppendMenuW(native, MF_SEPARATOR, 0, nullptr);
    } else if (item.Items().empty()) {
        const UINT state = (item.Enabled() ? MF_ENABLED : MF_GRAYED) | (item.Checked() ? MF_CHECKED : MF_UNCHECKED);
        AppendMenuW(native, MF_STRING | state, static_cast<UINT_PTR>(CommandOf(form, item.Name())), caption.c_str());
    } else {
        const UINT state = item.Enabled() && OffersSomething(item) ? MF_ENABLED : MF_GRAYED;  // Nothing to open is greyed.
        AppendMenuW(native, MF_POPUP | state, reinterpret_cast<UINT_PTR>(MakeSubMenu(form, item)), caption.c_str());
    }
}

void Fill(HMENU native, const ui::CForm& form, const ui::CMenuItem& menu)
{
    while (DeleteMenu(native, 0, MF_BYPOSITION)) {
    }
    for (const ui::CMenuItem* item : menu.Items())
        if (item->Visible())
            AddEntry(native, form, *item);
    MENUINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = MIM_MENUDATA;
    info.dwMenuData = reinterpret_cast<ULONG_PTR>(&menu);
    SetMenuInfo(native, &info);
}

}

HMENU MakeMenuBar(const ui::CForm& form, std::initializer_list<const ui::CMenuItem*> menus)
{
    HMENU bar = CreateMenu();
    for (const ui::CMenuItem* menu : menus)
        AddEntry(bar, form, *menu);
    return bar;
}

void PopUpMenu(HWND owner, const ui::CForm& form, const ui::CMenuItem& menu)
{
    HMENU native = MakeSubMenu(form, menu);
    POINT mouse = {};
    GetCursorPos(&mouse);
    if (GetMenuItemCount(native) > 0)
        TrackPopupMenu(native, 0, static_cast<int>(mouse.x), static_cast<int>(mouse.y), 0, owner, nullptr);
    DestroyMenu(native);
}

void RefreshOpening(HMENU native, const ui::CForm& form)
{
    MENUINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = MIM_MENUDATA;
    if (GetMenuInfo(native, &info) && info.dwMenuData != 0)
        Fill(native, form, *reinterpret_cast<const ui::CMenuItem*>(info.dwMenuData));
}

bool ClickEntry(const ui::CForm& form, int id)
{
    auto* entry = dynamic_cast<ui::CMenuItem*>(ControlOfCommand(form, id));
    if (entry)
        entry->Click();
    return entry != nullptr;
}

}
