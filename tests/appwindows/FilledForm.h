#pragma once
#include "app/windows/window/MainWindowPeer.h"
#include "platform/headless/Desktop.h"
#include "platform/windows/Text.h"
#include "ui/frmParlune.h"
#include <functional>
#include <string>

// The main window as it looks in the middle of a run: lists filled, numbers in the boxes, every page to be seen.
struct FilledForm {
    CHeadlessDesktop desktop;
    frmParlune form;

    FilledForm()
    {
        form.lblVersion.SetCaption("Version 2.6.3");
        form.staStatus.SetText("Nibbin: monitoring the clipboard");
        form.imgParlune.onClick = form.imgAgentRing.onClick = [] {};
        for (const char* text :
             {"The time is now {Time}.", "Good {TimeOfDay}!  It is now {Time}.", "It is now {Time} on {Date}."})
            form.cboSayTime.Add(text);
        for (const char* text : {"h:nn AM/PM", "h:nn", "hh:nn"})
            form.cboSayTimeFormat.Add(text);
        for (const char* text : {"Monotone", "Whisper", "Email", "Address"})
            form.cboChr.Add(text);
        form.cboChar.Add("(Default Character)");
        form.cboChar.Add("Nibbin.acs");
        form.cboChar.SetText("Nibbin.acs");
        FillNumbers();
        FillVoicesAndFonts();
        FillGreetings();
        form.txtRead.SetText(
            "Once upon a time there was a seed that could read.\r\nIt sat on a desktop and waited for words.");
    }
    void FillNumbers()
    {
        form.txtSize[0].SetText("128");
        form.txtSize[1].SetText("128");
        form.txtCharsPerLine.SetText("32");
        form.txtNumberOfLines.SetText("4");
    }
    void FillVoicesAndFonts()
    {
        for (int voice = 1; voice <= 131; ++voice)
            form.lstTTS.Add("English (America), voice " + std::to_string(voice), voice);
        form.lstTTS.SetIndex(2);
        for (const char* family : {"Arial", "Courier New", "Tahoma", "Times New Roman", "Verdana"})
            form.cboFontName.Add(family);
        for (const char* size : {"8", "9", "10", "11", "12"})
            form.cboFontSize.Add(size);
        form.cboFontName.SetText("Times New Roman");
        form.cboFontSize.SetText("12");
        form.lblFontDisplay.SetStyle({.fontName = "Times New Roman", .fontSize = 12});
        for (ui::CCheckBox& box : form.chkBalloon)
            box.SetValue(1);
    }
    void FillGreetings()
    {
        form.txtUserName.SetText("Ada");
        for (int greeting = 0; greeting < 5; ++greeting) {
            form.txtGreeting[greeting].SetText("Good {TimeOfDay}, {UserName}! I am ready to read to you.");
            form.cboAnim[greeting].Add("Greet");
            form.cboAnim[greeting].Add("Wave");
            form.cboAnim[greeting].SetText("Wave");
        }
    }
};

// The filled form in its native window. Turn lets everything happen that is waiting.
struct ShownWindow : FilledForm {
    bool busy = false;
    int sessionEnds = 0;
    appwindows::CMainWindowPeer window{
        form, {.isBusy = [this] { return busy; }, .unloaded = [] {}, .sessionEnds = [this] { ++sessionEnds; }}};

    ShownWindow()
    {
        form.tabMain.Select(0);
        form.SetVisible(true);
        Turn();
    }
    void Turn()
    {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            if (!window.TakeKey(message)) {
                TranslateMessage(&message);
                DispatchMessageW(&message);
            }
    }
    // As a key of the keyboard on what has the focus.
    void Press(WPARAM key)
    {
        PostMessageW(GetFocus(), WM_KEYDOWN, key, 1);
        PostMessageW(GetFocus(), WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
        Turn();
    }
    void Visit(int tab)
    {
        form.tabMain.Select(tab);
        Turn();
    }
    HWND Native(const char* control) const { return window.Inside()->WindowOf(control); }
};

// A key held down for the thread's own view of the keyboard.
class CHeldKey {
public:
    explicit CHeldKey(int key) : m_key(key) { Set(0x80); }
    ~CHeldKey() { Set(0); }
    CHeldKey(const CHeldKey&) = delete;
    CHeldKey& operator=(const CHeldKey&) = delete;

private:
    void Set(BYTE state) const
    {
        BYTE keys[256] = {};
        GetKeyboardState(keys);
        keys[m_key] = state;
        SetKeyboardState(keys);
    }
    int m_key;
};
