#include "engine/hosts/qt/EngineWindows.h"
#include "Support.h"
#include "engine/TestCharacter.h"
#include "engine/hosts/headless/HeadlessHost.h"
#include "engine/hosts/headless/MemorySource.h"
#include "engine/hosts/qt/CharacterPreview.h"
#include "engine/hosts/qt/QtTimers.h"
#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QSlider>
#include <gtest/gtest.h>

using namespace engine;

namespace {

// The engine's windows on a real display, used by keyboard.
class EngineWindows : public testing::Test {
protected:
    EngineWindows()
    {
        support::NeedApplication();
        file.text = "DefaultCharacter=b.acs\n";
        settings = std::make_unique<CUserSettings>(file);
        timers = std::make_unique<CQtTimers>();
        source.standard = Named("Anton", 1);
        source.files["a.acs"] = source.standard;
        source.files["b.acs"] = Named("Berta", 2);
        source.files["c.acs"] = Named("<b>Claire</b>", 3);
        source.files["broken.acs"] = nullptr;
        windows = CreateEngineWindows(*settings, source, *timers);
    }
    // A window manager that has just started may leave its first window without the focus: that one is no test.
    static void SetUpTestSuite()
    {
        support::NeedApplication();
        QWidget first;
        first.show();
        support::RunLoopUntil([&] { return WindowManagerRuns() && first.isActiveWindow(); }, std::chrono::seconds(2));
    }
    static CharacterRef Named(const std::string& name, std::uint8_t id)
    {
        Character character = testing_character::Make(id);
        character.names = {{0x0409, name, name + " is a test.", ""}};
        return std::make_shared<Character>(std::move(character));
    }
    static QDialog* Window(const char* title)
    {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (widget->isVisible() && widget->windowTitle() == QLatin1String(title))
                return qobject_cast<QDialog*>(widget);
        return nullptr;
    }
    QDialog* OpenSheet()
    {
        windows->ShowPropertySheet(true);
        return Ready("Advanced Character Options");
    }
    QDialog* OpenChoice()
    {
        windows->ShowDefaultCharacter();
        QDialog* window = Ready("Default Character");
        EXPECT_TRUE(support::RunLoopUntil([&] { return List(*window).count() == 3; }));
        return window;
    }
    static QDialog* Ready(const char* title)
    {
        EXPECT_TRUE(support::RunLoopUntil([&] { return Window(title) && Window(title)->isActiveWindow(); }));
        support::RunLoop(std::chrono::milliseconds(100));  // The window manager moves the focus more than once.
        return Window(title);
    }
    static bool WindowManagerRuns()
    {
        return support::OutputOf("xprop -root _NET_SUPPORTING_WM_CHECK").find("window id") != std::string::npos;
    }
    static QListWidget& List(QDialog& window) { return *window.findChild<QListWidget*>(); }
    static void Keys(const std::string& keys)
    {
        support::CProgram program({"/bin/sh", "-c", "exec xdotool key " + keys});
        EXPECT_TRUE(support::RunLoopUntil([&] { return program.Ended(); }));
        support::RunLoop(std::chrono::milliseconds(150));
    }
    static std::string AccessibleName(QWidget* widget)
    {
        QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(widget);
        return interface ? interface->text(QAccessible::Name).toStdString() : "";
    }
    void TakeListInto(std::vector<std::string>& names, QDialog& window)
    {
        for (int row = 0; row < List(window).count(); ++row)
            names.push_back(List(window).item(row)->text().toStdString());
    }

    CHeadlessSettingsFile file;
    std::unique_ptr<CUserSettings> settings;
    std::unique_ptr<CQtTimers> timers;
    CMemorySource source;
    std::unique_ptr<IEngineWindows> windows;
};

}

TEST_F(EngineWindows, PropertySheet_HiddenBeforeItWasShown_DoesNothing)
{
    windows->ShowPropertySheet(false);
    EXPECT_EQ(Window("Advanced Character Options"), nullptr);
}

