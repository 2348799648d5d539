#include "platform/linux/LinuxServices.h"
#include "TemporaryHome.h"
#include "platform/Failure.h"
#include "platform/linux/EndSignals.h"
#include "platform/linux/LinuxClipboard.h"
#include "platform/linux/LinuxFileDialogs.h"
#include "platform/linux/LinuxLocale.h"
#include "platform/linux/LinuxMessageBoxes.h"
#include "platform/linux/LinuxShell.h"
#include "platform/linux/LinuxTrayIcon.h"
#include "platform/linux/SingleInstance.h"
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <csignal>

using namespace std::string_literals;

namespace platform::linuxdesktop {
namespace {
void PutText(const QString& text) { QGuiApplication::clipboard()->setText(text); }

// Does something with the modal dialog that opens next.
template <class Dialog> void WithNextDialog(std::function<void(Dialog&)> act)
{
    QTimer::singleShot(0, [act = std::move(act)] {
        if (auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget()))
            act(*dialog);
        else
            WithNextDialog<Dialog>(act);
    });
}

// Lets events run until something holds; false when it does not for ten seconds.
bool RunUntil(const std::function<bool()>& holds)
{
    CLinuxEventPump pump;
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (std::chrono::steady_clock::now() < limit) {
        if (holds())
            return true;
        pump.WaitForEvents(20);
    }
    return false;
}

void RunFor(int milliseconds)
{
    CLinuxEventPump pump;
    QElapsedTimer time;
    for (time.start(); time.elapsed() < milliseconds;)
        pump.WaitForEvents(static_cast<int>(milliseconds - time.elapsed()));
}
}

TEST(LinuxClipboard, Text_AnyLineEnds_AreCrLf)
{
    PutText("a\nb\r\nc");
    EXPECT_TRUE(CLinuxClipboard().HasText());
    EXPECT_EQ(CLinuxClipboard().Text(), "a\r\nb\r\nc");
}

TEST(LinuxClipboard, HasText_PictureOrNothing_IsFalse)
{
    QGuiApplication::clipboard()->setImage(QImage(2, 2, QImage::Format_RGB32));
    EXPECT_FALSE(CLinuxClipboard().HasText());
    EXPECT_EQ(CLinuxClipboard().Text(), "");
    QGuiApplication::clipboard()->clear();
    EXPECT_FALSE(CLinuxClipboard().HasText());
}

TEST(LinuxClipboard, HasText_FormattedTextOnly_IsFalse)
{
    auto* content = new QMimeData;
    content->setHtml("<b>x</b>");
    QGuiApplication::clipboard()->setMimeData(content);
    EXPECT_FALSE(CLinuxClipboard().HasText());
}

TEST(LinuxClipboard, IsSecret_CopyMarkedByAPasswordManager_IsTrueAndTheTextIsThere)
{
    auto* content = new QMimeData;
    content->setText("my password");
    content->setData("x-kde-passwordManagerHint", "secret");
    QGuiApplication::clipboard()->setMimeData(content);

    EXPECT_TRUE(CLinuxClipboard().IsSecret());
    EXPECT_EQ(CLinuxClipboard().Text(), "my password");
}

TEST(LinuxClipboard, IsSecret_CopyMarkedAsPublicOrNotAtAll_IsFalse)
{
    auto* content = new QMimeData;
    content->setText("a text");
    content->setData("x-kde-passwordManagerHint", "public");
    QGuiApplication::clipboard()->setMimeData(content);
    EXPECT_FALSE(CLinuxClipboard().IsSecret());

    QGuiApplication::clipboard()->setText("a text");
    EXPECT_FALSE(CLinuxClipboard().IsSecret());
}

TEST(LinuxClipboard, CanWatch_OffScreen_IsFalse) { EXPECT_FALSE(CLinuxClipboard().CanWatch()); }

