#include "drawing/Canvas.h"
#include "drawing/Palette.h"
#include "drawing/Picture.h"
#include "making/PictureBook.h"
#include "making/Pieces.h"
#include <gtest/gtest.h>

using namespace drawing;

namespace {

CPath Square(double left, double top, double side)
{
    return CPath::Polygon({{left, top}, {left + side, top}, {left + side, top + side}, {left, top + side}});
}

// Letters stand for colours, blanks for clear pixels.
Picture FromRows(const std::vector<std::string>& rows)
{
    Picture picture{static_cast<int>(rows.front().size()), static_cast<int>(rows.size()), {}};
    for (const std::string& row : rows)
        for (const char letter : row)
            picture.pixels.push_back(letter == ' ' ? 0 : 0xFF000000U + static_cast<std::uint32_t>(letter));
    return picture;
}

}

TEST(CCanvas, Fill_WholePixels_CoversThemFully)
{
    CCanvas canvas(4, 4);
    canvas.Fill(Square(1, 1, 2), Hex(0xFF8000));
    EXPECT_NEAR(canvas.At(1, 1).alpha, 1, 1e-6);
    EXPECT_NEAR(canvas.At(2, 2).red, 1, 1e-6);
    EXPECT_EQ(canvas.At(0, 0).alpha, 0);
    EXPECT_EQ(canvas.At(3, 3).alpha, 0);
}

TEST(CCanvas, Fill_HalfAPixel_CoversItByHalf)
{
    CCanvas canvas(4, 4);
    canvas.Fill(Square(0.5, 1, 2), Hex(0x000000));
    EXPECT_NEAR(canvas.At(0, 1).alpha, 0.5, 1e-6);
}

TEST(CCanvas, Fill_WithClip_PaintsInsideOnly)
{
    CCanvas canvas(4, 4);
    const Coverage clip = canvas.Cover(Square(0, 0, 1));
    canvas.Fill(Square(0, 0, 4), Hex(0x000000), &clip);
    EXPECT_NEAR(canvas.At(0, 0).alpha, 1, 1e-6);
    EXPECT_EQ(canvas.At(1, 0).alpha, 0);
}

TEST(CCanvas, Fill_PartlyOffTheCanvas_IsCut)
{
    CCanvas canvas(2, 2);
    canvas.Fill(Square(-5, -5, 6), Hex(0x000000));
    EXPECT_NEAR(canvas.At(0, 0).alpha, 1, 1e-6);
    EXPECT_EQ(canvas.At(1, 1).alpha, 0);
}

TEST(CCanvas, Fill_WhollyOffTheCanvas_PaintsNothing)
{
    CCanvas canvas(2, 2);
    canvas.Fill(Square(10, 10, 3), Hex(0x000000));
    EXPECT_EQ(canvas.At(1, 1).alpha, 0);
}

TEST(Picture, HardEdged_ThinPixels_AreClearAndOthersSolid)
{
    CCanvas canvas(3, 1);
    canvas.Fill(Square(0, 0, 1.25), Hex(0x102030));
    const Picture picture = HardEdged(canvas);
    EXPECT_EQ(picture.At(0, 0), 0xFF102030U);
    EXPECT_EQ(picture.At(1, 0), 0U);
}

TEST(Palette, ChooseColors_FewerThanTheLimit_KeepsThem)
{
    const Histogram histogram{{0x000000, 9}, {0xFF0000, 1}, {0x00FF00, 1}};
    EXPECT_EQ(ChooseColors(histogram, 16), (std::vector<std::uint32_t>{0x000000, 0x00FF00, 0xFF0000}));
}

TEST(Palette, ChooseColors_MoreThanTheLimit_StaysWithinIt)
{
    Histogram histogram;
    for (std::uint32_t i = 0; i < 256; ++i)
        histogram[i << 16 | (255 - i)] = 1;
    EXPECT_EQ(ChooseColors(histogram, 8).size(), 8U);
}

TEST(Palette, ChooseColors_NoPixels_GivesNone) { EXPECT_TRUE(ChooseColors({}, 8).empty()); }

TEST(Palette, IndexOf_UnknownColor_GivesTheNearest)
{
    CNearest nearest({0x000000, 0x808080, 0xFFFFFF});
    EXPECT_EQ(nearest.IndexOf(0x101010), 0U);
    EXPECT_EQ(nearest.IndexOf(0x909090), 1U);
    EXPECT_EQ(nearest.IndexOf(0xF0F0F0), 2U);
}

TEST(Pieces, PiecesOf_ThreeSmallSpots_AreOnePiece)
{
    EXPECT_EQ(making::PiecesOf(FromRows({"a b", "   ", "  c"})).size(), 1U);
}

TEST(Pieces, PiecesOf_LargeAndSmall_AreTwoThatMakeTheWhole)
{
    std::vector<std::string> rows(10, std::string(10, 'a') + "   b");
    const Picture whole = FromRows(rows);
    const std::vector<Picture> pieces = making::PiecesOf(whole);
    ASSERT_EQ(pieces.size(), 2U);
    EXPECT_EQ(pieces[0].At(0, 0), whole.At(0, 0));
    EXPECT_EQ(pieces[0].At(13, 0), 0U);
    EXPECT_EQ(pieces[1].At(13, 0), whole.At(13, 0));
    EXPECT_EQ(pieces[1].At(0, 0), 0U);
}

TEST(PictureBook, DifferenceOf_TwoPictures_IsTheSmallestBox)
{
    const engine::Rect box = making::DifferenceOf({FromRows({"aaaa", "aaaa", "aaaa"}), FromRows({"aaaa", "abaa", "aaca"})});
    EXPECT_EQ(box, (engine::Rect{1, 1, 2, 2}));
}

TEST(PictureBook, Place_TrunkOfManyPoses_IsSeveralPictures)
{
    making::CPictureBook book;
    nibbin::Pose pose;
    for (int i = 0; i < 9; ++i)
        book.Expect(pose);
    EXPECT_GT(book.Place(pose).size(), 1U);
    pose.leftEye.lid = 1;
    EXPECT_GT(book.Place(pose).size(), 1U);
}

TEST(PictureBook, Place_TrunkOfOnePose_IsOnePicture)
{
    making::CPictureBook book;
    EXPECT_EQ(book.Place({}).size(), 1U);
}

TEST(PictureBook, Place_FigureGone_IsNoPicture)
{
    making::CPictureBook book;
    nibbin::Pose gone;
    gone.grow = 0;
    EXPECT_TRUE(book.Place(gone).empty());
}
