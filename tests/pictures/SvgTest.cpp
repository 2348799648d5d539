#include "Svg.h"
#include <fstream>
#include <gtest/gtest.h>
#include <stdexcept>
#include <unistd.h>

// The build's reader of pictures: what it understands becomes shapes, what it does not is an error.
namespace {
using ui::pictures::Verb;

struct Svg : testing::Test {
    std::filesystem::path folder = std::filesystem::temp_directory_path() / ("pictures" + std::to_string(::getpid()));
    void SetUp() override { std::filesystem::create_directories(folder); }
    void TearDown() override { std::filesystem::remove_all(folder); }

    svg::Picture Read(const std::string& inside, const std::string& name = "a.svg") const
    {
        std::ofstream(folder / name) << "<svg viewBox=\"0 0 10 20\">" << inside << "</svg>";
        return svg::Read(folder / name);
    }
    svg::Shape Only(const std::string& inside) const { return Read(inside).shapes.at(0); }
    std::string Failure(const std::string& inside) const
    {
        try {
            Read(inside);
        } catch (const std::exception& failure) {
            return failure.what();
        }
        return "";
    }
};
}

TEST_F(Svg, ViewBox_IsTheSize)
{
    const svg::Picture picture = Read("");

    EXPECT_EQ(picture.width, 10);
    EXPECT_EQ(picture.height, 20);
}

TEST_F(Svg, Path_RelativeAndAbsolute_EndAtTheSamePlace)
{
    const svg::Shape shape = Only("<path d=\"M1 2L4 2V5h-3z\"/>");

    EXPECT_EQ(shape.verbs, (std::vector<Verb>{Verb::Move, Verb::Line, Verb::Line, Verb::Line, Verb::Close}));
    EXPECT_EQ(shape.points, (std::vector<float>{1, 2, 4, 2, 4, 5, 1, 5}));
}

TEST_F(Svg, Path_SmoothCurve_MirrorsTheHandleBefore)
{
    const svg::Shape shape = Only("<path d=\"M0 0C0 1 2 1 2 0S4 -1 4 0\"/>");

    EXPECT_EQ(shape.points, (std::vector<float>{0, 0, 0, 1, 2, 1, 2, 0, 2, -1, 4, -1, 4, 0}));
}

TEST_F(Svg, Path_NumbersWithoutBlanks_AreTakenApart)
{
    EXPECT_EQ(Only("<path d=\"M1-2.5L.5.25\"/>").points, (std::vector<float>{1, -2.5F, 0.5F, 0.25F}));
}

TEST_F(Svg, Group_HandsItsColorsAndItsTransformDown)
{
    const svg::Shape shape =
        Only("<g fill=\"none\" stroke=\"#102030\" stroke-width=\"2\" transform=\"translate(1 2) scale(3)\">"
             "<line x1=\"0\" y1=\"0\" x2=\"1\" y2=\"1\"/></g>");

    EXPECT_EQ(shape.fill.first, 0U);
    EXPECT_EQ(shape.stroke.first, 0xff102030U);
    EXPECT_EQ(shape.strokeWidth, 6);
    EXPECT_EQ(shape.points, (std::vector<float>{1, 2, 4, 5}));
}

TEST_F(Svg, Opacity_IsTheColorsAlpha)
{
    EXPECT_EQ(Only("<rect width=\"1\" height=\"1\" fill=\"#ffffff\" fill-opacity=\"0.4\"/>").fill.first, 0x66ffffffU);
}

TEST_F(Svg, CurrentColor_IsTheInkAroundThePicture)
{
    EXPECT_TRUE(Only("<rect width=\"1\" height=\"1\" fill=\"currentColor\"/>").fill.ink);
}

TEST_F(Svg, Gradient_OfTwoStops_Blends)
{
    const svg::Shape shape = Only("<linearGradient id=\"g\"><stop stop-color=\"#000001\"/><stop stop-color=\"#000002\"/>"
                                  "</linearGradient><circle r=\"1\" fill=\"url(#g)\"/>");

    EXPECT_TRUE(shape.fill.blended);
    EXPECT_EQ(shape.fill.first, 0xff000001U);
    EXPECT_EQ(shape.fill.last, 0xff000002U);
}

TEST_F(Svg, Image_PutsAnotherFilesShapesInItsPlace)
{
    Read("<line x1=\"0\" y1=\"0\" x2=\"10\" y2=\"20\"/>", "inner.svg");
    const svg::Shape shape = Only("<image href=\"inner.svg\" x=\"1\" y=\"1\" width=\"5\" height=\"10\"/>");

    EXPECT_EQ(shape.points, (std::vector<float>{1, 1, 6, 11}));
}

TEST_F(Svg, Comment_IsNoShape) { EXPECT_TRUE(Read("<!-- <circle r=\"1\"/> -->").shapes.empty()); }

TEST_F(Svg, UnknownElement_IsAnErrorThatNamesTheFile)
{
    EXPECT_EQ(Failure("<text x=\"1\">a</text>"), "a.svg: element text is not known");
}

TEST_F(Svg, UnknownPathCommand_IsAnError)
{
    EXPECT_EQ(Failure("<path d=\"M0 0A1 1 0 0 0 2 2\"/>"), "a.svg: path command A is not known");
}

TEST_F(Svg, PathCommandWithoutItsNumbers_IsAnError)
{
    EXPECT_EQ(Failure("<path d=\"M0 0L1\"/>"), "a.svg: path command L has a wrong count of numbers");
}

TEST_F(Svg, NamedColor_IsAnError)
{
    EXPECT_EQ(Failure("<circle r=\"1\" fill=\"red\"/>"), "a.svg: colour red is none of the form #rrggbb");
}

TEST_F(Svg, GradientOfThreeStops_IsAnError)
{
    EXPECT_EQ(Failure("<linearGradient id=\"g\"><stop stop-color=\"#000001\"/><stop stop-color=\"#000002\"/>"
                      "<stop stop-color=\"#000003\"/></linearGradient><circle r=\"1\" fill=\"url(#g)\"/>"),
              "a.svg: gradient url(#g) has not two stops");
}

TEST_F(Svg, MissingFile_IsAnError) { EXPECT_THROW(svg::Read(folder / "none.svg"), std::runtime_error); }
