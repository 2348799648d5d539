#include "Support.h"
#include "engine/hosts/qt/BalloonWindow.h"
#include "engine/hosts/qt/PictureScaler.h"
#include "engine/hosts/qt/TextMeasure.h"
#include <set>

using namespace engine;

namespace {

constexpr std::uint32_t Blue = 0xFF2040C0;

// A triangle below the diagonal: an outline of stairs.
Bitmap Triangle(std::int32_t side)
{
    Bitmap picture;
    picture.size = {side, side};
    for (std::int32_t y = 0; y < side; ++y)
        for (std::int32_t x = 0; x < side; ++x)
            picture.pixels.push_back(x <= y ? Blue : 0x00123456);
    return picture;
}

std::set<int> AlphasOf(const QImage& image)
{
    std::set<int> alphas;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            alphas.insert(qAlpha(image.pixel(x, y)));
    return alphas;
}

BalloonPicture Speech()
{
    BalloonPicture picture;
    picture.place = {0, 0, 200, 100};
    picture.body = {0, 0, 200, 70};
    picture.textArea = {10, 10, 180, 50};
    picture.background = {255, 255, 231};
    return picture;
}

bool HasDark(const QImage& image, const QRect& area)
{
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            if (qAlpha(image.pixel(x, y)) == 255 && qGray(image.pixel(x, y)) < 100)
                return true;
    return false;
}

}

TEST(PictureScaler, ScalePicture_OwnSize_KeepsEveryPixel)
{
    const QImage image = ScalePicture(Triangle(16), {16, 16}, true);

    EXPECT_EQ(image.pixel(0, 0), Blue);
    EXPECT_EQ(image.pixel(15, 15), Blue);
    EXPECT_EQ(image.pixel(1, 0), 0U);
    EXPECT_EQ(AlphasOf(image), (std::set<int>{0, 255}));
}

TEST(PictureScaler, ScalePicture_HardEdges_NeverHalfTransparent)
{
    EXPECT_EQ(AlphasOf(ScalePicture(Triangle(16), {24, 24}, false)), (std::set<int>{0, 255}));
    EXPECT_EQ(AlphasOf(ScalePicture(Triangle(16), {9, 9}, false)), (std::set<int>{0, 255}));
}

TEST(PictureScaler, ScalePicture_SoftEdges_SmoothsTheOutlineOnly)
{
    const QImage image = ScalePicture(Triangle(16), {32, 32}, true);

    EXPECT_GT(AlphasOf(image).size(), 2U);
    EXPECT_EQ(image.pixel(3, 28), Blue);
    EXPECT_EQ(image.pixel(28, 3), 0U);
}

TEST(PictureScaler, ScalePicture_SoftEdges_NoDarkOrForeignFringe)
{
    const QImage image = ScalePicture(Triangle(16), {32, 32}, true);
    for (int y = 0; y < 32; ++y)
        for (int x = 0; x < 32; ++x)
            if (const QColor color = image.pixelColor(x, y); color.alpha() > 100) {
                ASSERT_NEAR(color.blue(), 0xC0, 6);
                ASSERT_NEAR(color.red(), 0x20, 6);
            }
}

TEST(PictureScaler, ScalePicture_BadPictures_AreNull)
{
    Bitmap wrong = Triangle(16);
    wrong.pixels.pop_back();
    EXPECT_TRUE(ScalePicture(wrong, {16, 16}, true).isNull());
    EXPECT_TRUE(ScalePicture({}, {16, 16}, true).isNull());
    EXPECT_TRUE(ScalePicture(Triangle(16), {0, 16}, true).isNull());
    wrong.size = {-16, -16};
    EXPECT_TRUE(ScalePicture(wrong, {16, 16}, true).isNull());
}

