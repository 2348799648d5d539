#include "engine/files/Region.h"
#include <gtest/gtest.h>

using namespace engine;
using namespace engine::files;

TEST(RegionOf, RowsOfRuns_GivesARectangleForEachRun)
{
    const IndexedPicture picture{{5, 3}, {0, 1, 0, 1, 1, 1, 1, 1, 1, 1, 0, 1, 0, 0, 0}};

    EXPECT_EQ(RegionOf(picture, 0), (std::vector<Rect>{{1, 0, 1, 1}, {3, 0, 2, 1}, {0, 1, 5, 1}, {1, 2, 1, 1}}));
}

TEST(RegionOf, EqualRows_AreMerged)
{
    const IndexedPicture picture{{3, 4}, {9, 0, 9, 9, 0, 9, 9, 0, 9, 9, 9, 9}};

    EXPECT_EQ(RegionOf(picture, 0), (std::vector<Rect>{{0, 0, 1, 3}, {2, 0, 1, 3}, {0, 3, 3, 1}}));
}

TEST(RegionOf, RowsAroundAnEmptyOne_AreNotMerged)
{
    EXPECT_EQ(RegionOf({{1, 3}, {9, 0, 9}}, 0), (std::vector<Rect>{{0, 0, 1, 1}, {0, 2, 1, 1}}));
}

TEST(RegionOf, ATransparentPicture_HasNone) { EXPECT_TRUE(RegionOf({{2, 2}, {7, 7, 7, 7}}, 7).empty()); }

TEST(BoundsOf, SeveralRectangles_GivesTheSmallestAroundThem)
{
    EXPECT_EQ(BoundsOf({{4, 1, 1, 1}, {2, 2, 1, 1}, {5, 5, 3, 2}}), (Rect{2, 1, 6, 6}));
}

TEST(RegionBytes, NoRectangle_IsTheHeaderAlone)
{
    EXPECT_EQ(RegionBytes({}), (std::vector<std::uint8_t>{32, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
                                                          0,  0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST(RegionBytes, ARectangle_HasItsFarEdgesOutside)
{
    const std::vector<std::uint8_t> bytes = RegionBytes({{1, 2, 3, 4}});

    EXPECT_EQ(std::vector<std::uint8_t>(bytes.begin() + 32, bytes.end()),
              (std::vector<std::uint8_t>{1, 0, 0, 0, 2, 0, 0, 0, 4, 0, 0, 0, 6, 0, 0, 0}));
}

TEST(RegionOf, RowsOfEqualWidthsAtOtherPlaces_AreNotMerged)
{
    EXPECT_EQ(RegionOf({{3, 2}, {9, 9, 0, 0, 9, 9}}, 0), (std::vector<Rect>{{0, 0, 2, 1}, {1, 1, 2, 1}}));
}