TEST(LinuxClipboard, Watch_LaterChanges_AreToldOnceEach)
{
    PutText("before");
    CLinuxClipboard clipboard;
    int former = 0, changes = 0;
    clipboard.Watch([&] { ++former; });
    clipboard.Watch([&] { ++changes; });
    RunFor(50);
    EXPECT_EQ(changes, 0);
    PutText("one");
    EXPECT_EQ(changes, 0);
    EXPECT_TRUE(RunUntil([&] { return changes == 1; }));
    PutText("one");
    EXPECT_TRUE(RunUntil([&] { return changes == 2; }));
    RunFor(250);
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(former, 0);
}

TEST(LinuxClipboard, Watch_ManyChangesAtOnce_AreToldOnceAndTheLastOneIsThere)
{
    CLinuxClipboard clipboard;
    std::vector<std::string> texts;
    clipboard.Watch([&] { texts.push_back(clipboard.Text()); });
    for (int number = 1; number <= 1000; ++number)
        PutText(QString::number(number));
    RunFor(300);
    EXPECT_EQ(texts, (std::vector<std::string>{"1000"}));
}

// A thousand copies in a second cost some ten calls, and the one that stays is among them.
TEST(LinuxClipboard, Watch_AFlood_IsToldTenTimesASecondAtMost)
{
    CLinuxClipboard clipboard;
    std::vector<std::string> texts;
    clipboard.Watch([&] { texts.push_back(clipboard.Text()); });
    QElapsedTimer time;
    time.start();
    for (int number = 1; number <= 1000; ++number) {
        PutText(QString::number(number));
        RunFor(1);
    }
    const auto most = static_cast<std::size_t>(time.elapsed() / 100 + 3);
    RunFor(300);
    EXPECT_LE(texts.size(), most);
    EXPECT_GE(texts.size(), 3u);
    EXPECT_EQ(texts.back(), "1000");
}

TEST(LinuxClipboard, StopWatching_BeforeAChangeIsTold_TellsNothing)
{
    CLinuxClipboard clipboard;
    int changes = 0;
    clipboard.Watch([&] { ++changes; });
    PutText("one");
    clipboard.StopWatching();
    PutText("two");
    RunFor(250);
    EXPECT_EQ(changes, 0);
}

TEST(LinuxClipboard, Watch_FromTheEndOfAnother_DoesNotTellTheChangesBefore)
{
    CLinuxClipboard clipboard;
    int changes = 0;
    clipboard.Watch([] {});
    PutText("one");
    clipboard.Watch([&] { ++changes; });
    RunFor(250);
    EXPECT_EQ(changes, 0);
}

TEST(LinuxClipboard, StopWatching_FromTheCallItself_IsSafe)
{
    CLinuxClipboard clipboard;
    int changes = 0;
    clipboard.Watch([&] {
        clipboard.StopWatching();
        ++changes;
    });
    PutText("one");
    EXPECT_TRUE(RunUntil([&] { return changes == 1; }));
    PutText("two");
    RunFor(250);
    EXPECT_EQ(changes, 1);
}

TEST(LinuxClipboard, IsSecret_MarkedByAPasswordManager_IsTrue)
{
    const auto put = [](const char* hint) {
        auto* content = new QMimeData;
        content->setText("hunter2");
        content->setData("x-kde-passwordManagerHint", hint);
        QGuiApplication::clipboard()->setMimeData(content);
        return CLinuxClipboard().IsSecret();
    };
    EXPECT_TRUE(put("secret"));
    EXPECT_FALSE(put("public"));
    EXPECT_FALSE(put(""));
    EXPECT_EQ(CLinuxClipboard().Text(), "hunter2");
    PutText("open");
    EXPECT_FALSE(CLinuxClipboard().IsSecret());
}

TEST(LinuxClipboard, CanWatch_WithoutAnXServer_IsFalse) { EXPECT_FALSE(CLinuxClipboard().CanWatch()); }

TEST(LinuxMessageBoxes, Show_Text_IsPlainSelectableAndTitled)
{
    QString text, title;
    bool selectable = false;
    WithNextDialog<QMessageBox>([&](QMessageBox& box) {
        text = box.text();
        title = box.windowTitle();
        selectable = box.textFormat() == Qt::PlainText && box.textInteractionFlags().testFlag(Qt::TextSelectableByMouse);
        box.accept();
    });
    CLinuxMessageBoxes().Show({.text = "<b>one</b>\r\ntwo", .title = "Parlune"});

    EXPECT_EQ(text.toStdString(), "<b>one</b>\ntwo");
    EXPECT_EQ(title.toStdString(), "Parlune");
    EXPECT_TRUE(selectable);
}

