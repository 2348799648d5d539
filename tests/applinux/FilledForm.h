#pragma once
#include "app/linux/window/MainWindowPeer.h"
#include "ui/frmParlune.h"
#include <QApplication>
#include <QFontDatabase>

// The main window as it looks in the middle of a run: lists filled, numbers in the boxes, every page to be seen.
struct FilledForm {
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
        for (const QString& family : QFontDatabase::families())
            form.cboFontName.Add(family.toStdString());
        for (const char* size : {"8", "9", "10", "11", "12"})
            form.cboFontSize.Add(size);
        form.cboFontName.SetText("DejaVu Serif");
        form.cboFontSize.SetText("12");
        form.lblFontDisplay.SetStyle({.fontName = "DejaVu Serif", .fontSize = 12});
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

// The filled form in its native window. Turn lets the window follow.
struct ShownWindow : FilledForm {
    CMainWindowPeer window{form, [] { return true; }, [] {}};

    ShownWindow()
    {
        form.tabMain.Select(0);
        form.SetVisible(true);
        Turn();
    }
    // What a turn posts is handled in the next one.
    static void Turn()
    {
        for (int turn = 0; turn < 3; ++turn)
            QApplication::processEvents();
    }
    void Visit(int tab)
    {
        form.tabMain.Select(tab);
        Turn();
    }
    template <class Widget = QWidget> Widget* Native(const char* control) const
    {
        return qobject_cast<Widget*>(window.Inside()->WidgetOf(control));
    }
};