TEST_F(EngineWindows, PropertySheet_Shown_ShowsTheSettings)
{
    settings->Change({.balloonsOn = false, .soundEffectsOn = true, .speedPercent = 150, .defaultCharacter = ""});
    QDialog* window = OpenSheet();
    EXPECT_FALSE(window->findChildren<QCheckBox*>().at(0)->isChecked());
    EXPECT_TRUE(window->findChildren<QCheckBox*>().at(1)->isChecked());
    EXPECT_EQ(window->findChild<QSlider*>()->value(), 15);
    EXPECT_EQ(window->findChild<QLineEdit*>()->text(), "Scroll Lock");
    EXPECT_TRUE(window->findChild<QLineEdit*>()->isReadOnly());
}

TEST_F(EngineWindows, PropertySheet_ByKeyboard_ChangesTheSettingsAtOnce)
{
    OpenSheet();
    Keys("space");
    EXPECT_FALSE(settings->Now().balloonsOn);
    Keys("alt+p");
    EXPECT_FALSE(settings->Now().soundEffectsOn);
    Keys("alt+s Right Right");
    EXPECT_EQ(settings->Now().speedPercent, 120);
    EXPECT_EQ(file.text, "Balloons=0\nSoundEffects=0\nSpeedPercent=120\nDefaultCharacter=b.acs\n");
}

TEST_F(EngineWindows, PropertySheet_RestoreDefaults_KeepsTheDefaultCharacter)
{
    settings->Change({.balloonsOn = false, .soundEffectsOn = false, .speedPercent = 50, .defaultCharacter = "c.acs"});
    QDialog* window = OpenSheet();
    for (QPushButton* button : window->findChildren<QPushButton*>())
        if (button->text().contains("Defaults"))
            button->click();
    EXPECT_EQ(settings->Now(), (UserSettings{.defaultCharacter = "c.acs"}));
    EXPECT_TRUE(window->findChildren<QCheckBox*>().at(0)->isChecked());
    EXPECT_EQ(window->findChild<QSlider*>()->value(), 10);
}

TEST_F(EngineWindows, PropertySheet_Escape_ClosesItAndKeepsTheChanges)
{
    OpenSheet();
    Keys("space");
    Keys("Escape");
    EXPECT_EQ(Window("Advanced Character Options"), nullptr);
    EXPECT_FALSE(settings->Now().balloonsOn);
}

TEST_F(EngineWindows, PropertySheet_Hidden_ComesBackWhereItWas)
{
    QDialog* window = OpenSheet();
    window->move(321, 123);
    support::RunLoop(std::chrono::milliseconds(150));
    const QPoint before = window->pos();
    windows->ShowPropertySheet(false);
    EXPECT_EQ(Window("Advanced Character Options"), nullptr);
    support::RunLoop(std::chrono::milliseconds(150));
    EXPECT_EQ(OpenSheet()->pos(), before);
}

TEST_F(EngineWindows, PropertySheet_WhenTheFileRefuses_SaysSo)
{
    file.refuses = true;
    QDialog* window = OpenSheet();
    Keys("space");
    bool told = false;
    for (const QLabel* label : window->findChildren<QLabel*>())
        told = told || (label->isVisible() && label->text().contains("cannot be saved"));
    EXPECT_TRUE(told);
    EXPECT_FALSE(settings->Now().balloonsOn);
}

TEST_F(EngineWindows, PropertySheet_ChangedFromOutside_Follows)
{
    QDialog* window = OpenSheet();
    settings->Change({.speedPercent = 70, .defaultCharacter = ""});
    EXPECT_EQ(window->findChild<QSlider*>()->value(), 7);
}

TEST_F(EngineWindows, PropertySheet_EveryControlHasAnAccessibleName)
{
    QDialog* window = OpenSheet();
    std::vector<std::string> names;
    for (QWidget* widget : window->findChildren<QWidget*>())
        if (widget->focusPolicy() != Qt::NoFocus)
            names.push_back(AccessibleName(widget));
    EXPECT_EQ(names, (std::vector<std::string>{"Show spoken text in a balloon", "Play sound effects", "Speaking speed",
                                               "Listening key", "Close", "Restore Defaults"}));
}

