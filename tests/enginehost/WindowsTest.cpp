#include "Support.h"
#include "engine/hosts/qt/BalloonWindow.h"
#include "engine/hosts/qt/CharacterWindow.h"
#include "engine/hosts/qt/Compositor.h"
#include "engine/hosts/qt/QtHost.h"
#include <QApplication>
#include <QDialog>
#include <QMouseEvent>
#include <QScreen>
#include <QWindow>

using namespace engine;
using namespace std::chrono_literals;

namespace {

constexpr QRgb Below = 0xFF88AA55;
constexpr std::uint32_t Red = 0xFFFF0000;

// Red in its left half, nothing in its right half.
Bitmap HalfRed(std::int32_t side)
{
    Bitmap picture;
    picture.size = {side, side};
    for (std::int32_t pixel = 0; pixel < side * side; ++pixel)
        picture.pixels.push_back(pixel % side < side / 2 ? Red : 0);
    return picture;
}

Bitmap Nothing(std::int32_t side)
{
    Bitmap picture;
    picture.size = {side, side};
    picture.pixels.resize(static_cast<std::size_t>(side) * static_cast<std::size_t>(side));
    return picture;
}

class CMouseLog final : public IMouseEvents {
public:
    void Press(int button, int shift, Point at) override { Note("press", button, shift, at); }
    void Move(int buttons, int shift, Point at) override { Note("move", buttons, shift, at); }
    void Release(int button, int shift, Point at) override { Note("release", button, shift, at); }
    void DoublePress(int button, int shift, Point at) override { Note("double", button, shift, at); }
    std::vector<std::string> lines;

private:
    void Note(const std::string& what, int button, int shift, Point at)
    {
        lines.push_back(what + " " + std::to_string(button) + " " + std::to_string(shift) + " " + std::to_string(at.x) +
                        "," + std::to_string(at.y));
    }
};

// A window of another kind that lies below and counts its clicks.
class CBelow final : public QWidget {
public:
    CBelow()
    {
        setWindowFlags(Qt::X11BypassWindowManagerHint | Qt::FramelessWindowHint);
        setGeometry(100, 100, 500, 400);
        QPalette colors;
        colors.setColor(QPalette::Window, QColor(Below));
        setPalette(colors);
        show();
    }
    int clicks = 0;

protected:
    void mousePressEvent(QMouseEvent*) override { ++clicks; }
};

BalloonPicture Balloon()
{
    BalloonPicture picture;
    picture.place = {200, 150, 120, 80};
    picture.body = {0, 0, 120, 60};
    picture.textArea = {10, 10, 100, 40};
    picture.tail = Point{60, 79};
    picture.background = {255, 255, 231};
    return picture;
}

class Windows : public testing::Test {
protected:
    static void SetUpTestSuite() { support::NeedApplication(); }  // Before anything here is made.
    Windows()
    {
        m_below = std::make_unique<CBelow>();
        EXPECT_TRUE(support::RunLoopUntil([&] { return PixelAt(110, 110) == Below; }));
        m_window = std::make_unique<CCharacterWindow>(m_mouse, m_screens);
        m_window->SetPicture(HalfRed(64));
        m_window->SetPlace({301, 203, 64, 64});
    }
    static QRgb PixelAt(int x, int y)
    {
        return QGuiApplication::primaryScreen()->grabWindow(0, x, y, 1, 1).toImage().pixel(0, 0);
    }
    static bool ComesToBe(int x, int y, QRgb color)
    {
        return support::RunLoopUntil([&] { return PixelAt(x, y) == color; }, 3s);
    }
    static void Pointer(const std::string& commands)
    {
        support::CProgram program({"/bin/sh", "-c", "exec xdotool " + commands});
        EXPECT_TRUE(support::RunLoopUntil([&] { return program.Ended(); }));
        support::RunLoop(150ms);
    }

    std::unique_ptr<CBelow> m_below;
    CMouseLog m_mouse;
    CScreenWatch m_screens;
    std::unique_ptr<CCharacterWindow> m_window;
};

}

TEST_F(Windows, Show_WithoutCompositor_ShowsOnlyThePicturesPixels)
{
    ASSERT_FALSE(CompositorRuns(/*now*/ true));
    m_window->Show();

    EXPECT_TRUE(ComesToBe(301, 203, Red));
    EXPECT_EQ(PixelAt(332, 266), Red);
    EXPECT_EQ(PixelAt(333, 203), Below);
    EXPECT_EQ(PixelAt(300, 203), Below);
    EXPECT_EQ(PixelAt(301, 267), Below);
}

