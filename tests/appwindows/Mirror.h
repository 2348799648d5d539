#pragma once
#include "FilledForm.h"

// The window and a user of it: messages stand for what the user does.
struct Mirror : testing::Test {
    ShownWindow shown;

    void Click(const char* control)
    {
        appwindows::Send(shown.Native(control), BM_CLICK);
        shown.Turn();
    }
    void Type(HWND window, const wchar_t* letters)
    {
        for (; *letters; ++letters)
            appwindows::Send(window, WM_CHAR, *letters, 1);
        shown.Turn();
    }
    // As the system's own boxes do when the user chooses.
    void Choose(HWND list, UINT select, int index, int notification)
    {
        appwindows::Send(list, select, static_cast<WPARAM>(index));
        appwindows::Send(GetParent(list), WM_COMMAND, static_cast<WPARAM>(MAKELONG(GetDlgCtrlID(list), notification)),
                         appwindows::ToParam(list));
        shown.Turn();
    }
    HWND EditOf(const char* combo) const
    {
        COMBOBOXINFO parts = {};
        parts.cbSize = sizeof parts;
        GetComboBoxInfo(shown.Native(combo), &parts);
        return parts.hwndItem;
    }
    std::string EntryOf(const char* combo, int index) const
    {
        wchar_t text[200] = L"";
        appwindows::Send(shown.Native(combo), CB_GETLBTEXT, static_cast<WPARAM>(index), appwindows::ToParam(text));
        return platform::windowsdesktop::FromWide(text);
    }
};
