#include "FilledForm.h"
#include <QCheckBox>
#include <QComboBox>
#include <QEventLoop>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSlider>
#include <QStatusBar>
#include <QTabWidget>
#include <QTimer>
#include <QToolBar>

// Each kind of control both ways: what the program sets is shown, what the user does is reported. Keys stand for the user.
namespace {
void Press(QWidget* widget, int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QKeyEvent press(QEvent::KeyPress, key, modifiers, text), release(QEvent::KeyRelease, key, modifiers, text);
    QApplication::sendEvent(widget, &press);
    QApplication::sendEvent(widget, &release);
}

void Type(QWidget* widget, const QString& text)
{
    for (const QChar letter : text)
        Press(widget, 0, letter);
}

struct Mirror : testing::Test {
    ShownWindow shown;
};
}

// A tick may open a report, which waits for its answer.
TEST_F(Mirror, Timer_TickThatWaits_OthersTickMeanwhile)
{
    QEventLoop run;
    QMessageBox report;
    bool tickedMeanwhile = false;
    shown.form.tmrTimer.onTimer = [&] {
        if (report.isVisible()) {
            tickedMeanwhile = true;
            return report.reject();
        }
        report.exec();
        run.quit();
    };
    QTimer::singleShot(10000, &report, &QDialog::reject);
    shown.form.tmrTimer.SetEnabled(true);
    run.exec();
    shown.form.tmrTimer.SetEnabled(false);

    EXPECT_TRUE(tickedMeanwhile);
}

TEST_F(Mirror, CheckBox_SetByTheProgram_IsShown)
{
    shown.form.chkShowSplash.SetValue(1);
    shown.Turn();

    EXPECT_TRUE(shown.Native<QCheckBox>("chkShowSplash")->isChecked());
}

TEST_F(Mirror, CheckBox_TickedByTheUser_RunsItsClickOnce)
{
    int clicks = 0;
    shown.form.chkShowSplash.onClick = [&] { ++clicks; };
    Press(shown.Native("chkShowSplash"), Qt::Key_Space);
    shown.Turn();

    EXPECT_EQ(shown.form.chkShowSplash.Value(), 1);
    EXPECT_EQ(clicks, 1);
}

TEST_F(Mirror, CheckBox_ThatItsClickTakesBack_IsShownCleared)
{
    shown.form.chkShowSplash.onClick = [&] {
        shown.form.chkShowSplash.onClick = {};
        shown.form.chkShowSplash.SetValue(0);
    };
    Press(shown.Native("chkShowSplash"), Qt::Key_Space);
    shown.Turn();

    EXPECT_FALSE(shown.Native<QCheckBox>("chkShowSplash")->isChecked());
}

TEST_F(Mirror, Button_PressedByTheUser_IsClicked)
{
    int clicks = 0;
    shown.form.cmdReadClipboard.onClick = [&] { ++clicks; };
    Press(shown.Native("cmdReadClipboard"), Qt::Key_Space);

    EXPECT_EQ(clicks, 1);
}

TEST_F(Mirror, Combo_TextOfTheProgram_NeedsNoEntry)
{
    shown.form.cboSayTimeFormat.SetText("hh o'clock");
    shown.Turn();

    EXPECT_EQ(shown.Native<QComboBox>("cboSayTimeFormat")->currentText(), "hh o'clock");
    EXPECT_EQ(shown.Native<QComboBox>("cboSayTimeFormat")->currentIndex(), -1);
}

TEST_F(Mirror, Combo_TypedByTheUser_ChangesTheTextOncePerKey)
{
    int changes = 0;
    shown.form.cboSayTimeInterval.SetText("");
    shown.Turn();
    shown.form.cboSayTimeInterval.onChange = [&] { ++changes; };
    Type(shown.Native<QComboBox>("cboSayTimeInterval")->lineEdit(), "45");
    shown.Turn();

    EXPECT_EQ(shown.form.cboSayTimeInterval.Text(), "45");
    EXPECT_EQ(changes, 2);
}

TEST_F(Mirror, Combo_EntryChosenByTheUser_RunsItsClickOnce)
{
    int clicks = 0;
    shown.form.cboSayTime.onClick = [&] { ++clicks; };
    Press(shown.Native("cboSayTime"), Qt::Key_Down);
    shown.Turn();

    EXPECT_EQ(shown.form.cboSayTime.Index(), 0);
    EXPECT_EQ(shown.form.cboSayTime.Text(), "The time is now {Time}.");
    EXPECT_EQ(clicks, 1);
}