TEST_F(Windows, Show_WithCompositor_ShowsOnlyThePicturesPixels)
{
    const support::CProgram compositor({"picom", "--backend", "xrender", "--config", "/dev/null"});
    ASSERT_TRUE(support::RunLoopUntil([] { return CompositorRuns(/*now*/ true); }));
    m_window->Show();

    EXPECT_TRUE(ComesToBe(301, 203, Red));
    EXPECT_EQ(PixelAt(332, 266), Red);
    EXPECT_EQ(PixelAt(333, 203), Below);
    EXPECT_EQ(PixelAt(301, 267), Below);
}

TEST_F(Windows, Hide_ShownWindow_IsGone)
{
    m_window->Show();
    ASSERT_TRUE(ComesToBe(301, 203, Red));
    m_window->Hide();

    EXPECT_TRUE(ComesToBe(301, 203, Below));
}

TEST_F(Windows, SetPicture_WhileShown_ReplacesTheOldOne)
{
    m_window->Show();
    ASSERT_TRUE(ComesToBe(301, 203, Red));
    m_window->SetPicture(Nothing(64));

    EXPECT_TRUE(ComesToBe(301, 203, Below));
    m_window->SetPicture(HalfRed(64));
    EXPECT_TRUE(ComesToBe(301, 203, Red));
}

TEST_F(Windows, SetPicture_PixelsThatDoNotFit_ShowsNothing)
{
    Bitmap wrong = HalfRed(64);
    wrong.pixels.pop_back();
    m_window->SetPicture(wrong);
    m_window->Show();
    support::RunLoop(100ms);

    EXPECT_EQ(PixelAt(301, 203), Below);
}

TEST_F(Windows, SetPlace_WhileShown_MovesAtOnce)
{
    m_window->Show();
    ASSERT_TRUE(ComesToBe(301, 203, Red));
    m_window->SetPlace({420, 310, 64, 64});

    EXPECT_TRUE(ComesToBe(420, 310, Red));
    EXPECT_TRUE(ComesToBe(301, 203, Below));
}

TEST_F(Windows, SetPlace_OtherSize_ScalesThePicture)
{
    m_window->SetPlace({301, 203, 128, 128});
    m_window->Show();

    EXPECT_TRUE(ComesToBe(301, 203, Red));
    EXPECT_EQ(PixelAt(362, 330), Red);
    EXPECT_EQ(PixelAt(367, 330), Below);
}

TEST_F(Windows, SetPlace_OffTheScreen_StaysThere)
{
    m_window->SetPlace({-40, -20, 64, 64});
    m_window->Show();
    support::RunLoop(200ms);

    EXPECT_EQ(PixelAt(0, 0) == Red, false);
    m_window->SetPlace({-20, 0, 64, 64});
    EXPECT_TRUE(ComesToBe(0, 0, Red));
}

TEST_F(Windows, Click_OnAVisiblePixel_IsToldInScreenPixels)
{
    m_window->Show();
    ASSERT_TRUE(ComesToBe(301, 203, Red));
    Pointer("mousemove 310 220 click 1");

    EXPECT_EQ(m_mouse.lines, (std::vector<std::string>{"press 1 0 310,220", "release 1 0 310,220"}));
}

TEST_F(Windows, Click_OnATransparentPixel_GoesToTheWindowBelow)
{
    m_window->Show();
    ASSERT_TRUE(ComesToBe(301, 203, Red));
    Pointer("mousemove 340 220 click 1");

    EXPECT_TRUE(m_mouse.lines.empty());
    EXPECT_EQ(m_below->clicks, 1);
}

TEST_F(Windows, Click_OnAPictureWithoutPixels_GoesToTheWindowBelow)
{
    m_window->SetPicture(Nothing(64));
    m_window->Show();
    support::RunLoop(100ms);
    Pointer("mousemove 310 220 click 1");

    EXPECT_TRUE(m_mouse.lines.empty());
    EXPECT_EQ(m_below->clicks, 1);
}

TEST_F(Windows, Click_RightWithKeys_TellsButtonAndKeys)
{
    m_window->Show();
    ASSERT_TRUE(ComesToBe(301, 203, Red));
    Pointer("mousemove 310 220 keydown ctrl keydown shift click 3 keyup shift keyup ctrl");

    EXPECT_EQ(m_mouse.lines, (std::vector<std::string>{"press 2 3 310,220", "release 2 3 310,220"}));
}

TEST_F(Windows, Click_Twice_TellsTheSecondAsDouble)
{
    m_window->Show();
    ASSERT_TRUE(ComesToBe(301, 203, Red));
    Pointer("mousemove 310 220 click --repeat 2 --delay 50 1");

    EXPECT_EQ(m_mouse.lines, (std::vector<std::string>{"press 1 0 310,220", "release 1 0 310,220", "double 1 0 310,220",
                                                       "release 1 0 310,220"}));
}

TEST_F(Windows, Drag_OutOfTheWindow_IsToldUntilTheRelease)
{
    m_window->Show();
    ASSERT_TRUE(ComesToBe(301, 203, Red));
    Pointer("mousemove 310 220 mousedown 1 mousemove 500 400 mouseup 1");

    EXPECT_EQ(m_mouse.lines, (std::vector<std::string>{"press 1 0 310,220", "move 1 0 500,400", "release 1 0 500,400"}));
}