TEST(LinuxMessageBoxes, Show_ClosedByTheUser_IsTheRefusingAnswer)
{
    const auto answerOfClosing = [](BoxButtons buttons) {
        WithNextDialog<QMessageBox>([](QMessageBox& box) { box.close(); });
        return CLinuxMessageBoxes().Show({.text = "?", .title = "Parlune", .buttons = buttons});
    };
    EXPECT_EQ(answerOfClosing(BoxButtons::Ok), BoxAnswer::Ok);
    EXPECT_EQ(answerOfClosing(BoxButtons::OkCancel), BoxAnswer::Cancel);
    EXPECT_EQ(answerOfClosing(BoxButtons::YesNo), BoxAnswer::No);
}

TEST(LinuxMessageBoxes, Show_Return_PressesTheDefaultButton)
{
    const auto answerOfDefault = [](bool second) {
        WithNextDialog<QMessageBox>([](QMessageBox& box) { box.defaultButton()->click(); });
        return CLinuxMessageBoxes().Show(
            {.text = "?", .title = "Parlune", .buttons = BoxButtons::YesNo, .secondButtonIsDefault = second});
    };
    EXPECT_EQ(answerOfDefault(false), BoxAnswer::Yes);
    EXPECT_EQ(answerOfDefault(true), BoxAnswer::No);
}

TEST(NameFilters, Pairs_AreTheToolkitsFilters)
{
    const std::string pairs = "Text Documents (*.txt)\0*.txt\0All Files\0*.*\0Both\0*.txt; *.acs"s;
    EXPECT_EQ(NameFilters(pairs), (QStringList{"Text Documents (*.txt)", "All Files (*)", "Both (*.txt *.acs)"}));
    EXPECT_EQ(NameFilters(""), QStringList());
    EXPECT_EQ(NameFilters("half a pair"), QStringList());
}

TEST(LinuxFileDialogs, Ask_Cancelled_IsEmpty)
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    WithNextDialog<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    FileDialog dialog;
    dialog.title = "Open";
    EXPECT_EQ(CLinuxFileDialogs().Ask(dialog), "");
}

TEST(LinuxFileDialogs, Ask_NewNameToSave_GetsTheDefaultExtension)
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const CTemporaryFolder folder;
    QString filter;
    WithNextDialog<QFileDialog>([&](QFileDialog& dialog) {
        filter = dialog.selectedNameFilter();
        dialog.findChild<QLineEdit*>("fileNameEdit")->setText("notes");
        static_cast<QDialog&>(dialog).accept();
    });
    FileDialog wanted;
    wanted.mode = FileDialog::Mode::Save;
    wanted.filter = "Text\0*.txt\0All\0*.*"s;
    wanted.filterIndex = 7;
    wanted.initialFolder = folder.Path();
    wanted.defaultExtension = "txt";
    const std::string path = CLinuxFileDialogs().Ask(wanted);
    EXPECT_EQ(path, folder.Path("notes.txt"));
    EXPECT_EQ(filter.toStdString(), "All (*)");
}

// A folder, and a dialog in which a name is typed.
struct TypedName {
    const CTemporaryFolder folder;
    FileDialog dialog;
    bool wasRefused = false;

