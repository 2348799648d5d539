#include "app/linux/window/SplashPeer.h"
#include <QApplication>
#include <QEventLoop>
#include <QMessageBox>
#include <QMouseEvent>
#include <gtest/gtest.h>

// The splash window after the program has given its form up. Time passes in the toolkit's event loop.
namespace {
struct SplashPeer : testing::Test {
    frmSplash form;
    CSplashPeer window{form, [] {}};

    void SetUp() override
    {
        form.onClick = form.imgAbout.onClick = [this] { form.Unload(); };
        form.SetVisible(true);
    }
    // False when it does not hold within ten seconds.
    static bool RunUntil(const std::function<bool()>& holds)
    {
        QElapsedTimer waiting;
        for (waiting.start(); !holds() && waiting.elapsed() < 10000;)
            QApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
        return holds();
    }
    void PassTurns() const
    {
        for (int turn = 0; turn < 5; ++turn)
            QApplication::processEvents();
    }
    void Press(QWidget& widget) const
    {
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, QPointF(5, 5), widget.mapToGlobal(QPointF(5, 5)), Qt::LeftButton, Qt::LeftButton, {});
            QApplication::sendEvent(&widget, &event);
        }
    }
};
}

TEST_F(SplashPeer, Unload_BeforeItWasPainted_StaysUntilItHasBeenSeen)
{
    form.Unload();
    EXPECT_TRUE(window.isVisible());
    QElapsedTimer seen;
    seen.start();
    EXPECT_TRUE(RunUntil([&] { return !window.isVisible(); }));
    EXPECT_GE(seen.elapsed(), 1200);
}

TEST_F(SplashPeer, Unload_LongAfterItWasPainted_FadesAtOnce)
{
    QElapsedTimer seen;
    seen.start();
    EXPECT_TRUE(RunUntil([&] { return seen.elapsed() > 1300; }));
    EXPECT_EQ(window.windowOpacity(), 1);
    form.Unload();
    EXPECT_TRUE(window.isVisible());
    seen.start();
    EXPECT_TRUE(RunUntil([&] { return !window.isVisible(); }));
    EXPECT_LT(seen.elapsed(), 1200);
}

TEST_F(SplashPeer, Unload_ByAClick_GoesAtOnce)
{
    PassTurns();
    Press(window);
    EXPECT_FALSE(form.Loaded());
    EXPECT_FALSE(window.isVisible());
}

TEST_F(SplashPeer, Unload_ByAClickOnThePicture_GoesAtOnce)
{
    PassTurns();
    Press(*window.findChild<QWidget*>("imgAbout"));
    EXPECT_FALSE(form.Loaded());
    EXPECT_FALSE(window.isVisible());
}

TEST_F(SplashPeer, Click_WhileItIsStillSeen_EndsIt)
{
    form.Unload();
    PassTurns();
    ASSERT_TRUE(window.isVisible());
    Press(*window.findChild<QWidget*>("lblVersion"));
    EXPECT_FALSE(window.isVisible());
}

TEST_F(SplashPeer, Question_WhileItIsStillSeen_EndsIt)
{
    form.Unload();
    PassTurns();
    QMessageBox box;
    box.setModal(true);
    box.show();
    EXPECT_FALSE(window.isVisible());
}

TEST_F(SplashPeer, Question_BeforeItIsUnloaded_LeavesIt)
{
    PassTurns();
    QMessageBox box;
    box.setModal(true);
    box.show();
    EXPECT_TRUE(window.isVisible());
}

TEST_F(SplashPeer, SetVisible_False_HidesItAtOnce)
{
    PassTurns();
    form.SetVisible(false);
    EXPECT_FALSE(window.isVisible());
}
