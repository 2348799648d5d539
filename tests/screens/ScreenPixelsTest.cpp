#include "engine/hosts/qt/ScreenPixels.h"
#include "engine/hosts/qt/CharacterWindow.h"
#include <QApplication>
#include <QScreen>
#include <gtest/gtest.h>

using namespace engine;

TEST(ScreenPixels, Screens_AreTwoOfDifferentScale)
{
    ASSERT_EQ(QApplication::screens().size(), 2);
    EXPECT_EQ(QApplication::screens()[0]->devicePixelRatio(), 1);
    EXPECT_EQ(QApplication::screens()[1]->devicePixelRatio(), 2);
}

TEST(ScreenPixels, WorkAreaNear_OnEachScreen_IsThatScreenInPixels)
{
    EXPECT_EQ(WorkAreaNear({500, 300}), (Rect{0, 0, 1000, 700}));
    EXPECT_EQ(WorkAreaNear({1790, 690}), (Rect{1000, 100, 800, 600}));
}

TEST(ScreenPixels, WorkAreaNear_BesideBoth_IsTheNearestOne)
{
    EXPECT_EQ(WorkAreaNear({-500, 300}), (Rect{0, 0, 1000, 700}));
    EXPECT_EQ(WorkAreaNear({5000, 300}), (Rect{1000, 100, 800, 600}));
    EXPECT_EQ(WorkAreaNear({1700, -2000}), (Rect{1000, 100, 800, 600}));
}

TEST(ScreenPixels, PlaceForQt_OnEachScreen_CoversItsPixels)
{
    const QtPlace one = PlaceForQt({500, 300, 128, 128});
    EXPECT_EQ(one.geometry, QRect(500, 300, 128, 128));
    EXPECT_EQ(one.ratio, 1);
    const QtPlace two = PlaceForQt({1400, 300, 128, 128});
    EXPECT_EQ(two.geometry, QRect(1200, 200, 64, 64));
    EXPECT_EQ(two.ratio, 2);
}

TEST(ScreenPixels, PlaceForQt_AtAnOddPixelOfTheFineScreen_SaysTheOffset)
{
    const QtPlace place = PlaceForQt({1401, 301, 128, 128});
    EXPECT_EQ(place.geometry, QRect(1200, 200, 65, 65));
    EXPECT_EQ(place.offset, QPoint(1, 1));
}

TEST(ScreenPixels, PlaceForQt_AcrossTheBorder_FollowsTheMiddle)
{
    EXPECT_EQ(PlaceForQt({930, 300, 128, 128}).ratio, 1);
    EXPECT_EQ(PlaceForQt({950, 300, 128, 128}).ratio, 2);
}

TEST(ScreenPixels, PixelsOf_APositionOnTheFineScreen_CountsItsPixels)
{
    EXPECT_EQ(PixelsOf(QPointF(500, 300)), (Point{500, 300}));
    EXPECT_EQ(PixelsOf(QPointF(1200, 200)), (Point{1400, 300}));
}

TEST(ScreenPixels, CharacterWindow_AfterAChangeOfTheScreens_StandsWhereItStood)
{
    class CNoMouse final : public IMouseEvents {
        void Press(int, int, Point) override {}
        void Move(int, int, Point) override {}
        void Release(int, int, Point) override {}
        void DoublePress(int, int, Point) override {}
    } mouse;
    CScreenWatch screens;
    CCharacterWindow window(mouse, screens);
    window.SetPicture({{1, 1}, {0xFFFF0000}});
    window.SetPlace({1400, 300, 128, 128});
    window.Show();
    QWidget* widget = nullptr;
    for (QWidget* each : QApplication::topLevelWidgets())
        if (each->isVisible())
            widget = each;
    ASSERT_NE(widget, nullptr);
    EXPECT_EQ(widget->geometry(), QRect(1200, 200, 64, 64));
    widget->setGeometry(0, 0, 10, 10);  // As the toolkit moves windows of a screen that goes.
    emit screens.Changed();
    EXPECT_EQ(widget->geometry(), QRect(1200, 200, 64, 64));
}