    explicit TypedName(FileDialog::Mode mode)
    {
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        dialog.mode = mode;
        dialog.initialFolder = folder.Path();
        dialog.defaultExtension = "TXT";
        dialog.fileMustExist = mode == FileDialog::Mode::Open;
        dialog.pathMustExist = mode == FileDialog::Mode::Save;
    }
    // What is answered. A dialog that does not take the name is cancelled; what it says is answered with OK.
    std::string Ask(const std::string& name)
    {
        wasRefused = false;
        WithNextDialog<QFileDialog>([&](QFileDialog& native) {
            native.findChild<QLineEdit*>("fileNameEdit")->setText(QString::fromStdString(name));
            QTimer answer;
            QObject::connect(&answer, &QTimer::timeout, [] {
                if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
                    box->accept();
            });
            answer.start(10);
            static_cast<QDialog&>(native).accept();
            if (native.isVisible()) {
                wasRefused = true;
                native.reject();
            }
        });
        return CLinuxFileDialogs().Ask(dialog);
    }
    int FailureOf(const std::string& name)
    {
        try {
            Ask(name);
        } catch (const CFailure& failure) {
            return failure.Number();
        }
        return 0;
    }
};

TEST(LinuxFileDialogs, Ask_ExistingFileWithoutExtension_StaysAsItIs)
{
    TypedName typed(FileDialog::Mode::Open);
    typed.folder.Write("README", "x");
    typed.folder.Write("README.TXT", "y");
    EXPECT_EQ(typed.Ask("README"), typed.folder.Path("README"));
}

TEST(LinuxFileDialogs, Ask_NameToOpenWithoutItsExtension_FindsTheFile)
{
    TypedName typed(FileDialog::Mode::Open);
    typed.folder.Write("notes.TXT", "x");
    typed.folder.Write("letter.txt", "x");
    EXPECT_EQ(typed.Ask("notes"), typed.folder.Path("notes.TXT"));
    EXPECT_EQ(typed.Ask("letter"), typed.folder.Path("letter.txt"));
}

TEST(LinuxFileDialogs, Ask_NameToOpenThatIsNotThere_IsRefused)
{
    TypedName typed(FileDialog::Mode::Open);
    typed.folder.Write("notes.old.TXT", "x");
    EXPECT_EQ(typed.Ask("letter"), "");
    EXPECT_TRUE(typed.wasRefused);
    EXPECT_EQ(typed.Ask("notes.old"), "");  // It has an extension.
    EXPECT_TRUE(typed.wasRefused);
}

TEST(LinuxFileDialogs, Ask_NewNameWhereNoneMustExist_GetsTheDefaultExtension)
{
    TypedName typed(FileDialog::Mode::Open);
    typed.dialog.fileMustExist = false;
    EXPECT_EQ(typed.Ask("notes"), typed.folder.Path("notes.TXT"));
}

TEST(LinuxFileDialogs, Ask_NameToSaveInAFolderThatIsNotThere_IsRefused)
{
    TypedName typed(FileDialog::Mode::Save);
    EXPECT_EQ(typed.Ask("none/notes"), "");
    EXPECT_TRUE(typed.wasRefused);
    typed.folder.MakeFolder("some");
    EXPECT_EQ(typed.Ask("some/notes"), typed.folder.Path("some/notes.TXT"));
    EXPECT_FALSE(typed.wasRefused);
}

TEST(LinuxFileDialogs, Ask_PathOfTheLimit_CountsCharacters)
{
    TypedName typed(FileDialog::Mode::Save);
    const std::string name = "\u00e4\u00f6\U0001f600.txt";
    typed.dialog.fileLimit = typed.folder.Path().size() + 1 + 7;
    EXPECT_EQ(typed.Ask(name), typed.folder.Path(name));
}

TEST(LinuxFileDialogs, Ask_PathBeyondTheLimit_IsABadFileName)
{
    TypedName typed(FileDialog::Mode::Save);
    typed.dialog.fileLimit = typed.folder.Path().size() + 1 + 6;
    EXPECT_EQ(typed.FailureOf("abc.txt"), 52);
    EXPECT_FALSE(typed.wasRefused);
    typed.dialog.fileLimit = 256;
    EXPECT_EQ(typed.FailureOf(std::string(300, 'a')), 52);
}