TEST_F(Mirror, Combo_WheelPassingOverIt_ChoosesNothing)
{
    QWidget* combo = shown.Native("cboSayTime");
    QWheelEvent wheel({5, 5}, combo->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(combo, &wheel);
    shown.Turn();

    EXPECT_EQ(shown.form.cboSayTime.Text(), "The time is now {Time}");
}

TEST_F(Mirror, DropDownList_WithoutSelection_ShowsNone)
{
    shown.Visit(2);
    shown.form.cboChr.SetIndex(2);
    shown.form.cboChr.SetIndex(-1);
    shown.Turn();

    EXPECT_EQ(shown.Native<QComboBox>("cboChr")->currentIndex(), -1);
    EXPECT_EQ(shown.Native<QComboBox>("cboChr")->currentText(), "");
}

TEST_F(Mirror, Combo_ListFilledAnew_ShowsTheNewEntries)
{
    shown.form.cboSayTimeFormat.Clear();
    shown.form.cboSayTimeFormat.Add("one");
    shown.form.cboSayTimeFormat.Add("two");
    shown.Turn();

    EXPECT_EQ(shown.Native<QComboBox>("cboSayTimeFormat")->count(), 2);
    EXPECT_EQ(shown.Native<QComboBox>("cboSayTimeFormat")->itemText(1), "two");
}

TEST_F(Mirror, List_FilledWithFiveHundredEntries_IsShownInOneTurn)
{
    shown.Visit(3);
    int rowsInserted = 0;
    shown.form.cboFontName.Clear();
    shown.Turn();
    auto* fonts = shown.Native<QComboBox>("cboFontName");
    QObject::connect(fonts->model(), &QAbstractItemModel::rowsInserted, fonts, [&] { ++rowsInserted; });
    for (int font = 0; font < 500; ++font)
        shown.form.cboFontName.Add("Family " + std::to_string(font));
    shown.Turn();

    EXPECT_EQ(fonts->count(), 500);
    EXPECT_EQ(fonts->itemText(499), "Family 499");
    EXPECT_LE(rowsInserted, 500);
}

TEST_F(Mirror, ListBox_RowChosenByTheUser_IsSelected)
{
    shown.Visit(2);
    Press(shown.Native("lstTTS"), Qt::Key_Down);

    EXPECT_EQ(shown.form.lstTTS.Index(), 3);
}

TEST_F(Mirror, ListBox_SelectedByTheProgram_IsShownAndRunsNoSecondClick)
{
    int clicks = 0;
    shown.Visit(2);
    shown.form.lstTTS.onClick = [&] { ++clicks; };
    shown.form.lstTTS.SetIndex(100);
    shown.Turn();

    EXPECT_EQ(shown.Native<QListWidget>("lstTTS")->currentRow(), 100);
    EXPECT_EQ(clicks, 1);
}

TEST_F(Mirror, ListBox_DoubleClick_IsReported)
{
    int doubleClicks = 0;
    shown.Visit(2);
    shown.form.lstTTS.onDoubleClick = [&] { ++doubleClicks; };
    auto* list = shown.Native<QListWidget>("lstTTS");
    emit list->itemDoubleClicked(list->item(5));

    EXPECT_EQ(doubleClicks, 1);
}

TEST_F(Mirror, Slider_MovedByTheUser_ChangesItsValue)
{
    shown.form.tabTTS.Select(1);
    shown.Visit(2);
    Press(shown.Native("sldAdvSpeak(0)"), Qt::Key_Right);

    EXPECT_EQ(shown.form.sldAdvSpeak[0].Value(), 103);
}

TEST_F(Mirror, Slider_SetByTheProgram_IsShownAndReportsNothing)
{
    int changes = 0;
    shown.Visit(2);
    shown.form.sldAdvSpeak[2].onChange = [&] { ++changes; };
    shown.form.sldAdvSpeak[2].SetValue(65535);
    shown.Turn();

    EXPECT_EQ(shown.Native<QSlider>("sldAdvSpeak(2)")->value(), 65535);
    EXPECT_EQ(changes, 1);
}

TEST_F(Mirror, Progress_OfTheVoices_IsShown)
{
    shown.Visit(2);
    shown.form.pbrTTSEngines.SetMaximum(131);
    shown.form.pbrTTSEngines.SetValue(48);
    shown.form.pbrTTSEngines.SetVisible(true);
    shown.form.lblTTSEngines.SetVisible(true);
    shown.Turn();

    EXPECT_EQ(shown.Native<QProgressBar>("pbrTTSEngines")->value(), 48);
    EXPECT_EQ(shown.Native<QProgressBar>("pbrTTSEngines")->maximum(), 131);
    EXPECT_TRUE(shown.Native("lblTTSEngines")->isVisible());
}

TEST_F(Mirror, Tab_ChosenByTheUser_IsSelectedOnce)
{
    int clicks = 0;
    shown.form.tabMain.onClick = [&] { ++clicks; };
    shown.Native<QTabWidget>("tabMain")->setCurrentIndex(5);
    shown.Turn();

    EXPECT_EQ(shown.form.tabMain.Selected(), 5);
    EXPECT_EQ(clicks, 1);
}

TEST_F(Mirror, Page_NotYetVisited_IsNotMade)
{
    EXPECT_EQ(shown.Native("cboChar"), nullptr);
    shown.Visit(1);
    EXPECT_NE(shown.Native("cboChar"), nullptr);
    EXPECT_EQ(shown.Native("lstTTS"), nullptr);
}

TEST_F(Mirror, TextBox_TypedByTheUser_ChangesTheTextAndKeepsTheCaret)
{
    shown.form.chkCustomSize.SetValue(1);
    shown.form.txtSize[0].SetEnabled(true);
    shown.form.txtSize[0].SetText("");
    shown.Visit(1);
    Type(shown.Native("txtSize(0)"), "20");
    shown.Turn();
    Type(shown.Native("txtSize(0)"), "4");
    shown.Turn();

    EXPECT_EQ(shown.form.txtSize[0].Text(), "204");
    EXPECT_EQ(shown.form.txtSize[0].SelectionStart(), 3);
    EXPECT_EQ(shown.Native<QLineEdit>("txtSize(0)")->cursorPosition(), 3);
}

TEST_F(Mirror, TextBox_Return_Commits)
{
    int commits = 0;
    shown.form.txtUserName.onCommit = [&] { ++commits; };
    shown.Visit(5);
    Press(shown.Native("txtUserName"), Qt::Key_Return);

    EXPECT_EQ(commits, 1);
}

TEST_F(Mirror, TextBox_SelectedByTheProgram_IsShownSelected)
{
    shown.Visit(5);
    shown.form.txtUserName.SelectAll();
    shown.Turn();

    EXPECT_EQ(shown.Native<QLineEdit>("txtUserName")->selectedText(), "Ada");
}

TEST_F(Mirror, TextBox_WhenTheFocusComes_IsEntered)
{
    int entered = 0;
    shown.form.txtUserName.onEnter = [&] {
        ++entered;
        shown.form.txtUserName.SelectAll();
    };
    shown.Visit(5);
    shown.form.txtUserName.SetFocus();
    shown.Turn();
    shown.Turn();

    EXPECT_EQ(entered, 1);
    EXPECT_EQ(shown.Native<QLineEdit>("txtUserName")->selectedText(), "Ada");
}

TEST_F(Mirror, TextArea_LineBreaks_AreTheProgramsOwn)
{
    shown.Visit(5);
    auto* area = shown.Native<QPlainTextEdit>("txtGreeting(0)");
    shown.form.txtGreeting[0].SetText("One\r\nTwo");
    shown.Turn();
    EXPECT_EQ(area->toPlainText(), "One\nTwo");

    area->moveCursor(QTextCursor::End);
    area->insertPlainText("\nThree");

    EXPECT_EQ(shown.form.txtGreeting[0].Text(), "One\r\nTwo\r\nThree");
    EXPECT_EQ(shown.form.txtGreeting[0].SelectionStart(), 15);
}

TEST_F(Mirror, TextArea_SelectionBeyondAnEmoji_CountsCharacters)
{
    shown.Visit(5);
    shown.form.txtGreeting[0].SetText("\xF0\x9F\x99\x82\r\nab");
    shown.form.txtGreeting[0].Select(3, 1);
    shown.Turn();

    EXPECT_EQ(shown.Native<QPlainTextEdit>("txtGreeting(0)")->textCursor().selectedText(), "a");
    EXPECT_EQ(shown.form.txtGreeting[0].SelectionStart(), 3);
    EXPECT_EQ(shown.form.txtGreeting[0].SelectionLength(), 1);
}

TEST_F(Mirror, Label_CaptionAndStyle_AreShown)
{
    shown.Visit(3);
    shown.form.lblFontDisplay.SetStyle({.fontName = "DejaVu Sans Mono", .fontSize = 20, .bold = true});
    shown.form.lblFontDisplay.SetCaption("New");
    shown.Turn();
    const QLabel* label = shown.Native<QLabel>("lblFontDisplay");

    EXPECT_EQ(label->text(), "New");
    EXPECT_EQ(label->font().family(), "DejaVu Sans Mono");
    EXPECT_EQ(label->font().pointSizeF(), 20);
    EXPECT_TRUE(label->font().bold());
}

TEST_F(Mirror, Link_ReturnPressed_IsClicked)
{
    int clicks = 0;
    shown.form.lblURL[1].onClick = [&] { ++clicks; };
    shown.Visit(6);
    Press(shown.Native("lblURL(1)"), Qt::Key_Return);

    EXPECT_EQ(clicks, 1);
}

TEST_F(Mirror, Picture_SpacePressed_IsClicked)
{
    int clicks = 0;
    shown.form.imgParlune.onClick = [&] { ++clicks; };
    shown.Visit(6);
    Press(shown.Native("imgParlune"), Qt::Key_Space);

    EXPECT_EQ(clicks, 1);
}

TEST_F(Mirror, ToolBar_Button_IsReportedByItsKey)
{
    std::string pressed;
    shown.form.tlbToolbar.onButtonClick = [&](const std::string& key) { pressed += key; };
    shown.Visit(4);
    for (QAction* action : shown.Native("tlbToolbar")->actions())
        action->trigger();

    EXPECT_EQ(pressed, "NEWOPENSAVEREADSTOP");
}

TEST_F(Mirror, StatusBar_Text_IsShown)
{
    shown.form.staStatus.SetText("Nibbin: reading");
    shown.Turn();

    EXPECT_EQ(shown.Native("staStatus")->findChild<QLabel*>()->text(), "Nibbin: reading");
}

TEST_F(Mirror, Frame_Disabled_KeepsTheKeyboardOut)
{
    shown.form.fraStartup.SetEnabled(false);
    shown.Turn();

    EXPECT_FALSE(shown.Native("chkShowSplash")->isEnabled());
    EXPECT_TRUE(shown.form.chkShowSplash.Enabled());
}

TEST_F(Mirror, Control_InvisibleDisabledWithToolTip_IsShownSo)
{
    shown.form.tabTTS.Select(1);
    shown.Visit(2);

    EXPECT_FALSE(shown.Native("pbrTTSEngines")->isVisible());
    EXPECT_EQ(shown.Native("chkAdvSpkTags(3)")->toolTip(), "Char (Chr)");
    shown.form.chkAdvSpkTags[3].SetEnabled(false);
    shown.Turn();
    EXPECT_FALSE(shown.Native("chkAdvSpkTags(3)")->isEnabled());
}

TEST_F(Mirror, Focus_SetByTheProgram_IsTaken)
{
    shown.form.chkStartWithWindows.SetFocus();
    shown.Turn();

    EXPECT_EQ(shown.window.focusWidget(), shown.Native("chkStartWithWindows"));
}

TEST_F(Mirror, Focus_SetOnAPageThatIsJustBeingChosen_IsTaken)
{
    shown.form.tabMain.onClick = [&] { shown.form.cboChar.SetFocus(); };
    shown.form.tabMain.Select(1);
    shown.Turn();

    EXPECT_EQ(shown.window.focusWidget(), shown.Native("cboChar"));
}

TEST_F(Mirror, Focus_SetOnAPageWhileAnotherOneGoesWithTheFocus_IsTaken)
{
    shown.window.activateWindow();
    shown.form.chkStartWithWindows.SetFocus();
    shown.Turn();
    shown.form.tabMain.onClick = [&] { shown.form.cboChar.SetFocus(); };
    shown.form.tabMain.Select(1);
    shown.Turn();

    EXPECT_TRUE(shown.form.cboChar.HasFocus());
    EXPECT_EQ(shown.window.focusWidget(), shown.Native("cboChar"));
}

TEST_F(Mirror, Focus_MovedByTheTabKey_IsReported)
{
    shown.window.activateWindow();
    shown.form.chkStartWithWindows.SetFocus();
    shown.Turn();
    Press(shown.Native("chkStartWithWindows"), Qt::Key_Tab);
    shown.Turn();

    EXPECT_TRUE(shown.form.chkMinimizeOnClose.HasFocus());
}

TEST_F(Mirror, WindowGone_LeavesTheControlsAlone)
{
    {
        FilledForm filled;
        {
            CMainWindowPeer window(
                filled.form, [] { return true; }, [] {});
            filled.form.SetVisible(true);
            ShownWindow::Turn();
        }
        filled.form.chkShowSplash.SetValue(1);
        filled.form.tabMain.Select(3);
        EXPECT_EQ(filled.form.chkShowSplash.Value(), 1);
    }
}

TEST_F(Mirror, Window_NeverShown_HasNoInside)
{
    FilledForm filled;
    const CMainWindowPeer window(
        filled.form, [] { return true; }, [] {});
    filled.form.Load();
    ShownWindow::Turn();

    EXPECT_EQ(window.Inside(), nullptr);
}

TEST_F(Mirror, Timer_Enabled_Ticks)
{
    int ticks = 0;
    QEventLoop loop;
    shown.form.tmrTimer.onTimer = [&] {
        ++ticks;
        loop.quit();
    };
    shown.form.tmrTimer.SetEnabled(true);
    loop.exec();
    shown.form.tmrTimer.SetEnabled(false);

    EXPECT_EQ(ticks, 1);
}