TEST_F(EngineWindows, DefaultCharacter_Shown_ListsWhatCanBeLoadedAndMarksTheChoice)
{
    QDialog* window = OpenChoice();
    std::vector<std::string> names;
    TakeListInto(names, *window);
    EXPECT_EQ(names, (std::vector<std::string>{"Anton", "Berta", "<b>Claire</b>"}));
    EXPECT_EQ(List(*window).currentItem()->text(), "Berta");
}

TEST_F(EngineWindows, DefaultCharacter_WithoutAChoice_MarksTheOneThatWouldLoad)
{
    settings->Change({});
    EXPECT_EQ(List(*OpenChoice()).currentItem()->text(), "Anton");
}

TEST_F(EngineWindows, DefaultCharacter_DownAndReturn_ChoosesTheNext)
{
    OpenChoice();
    Keys("Down Return");
    EXPECT_EQ(settings->Now().defaultCharacter, "c.acs");
    EXPECT_EQ(Window("Default Character"), nullptr);
}

TEST_F(EngineWindows, DefaultCharacter_DownAndEscape_ChangesNothing)
{
    OpenChoice();
    Keys("Down Escape");
    EXPECT_EQ(settings->Now().defaultCharacter, "b.acs");
    EXPECT_EQ(Window("Default Character"), nullptr);
}

TEST_F(EngineWindows, DefaultCharacter_DownOnly_ChangesNothing)
{
    QDialog* window = OpenChoice();
    Keys("Down");
    EXPECT_EQ(List(*window).currentItem()->text(), "<b>Claire</b>");
    EXPECT_EQ(settings->Now().defaultCharacter, "b.acs");
}

TEST_F(EngineWindows, DefaultCharacter_Opened_AfterACharacterWasInstalled_ListsItToo)
{
    OpenChoice();
    Keys("Escape");
    source.files["d.acs"] = Named("Dora", 4);
    windows->ShowDefaultCharacter();
    QDialog* window = Ready("Default Character");
    EXPECT_TRUE(support::RunLoopUntil([&] { return List(*window).count() == 4; }));
}

TEST_F(EngineWindows, DefaultCharacter_WithoutAnyCharacter_SaysSoAndHasNoOk)
{
    source.files.clear();
    source.standard = nullptr;
    windows->ShowDefaultCharacter();
    QDialog* window = Ready("Default Character");
    const auto told = [&] {
        for (const QLabel* label : window->findChildren<QLabel*>())
            if (label->isVisible() && label->text() == "No characters are installed.")
                return true;
        return false;
    };
    EXPECT_TRUE(support::RunLoopUntil(told));
    EXPECT_FALSE(window->findChildren<QPushButton*>().at(0)->isEnabled());
    Keys("Return");
    EXPECT_EQ(settings->Now().defaultCharacter, "b.acs");
}

TEST_F(EngineWindows, DefaultCharacter_WhenTheFileRefuses_SaysSo)
{
    file.refuses = true;
    OpenChoice();
    Keys("Down");
    QTimer::singleShot(500, [] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
            box->accept();
    });
    Keys("Return");
    support::RunLoop(std::chrono::milliseconds(700));
    EXPECT_EQ(settings->Now().defaultCharacter, "c.acs");
}

TEST_F(EngineWindows, DefaultCharacter_Preview_ShowsTheCharacter)
{
    QDialog* window = OpenChoice();
    auto* preview = window->findChild<CCharacterPreview*>();
    const auto middle = [&] { return preview->grab().toImage().pixel(preview->width() / 2, preview->height() / 2); };
    EXPECT_TRUE(support::RunLoopUntil([&] { return middle() == testing_character::Red; }));
    EXPECT_EQ(AccessibleName(preview), "Preview of the character");
}

TEST_F(EngineWindows, DefaultCharacter_ClosedWhileListing_IsHarmless)
{
    windows->ShowDefaultCharacter();
    windows.reset();
    support::RunLoop(std::chrono::milliseconds(100));
    EXPECT_EQ(Window("Default Character"), nullptr);
}