// It may have been removed since it was chosen last.
TEST(LinuxFileDialogs, Ask_InAFolderThatIsNotThere_StartsInOneThatIs)
{
    TypedName typed(FileDialog::Mode::Save);
    typed.dialog.initialFolder = typed.folder.Path("none/");
    QString shown;
    WithNextDialog<QFileDialog>([&](QFileDialog& native) {
        shown = native.directory().absolutePath();
        native.reject();
    });
    CLinuxFileDialogs().Ask(typed.dialog);
    EXPECT_TRUE(QFileInfo(shown).isDir()) << shown.toStdString();
}

TEST(LinuxShell, StartProgram_Unknown_IsFileNotFound)
{
    for (const char* command :
         {"parlune-no-such-program x", "/no/such/program", "/etc", "/etc/passwd", "", "https://parlune.example/"}) {
        try {
            CLinuxShell().StartProgram(command);
            ADD_FAILURE() << command;
        } catch (const CFailure& failure) {
            EXPECT_EQ(failure.Number(), 53) << command;
        }
    }
}

TEST(LinuxShell, StartProgram_QuotedPathAndArguments_AreHandedOver)
{
    const CTemporaryFolder folder;
    folder.Write("my program", "#!/bin/sh\nprintf '%s|' \"$@\" >\"$0.part\"\nmv \"$0.part\" \"$0.out\"\n");
    std::filesystem::permissions(folder.Path("my program"), std::filesystem::perms::owner_all);
    CLinuxShell().StartProgram("\"" + folder.Path("my program") + "\" /p \"a b\"");

    EXPECT_TRUE(RunUntil([&] { return folder.Has("my program.out"); }));
    EXPECT_EQ(folder.Read("my program.out"), "/p|a b|");
}

TEST(LinuxShell, Open_WhatIsNotThere_HasItsCode)
{
    const CTemporaryFolder folder;
    EXPECT_EQ(CLinuxShell().Open(folder.Path("none.htm"), ""), 2);
    EXPECT_EQ(CLinuxShell().Open(folder.Path("none/none.htm"), ""), 3);
}

TEST(LinuxShell, Open_WebAddress_GoesToTheDesktopsOpener)
{
    const CTemporaryFolder folder;
    CEnvironmentChange environment;
    folder.Write("xdg-open", "#!/bin/sh\nprintf '%s' \"$1\" >\"$0.part\"\nmv \"$0.part\" \"$0.out\"\n");
    std::filesystem::permissions(folder.Path("xdg-open"), std::filesystem::perms::owner_all);
    environment.Set("PATH", folder.Path() + ":" + ::getenv("PATH"));

    EXPECT_GT(CLinuxShell().Open("https://parlune.example/a?b=1&c=2", ""), 32);
    EXPECT_TRUE(RunUntil([&] { return folder.Has("xdg-open.out"); }));
    EXPECT_EQ(folder.Read("xdg-open.out"), "https://parlune.example/a?b=1&c=2");
}

TEST(LinuxFonts, EnumerateFamilies_Zero_Stops)
{
    int calls = 0;
    CLinuxFonts().EnumerateFamilies([&](std::string_view faceName) {
        EXPECT_EQ(faceName.back(), '\0');
        ++calls;
        return 0;
    });
    EXPECT_LE(calls, 1);
}

TEST(LinuxClock, Now_IsADateOfThisProgramsTime)
{
    const LocalTime now = CLinuxClock().Now();
    EXPECT_GE(now.year, 2024);
    EXPECT_TRUE(now.month >= 1 && now.month <= 12 && now.day >= 1 && now.day <= 31 && now.weekday >= 0 && now.weekday <= 6);
}

TEST(LinuxLocale, Names_English)
{
    const CLinuxLocale locale(QLocale("en_US"));
    EXPECT_EQ(locale.MonthName(11, false), "November");
    EXPECT_EQ(locale.MonthName(11, true), "Nov");
    EXPECT_EQ(locale.WeekdayName(0, false), "Sunday");
    EXPECT_EQ(locale.WeekdayName(6, true), "Sat");
    EXPECT_EQ(locale.AmText(), "AM");
    EXPECT_EQ(locale.ShortDateFormat(), "m/d/yy");
    EXPECT_EQ(locale.LongDateFormat(), "dddd, mmmm d, yyyy");
    EXPECT_EQ(locale.LongTimeFormat(), "h:nn:ss AM/PM");
}