TEST(BalloonPictures, DrawBalloon_WithoutTail_FillsOnlyTheBody)
{
    support::NeedApplication();
    const QImage image = DrawBalloon(Speech(), true);

    EXPECT_EQ(image.pixel(100, 35), 0xFFFFFFE7);
    EXPECT_EQ(image.pixel(100, 0), 0xFF000000);
    EXPECT_EQ(image.pixel(0, 0), 0U);
    EXPECT_EQ(image.pixel(100, 72), 0U);
}

TEST(BalloonPictures, DrawBalloon_Tail_ReachesFromBodyToTip)
{
    support::NeedApplication();
    BalloonPicture picture = Speech();
    picture.tail = Point{100, 99};
    const QImage image = DrawBalloon(picture, true);

    EXPECT_EQ(image.pixel(100, 69), 0xFFFFFFE7);
    EXPECT_EQ(image.pixel(100, 78), 0xFFFFFFE7);
    EXPECT_GT(qAlpha(image.pixel(100, 97)), 0);
}

TEST(BalloonPictures, DrawBalloon_Thought_HasBubblesApartFromTheBody)
{
    support::NeedApplication();
    BalloonPicture picture = Speech();
    picture.tail = Point{100, 99};
    picture.thought = true;
    const QImage image = DrawBalloon(picture, true);

    EXPECT_EQ(image.pixel(100, 69), 0xFF000000);
    EXPECT_EQ(image.pixel(100, 88), 0xFFFFFFE7);
}

TEST(BalloonPictures, DrawBalloon_Lines_AreClippedToTheTextArea)
{
    support::NeedApplication();
    BalloonPicture picture = Speech();
    picture.textArea = {10, 30, 180, 20};
    picture.font.points = 20;
    picture.lines = {{"MMMMMMMMMMMMMMMMMMMMMMM", {0, 50}}};
    const QImage image = DrawBalloon(picture, true);

    EXPECT_TRUE(HasDark(image, {10, 30, 180, 20}));
    EXPECT_FALSE(HasDark(image, {2, 12, 196, 18}));
    EXPECT_FALSE(HasDark(image, {2, 20, 8, 30}));
    EXPECT_FALSE(HasDark(image, {190, 20, 8, 30}));
}

TEST(BalloonPictures, DrawBalloon_WildValues_AreHarmless)
{
    support::NeedApplication();
    BalloonPicture picture;
    picture.place = {0, 0, -5, 2000000000};
    picture.body = {5, 5, -20, -20};
    picture.tail = Point{-2000000000, 2000000000};
    picture.font.points = 1e9;
    picture.lines = {{"\xFF\xFE", {-2000000000, 5}}};

    EXPECT_EQ(DrawBalloon(picture, true).width(), 1);
    picture.thought = true;
    EXPECT_EQ(DrawBalloon(picture, false).width(), 1);
}

TEST(TextMeasure, Width_OfATextDrawnWithIt_HoldsIt)
{
    support::NeedApplication();
    const CTextMeasure measure;
    BalloonPicture picture = Speech();
    picture.textArea = {0, 0, 200, 70};
    picture.lines = {{"Hello world", {20, 40}}};
    const QImage image = DrawBalloon(picture, true);
    const int width = measure.Width(picture.font, "Hello world");

    EXPECT_GT(width, 40);
    EXPECT_TRUE(HasDark(image, {20, 25, width, 20}));
    EXPECT_FALSE(HasDark(image, {20 + width + 1, 25, 199 - 25 - width, 20}));
}

TEST(TextMeasure, Width_OfNothing_IsZero)
{
    support::NeedApplication();
    EXPECT_EQ(CTextMeasure().Width({}, ""), 0);
}

TEST(TextMeasure, LineHeight_LargerFont_IsLarger)
{
    support::NeedApplication();
    const CTextMeasure measure;
    Font large;
    large.points = 30;

    EXPECT_GT(measure.LineHeight(large), 2 * measure.LineHeight({}));
    EXPECT_GT(measure.AverageCharacterWidth(large), 2 * measure.AverageCharacterWidth({}));
    EXPECT_LT(measure.Ascent(large), measure.LineHeight(large));
}
