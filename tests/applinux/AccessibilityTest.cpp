#include "FilledForm.h"
#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <set>

// Who cannot see the window, or cannot use a mouse.
namespace {
using Role = QAccessible::Role;

struct Spoken {
    std::string name;
    Role role;
};

// A combo box calls itself by its text; the label beside it names it.
Spoken SpokenBy(QWidget* widget)
{
    QAccessibleInterface* described = QAccessible::queryAccessibleInterface(widget);
    const auto labels = described->relations(QAccessible::Label);
    const bool named = described->role() == QAccessible::ComboBox;
    if (named && labels.isEmpty())
        return {"", described->role()};
    return {(named ? labels.first().first : described)->text(QAccessible::Name).toStdString(), described->role()};
}

std::set<Role> RolesOf(ui::layout::Kind kind)
{
    using ui::layout::Kind;
    switch (kind) {
    case Kind::TabStrip:
        return {QAccessible::Client, QAccessible::PageTabList, QAccessible::LayeredPane};
    case Kind::Frame:
        return {QAccessible::Grouping, QAccessible::Client};
    case Kind::CheckBox:
        return {QAccessible::CheckBox};
    case Kind::Button:
        return {QAccessible::Button};
    case Kind::Label:
    case Kind::WrappedLabel:
    case Kind::Preview:
        return {QAccessible::StaticText};
    case Kind::Link:
        return {QAccessible::Link};
    case Kind::Picture:
        return {QAccessible::Graphic, QAccessible::Link};
    case Kind::TextBox:
    case Kind::TextArea:
        return {QAccessible::EditableText};
    case Kind::Editor:
        return {QAccessible::EditableText, QAccessible::Client};
    case Kind::EditableCombo:
    case Kind::DropDownList:
        return {QAccessible::ComboBox};
    case Kind::ListBox:
        return {QAccessible::List};
    case Kind::Slider:
        return {QAccessible::Slider};
    case Kind::ProgressBar:
        return {QAccessible::ProgressBar};
    case Kind::ToolBar:
        return {QAccessible::ToolBar};
    case Kind::StatusBar:
        return {QAccessible::StatusBar};
    }
    return {};
}

bool TakesTheKeyboard(ui::layout::Kind kind)
{
    using ui::layout::Kind;
    for (const Kind passive : {Kind::Frame, Kind::Label, Kind::WrappedLabel, Kind::Preview, Kind::ProgressBar,
                               Kind::StatusBar, Kind::ToolBar, Kind::TabStrip, Kind::Editor})
        if (kind == passive)
            return false;
    return true;
}

void PressTab(QWidget* widget)
{
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
    QApplication::sendEvent(widget, &press);
    ShownWindow::Turn();
}

struct Accessibility : testing::Test {
    ShownWindow shown;

    void MakeEverythingUsable()
    {
        for (ui::CControl* control : shown.form.Controls()) {
            control->SetEnabled(true);
            if (!dynamic_cast<ui::CMenuItem*>(control))
                control->SetVisible(true);
        }
        for (int tab = 0; tab < 7; ++tab)
            shown.Visit(tab);
    }
    // The controls that the Tab key reaches, from the first on.
    std::set<std::string> Reached()
    {
        std::set<std::string> reached;
        shown.window.activateWindow();
        shown.Native("tabMain")->setFocus();
        for (int press = 0; press < 60 && shown.window.focusWidget(); ++press) {
            if (shown.form.Focused())
                reached.insert(shown.form.Focused()->Name());
            PressTab(shown.window.focusWidget());
        }
        return reached;
    }
};
}

TEST_F(Accessibility, EveryControl_HasANameAndItsRole)
{
    MakeEverythingUsable();
    for (const ui::layout::Row& row : ui::layout::MainWindowLayout().rows) {
        const Spoken spoken = SpokenBy(shown.Native(std::string(row.control).c_str()));
        EXPECT_TRUE(RolesOf(row.kind).count(spoken.role)) << row.control << " has the role " << spoken.role;
        EXPECT_NE(spoken.name, "") << row.control;
    }
}

TEST_F(Accessibility, Names_OfControlsWithoutCaption_SayWhatTheyAreFor)
{
    MakeEverythingUsable();

    EXPECT_EQ(SpokenBy(shown.Native("chkSayTime")).name, "Say Time");
    EXPECT_EQ(SpokenBy(shown.Native("cboFontName")).name, "Font Name");
    EXPECT_EQ(SpokenBy(shown.Native<QComboBox>("cboFontName")->lineEdit()).name, "Font Name");
    EXPECT_EQ(SpokenBy(shown.Native("cboSayTimeInterval")).name, "Every");
    EXPECT_EQ(SpokenBy(shown.Native("cboSayTime")).name, "Announcement");
    EXPECT_EQ(SpokenBy(shown.Native("cboChr")).name, "Voice Characteristic");
    EXPECT_EQ(SpokenBy(shown.Native("cboAnim(3)")).name, "Animation");
    EXPECT_EQ(SpokenBy(shown.Native("txtNumberOfLines")).name, "Number of Lines (1 to 127)");
    EXPECT_EQ(SpokenBy(shown.Native("sldAdvSpeak(2)")).name, "Volume");
    EXPECT_EQ(SpokenBy(shown.Native("imgParlune")).name, "Parlune Home Page");
    EXPECT_EQ(SpokenBy(shown.Native("txtGreeting(4)")).name, "Greeting");
}