TEST(LinuxLocale, Names_German)
{
    const CLinuxLocale locale(QLocale("de_DE"));
    EXPECT_EQ(locale.MonthName(3, false), "März");
    EXPECT_EQ(locale.WeekdayName(1, false), "Montag");
    EXPECT_EQ(locale.LongTimeFormat(), "hh:nn:ss");
}

TEST(PictureFormat, QuotedText_StaysQuoted)
{
    EXPECT_EQ(PictureFormat("d 'de' MMMM 'de' yyyy"), "d \"de\" mmmm \"de\" yyyy");
    EXPECT_EQ(PictureFormat("h 'o''clock"), "h \"o\"\"clock\"");
    EXPECT_EQ(PictureFormat("h''mm ap t"), "h'nn AM/PM");
}

TEST(LinuxRandomNumbers, Seed_Same_GivesTheSameNumbersBelowOne)
{
    CLinuxRandomNumbers first, second;
    first.Seed(12.5);
    second.Seed(12.5);
    for (int i = 0; i < 100; ++i) {
        const double number = first.Next();
        EXPECT_EQ(number, second.Next());
        EXPECT_TRUE(number >= 0 && number < 1);
    }
}

TEST(LinuxScreen, Size_IsPixelsTimesUnits)
{
    const CLinuxScreen screen;
    EXPECT_GT(screen.WidthInUnits() / screen.UnitsPerPixelX(), 0);
    EXPECT_EQ(screen.WidthInUnits() % screen.UnitsPerPixelX(), 0);
    EXPECT_EQ(screen.HeightInUnits() % screen.UnitsPerPixelY(), 0);
}