TEST_F(Windows, Move_WithoutAButton_TellsNothing)
{
    m_window->Show();
    ASSERT_TRUE(ComesToBe(301, 203, Red));
    Pointer("mousemove 310 220 mousemove 315 225");

    EXPECT_TRUE(m_mouse.lines.empty());
}

TEST_F(Windows, Click_WhileABoxIsOpen_IsToldAllTheSame)
{
    m_window->Show();
    ASSERT_TRUE(ComesToBe(301, 203, Red));
    QDialog box;
    box.setGeometry(700, 500, 100, 100);
    box.setModal(true);
    box.show();
    support::RunLoop(200ms);
    Pointer("mousemove 310 220 click 1");

    EXPECT_EQ(m_mouse.lines.size(), 2U);
}

TEST_F(Windows, Click_ThatDestroysTheWindow_IsHarmless)
{
    class CDestroyer final : public IMouseEvents {
    public:
        void Press(int, int, Point) override { window.reset(); }
        void Move(int, int, Point) override {}
        void Release(int, int, Point) override { ++releases; }
        void DoublePress(int, int, Point) override {}
        std::unique_ptr<CCharacterWindow> window;
        int releases = 0;
    } destroyer;
    destroyer.window = std::make_unique<CCharacterWindow>(destroyer, m_screens);
    destroyer.window->SetPicture(HalfRed(64));
    destroyer.window->SetPlace({301, 203, 64, 64});
    destroyer.window->Show();
    ASSERT_TRUE(ComesToBe(301, 203, Red));
    Pointer("mousemove 325 260 click 1");

    EXPECT_EQ(destroyer.window, nullptr);
    EXPECT_EQ(destroyer.releases, 0);
    EXPECT_TRUE(ComesToBe(301, 203, Below));
}

TEST_F(Windows, Show_AndClick_LeavesTheFocusWhereItIs)
{
    QWidget other;
    other.setGeometry(650, 450, 200, 200);
    other.show();
    // By a click, as a user would: a window manager that has just started gives the focus to nobody else.
    ASSERT_TRUE(support::RunLoopUntil([&] {
        Pointer("mousemove 750 550 click 1");
        return other.isActiveWindow();
    }));
    m_window->Show();
    ASSERT_TRUE(ComesToBe(301, 203, Red));
    Pointer("mousemove 310 220 click 1");

    EXPECT_EQ(m_mouse.lines.size(), 2U);
    EXPECT_TRUE(other.isActiveWindow());
    EXPECT_EQ(QGuiApplication::focusWindow(), other.windowHandle());
}

TEST_F(Windows, Raise_OfTwoCharacters_DecidesWhichIsAbove)
{
    CMouseLog otherMouse;
    CCharacterWindow other(otherMouse, m_screens);
    other.SetPicture(HalfRed(64));
    other.SetPlace({301, 203, 64, 64});
    m_window->Show();
    other.Show();
    ASSERT_TRUE(ComesToBe(301, 203, Red));
    m_window->Raise();
    Pointer("mousemove 310 220 click 1");

    EXPECT_EQ(m_mouse.lines.size(), 2U);
    EXPECT_TRUE(otherMouse.lines.empty());
}

TEST_F(Windows, Balloon_Shown_HasBodyAndTailAndTakesNoClicks)
{
    CBalloonWindow balloon(m_screens);
    balloon.Show(Balloon());

    EXPECT_TRUE(ComesToBe(260, 180, 0xFFFFFFE7));
    EXPECT_EQ(PixelAt(260, 215), 0xFFFFFFE7);
    EXPECT_EQ(PixelAt(230, 220), Below);
    EXPECT_EQ(PixelAt(200, 150), Below);
    EXPECT_EQ(PixelAt(260, 150), 0xFF000000);
    Pointer("mousemove 260 180 click 1");
    EXPECT_EQ(m_below->clicks, 1);
}

TEST_F(Windows, Balloon_Hide_IsGone)
{
    CBalloonWindow balloon(m_screens);
    balloon.Show(Balloon());
    ASSERT_TRUE(ComesToBe(260, 180, 0xFFFFFFE7));
    balloon.Hide();

    EXPECT_TRUE(ComesToBe(260, 180, Below));
}

TEST_F(Windows, WorkArea_OfThisScreen_IsWithinIt)
{
    QtHostOptions options;
    options.sound = "clock";
    const std::unique_ptr<IQtHost> host = CreateQtHost(options);

    EXPECT_EQ(host->Desktop().WorkArea({0, 0}), (Rect{0, 0, 1024, 768}));
    EXPECT_EQ(host->Desktop().WorkArea({-5000, 90000}), (Rect{0, 0, 1024, 768}));
}