TEST_F(Accessibility, Picture_ThatCanBeClicked_IsALinkThatCanBePressed)
{
    int clicks = 0;
    shown.form.imgParlune.onClick = [&] { ++clicks; };
    shown.Visit(6);
    QAccessibleInterface* picture = QAccessible::queryAccessibleInterface(shown.Native("imgParlune"));
    picture->actionInterface()->doAction(QAccessibleActionInterface::pressAction());

    EXPECT_EQ(picture->role(), QAccessible::Link);
    EXPECT_EQ(clicks, 1);
}

TEST_F(Accessibility, Picture_OfTheBalloon_IsAPicture)
{
    shown.Visit(3);

    EXPECT_EQ(SpokenBy(shown.Native("imgBalloon")).role, QAccessible::Graphic);
}

TEST_F(Accessibility, ToolButtons_HaveNamesAndToolTips)
{
    shown.Visit(4);
    std::string names;
    for (const QAction* action : shown.Native("tlbToolbar")->actions())
        names += action->text().toStdString() + " (" + action->toolTip().toStdString() + "), ";

    EXPECT_EQ(names, "New Text (New Text), Open Text File (Open Text File), Save Text (Save Text), "
                     "Read Text Aloud (Read Text Aloud), Stop Reading (Stop Reading), ");
}

TEST_F(Accessibility, TabKey_ReachesEveryControlOfEveryPage)
{
    MakeEverythingUsable();
    std::set<std::string> missed;
    for (const ui::layout::Row& row : ui::layout::MainWindowLayout().rows)
        if (TakesTheKeyboard(row.kind))
            missed.insert(std::string(row.control));
    for (int inner = 0; inner < 5; ++inner) {
        shown.form.tabTTS.Select(inner % 2);
        shown.form.tabGreetings.Select(inner);
        for (int tab = 0; tab < 7; ++tab) {
            shown.Visit(tab);
            for (const std::string& name : Reached())
                missed.erase(name);
        }
    }

    missed.erase("imgBalloon");  // There is nothing to do with it.
    EXPECT_EQ(missed, std::set<std::string>());
}

TEST_F(Accessibility, TabKey_OnThePageOfTheBalloon_FollowsTheEye)
{
    shown.Visit(3);
    shown.window.activateWindow();
    shown.form.chkBalloon[3].SetFocus();
    shown.Turn();
    std::string way;
    for (int press = 0; press < 9; ++press) {
        way += shown.form.Focused()->Name() + " ";
        PressTab(shown.window.focusWidget());
    }

    EXPECT_EQ(way, "chkBalloon(3) chkBalloon(2) chkBalloon(1) chkBalloon(0) cboFontName cboFontSize txtCharsPerLine "
                   "txtNumberOfLines cmdSetFont(0) ");
}

TEST_F(Accessibility, PageKeys_LeadOutOfTheEditorAndAround)
{
    std::string way;
    shown.Visit(4);
    for (const char* key : {"Ctrl+Tab", "Ctrl+PgDown", "Ctrl+Tab", "Ctrl+Shift+Tab", "Ctrl+PgUp"})
        for (QShortcut* shortcut : shown.window.findChildren<QShortcut*>())
            if (shortcut->key() == QKeySequence(key)) {
                emit shortcut->activated();
                way += std::to_string(shown.form.tabMain.Selected()) + " ";
            }

    EXPECT_EQ(way, "5 6 0 6 5 ");
}

TEST_F(Accessibility, MenuBar_TextsAndOrder)
{
    std::string texts;
    for (const QAction* top : shown.window.menuBar()->actions()) {
        texts += top->text().toStdString() + ":";
        for (const QAction* entry : top->menu()->actions())
            texts += entry->isSeparator() ? " -" : " " + entry->text().toStdString() + ",";
        texts += "\n";
    }

    EXPECT_EQ(texts, "&File: &New, &Open..., &Save, &Read, &Close, - Sto&p, - &Reset Defaults..., - E&xit,\n"
                     "&Download: Characters..., TTS Voice Engines...,\n"
                     "&Help: &About...,\n");
}

TEST_F(Accessibility, MenuEntry_Chosen_IsClicked)
{
    int clicks = 0;
    shown.form.mnuFileSave.onClick = [&] { ++clicks; };
    shown.window.menuBar()->actions()[0]->menu()->actions()[2]->trigger();

    EXPECT_EQ(clicks, 1);
}

TEST_F(Accessibility, Window_ClosedByTheUser_AsksTheForm)
{
    ui::UnloadMode mode = ui::UnloadMode::Code;
    shown.form.onQueryUnload = [&](ui::UnloadMode how) {
        mode = how;
        return false;
    };
    shown.window.close();
    shown.Turn();

    EXPECT_EQ(mode, ui::UnloadMode::ControlMenu);
    EXPECT_TRUE(shown.window.isVisible());
}