TEST(LinuxScreen, SetPointer_HourglassTwice_IsGoneWithOneDefault)
{
    CLinuxScreen screen;
    screen.SetPointer(Pointer::Hourglass);
    screen.SetPointer(Pointer::Hourglass);
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    screen.SetPointer(Pointer::Default);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST(LinuxEventPump, WaitForEvents_NothingHappens_ReturnsInTime)
{
    CLinuxEventPump pump;
    pump.RunPendingEvents();
    const auto start = std::chrono::steady_clock::now();
    pump.WaitForEvents(30);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

TEST(LinuxEventPump, RunPendingEvents_PostedCall_Runs)
{
    bool ran = false;
    QTimer::singleShot(0, [&] { ran = true; });
    CLinuxEventPump().RunPendingEvents();
    EXPECT_TRUE(ran);
}

TEST(LinuxEventPump, CallLater_ComesOnceAsAnEvent)
{
    CLinuxEventPump pump;
    int calls = 0;
    pump.CallLater(0, [&] { ++calls; });
    EXPECT_EQ(calls, 0);
    pump.RunPendingEvents();
    pump.RunPendingEvents();
    EXPECT_EQ(calls, 1);
}

TEST(LinuxEventPump, CallLater_ATime_ComesAfterIt)
{
    CLinuxEventPump pump;
    QElapsedTimer time;
    time.start();
    qint64 came = 0;
    pump.CallLater(50, [&] { came = time.elapsed(); });
    while (came == 0 && time.elapsed() < 5000)
        pump.WaitForEvents(10);
    EXPECT_GE(came, 45);
}

TEST(LinuxEventPump, CallLater_ThePumpIsGone_NeverComes)
{
    bool came = false;
    CLinuxEventPump().CallLater(0, [&] { came = true; });
    CLinuxEventPump().RunPendingEvents();
    EXPECT_FALSE(came);
}

class LinuxTrayIcon : public testing::Test {
protected:
    void Add()
    {
        icon.SetIcon(QIcon(QPixmap(16, 16)));
        icon.Add("Parlune", [this](std::int32_t message) { messages.push_back(message); });
    }
    CLinuxTrayIcon icon;
    std::vector<std::int32_t> messages;
};

TEST_F(LinuxTrayIcon, Activated_TwoTriggers_AreOneDoubleClick)
{
    Add();
    icon.Activated(QSystemTrayIcon::Trigger);
    EXPECT_EQ(messages, std::vector<std::int32_t>{});
    icon.Activated(QSystemTrayIcon::Trigger);
    EXPECT_EQ(messages, std::vector<std::int32_t>{515});
    icon.Activated(QSystemTrayIcon::Trigger);
    EXPECT_EQ(messages, std::vector<std::int32_t>{515});
}

TEST_F(LinuxTrayIcon, Activated_TriggerThenDoubleClick_IsOneDoubleClick)
{
    Add();
    icon.Activated(QSystemTrayIcon::Trigger);
    icon.Activated(QSystemTrayIcon::DoubleClick);
    EXPECT_EQ(messages, std::vector<std::int32_t>{515});
}

TEST_F(LinuxTrayIcon, Activated_ForTheMenu_IsLeftToTheDesktop)
{
    Add();
    icon.Activated(QSystemTrayIcon::Context);
    EXPECT_EQ(messages, std::vector<std::int32_t>{});
}

TEST_F(LinuxTrayIcon, Activated_AfterItsRemoval_TellsNobody)
{
    Add();
    icon.Delete();
    icon.Activated(QSystemTrayIcon::DoubleClick);
    EXPECT_EQ(messages, std::vector<std::int32_t>{});
}

TEST_F(LinuxTrayIcon, Add_NoNotificationArea_IsAddedButNotReachable)
{
    Add();
    EXPECT_TRUE(icon.IsAdded());
    EXPECT_FALSE(icon.IsReachable());
    icon.Delete();
    EXPECT_FALSE(icon.IsAdded());
}

TEST(EndSignals, Terminate_CallsFromTheEventLoop)
{
    int asked = 0;
    const CEndSignals endSignals([&] { ++asked; });
    ::raise(SIGTERM);
    EXPECT_EQ(asked, 0);
    EXPECT_TRUE(RunUntil([&] { return asked == 1; }));
}

TEST(SingleInstance, Claim_Second_AsksTheFirst)
{
    const CTemporaryFolder folder;
    CSingleInstance first(folder.Path("lock"), folder.Path("socket"));
    int asked = 0;
    first.OnAsked([&] { ++asked; });
    ASSERT_EQ(first.Claim(100), CSingleInstance::Outcome::First);

    const pid_t child = ::fork();
    if (child == 0) {
        CSingleInstance second(folder.Path("lock"), folder.Path("another-socket"));
        ::_exit(second.Claim(9000) == CSingleInstance::Outcome::Asked ? 0 : 1);
    }
    EXPECT_TRUE(RunUntil([&] { return asked == 1; }));
    int status = -1;
    EXPECT_TRUE(RunUntil([&] { return ::waitpid(child, &status, WNOHANG) == child; }));
    EXPECT_EQ(status, 0);
}

TEST(SingleInstance, Claim_KilledOneLeftItsSocket_IsFirst)
{
    const CTemporaryFolder folder;
    const pid_t child = ::fork();
    if (child == 0) {
        CSingleInstance killed(folder.Path("lock"), folder.Path("socket"));
        killed.Claim(100);
        ::kill(::getpid(), SIGKILL);
    }
    ::waitpid(child, nullptr, 0);
    ASSERT_TRUE(folder.Has("socket"));

    CSingleInstance next(folder.Path("lock"), folder.Path("socket"));
    EXPECT_EQ(next.Claim(100), CSingleInstance::Outcome::First);
    EXPECT_TRUE(SucceedsInChild([&] {
        CSingleInstance other(folder.Path("lock"), folder.Path("socket"));
        return other.Claim(200) == CSingleInstance::Outcome::NoAnswer;  // Nobody runs the events of `next` meanwhile.
    }));
}

TEST(SingleInstance, Claim_FolderCannotBeWritten_RunsUnguarded)
{
    const CTemporaryFolder folder;
    CSingleInstance instance(folder.Path("none/lock"), folder.Path("none/socket"));
    EXPECT_EQ(instance.Claim(100), CSingleInstance::Outcome::First);
}

}
