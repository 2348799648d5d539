#include "ui/frmParlune.h"
#include "ui/frmSplash.h"
#include "ui/layout/FormLayout.h"
#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <set>

using namespace ui::layout;

namespace {
// What has no place on a form's inside.
bool StandsOnTheForm(const ui::CControl* control)
{
    return dynamic_cast<const ui::CMenuItem*>(control) == nullptr && dynamic_cast<const ui::CTimer*>(control) == nullptr;
}

std::vector<std::string> NamesOf(const ui::CForm& form)
{
    std::vector<std::string> names;
    for (const ui::CControl* control : form.Controls())
        if (StandsOnTheForm(control))
            names.push_back(control->Name());
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<std::string> NamesIn(const FormLayout& layout)
{
    std::vector<std::string> names;
    for (const Row& row : layout.rows)
        names.emplace_back(row.control);
    std::sort(names.begin(), names.end());
    return names;
}

bool SameHolder(const Row& one, const Row& other)
{
    return one.holder.control == other.holder.control && one.holder.page == other.holder.page;
}

bool Overlap(const Rectangle& one, const Rectangle& other)
{
    return one.x < other.Right() && other.x < one.Right() && one.y < other.Bottom() && other.y < one.Bottom();
}

bool MiddleLiesWithin(const Rectangle& one, const Rectangle& other)
{
    const int middle = one.y + one.height / 2;
    return other.y <= middle && middle < other.Bottom();
}

// Boxes on one level need not begin at the same height: they share a line when the middle of one lies within the other.
bool IsBefore(const Row& one, const Row& other)
{
    if (MiddleLiesWithin(one.place, other.place) || MiddleLiesWithin(other.place, one.place))
        return one.place.x < other.place.x;
    return one.place.y < other.place.y;
}

const Row& RowOf(std::string_view control) { return *FindRow(MainWindowLayout(), control); }

std::vector<std::string> FramesOnPage(int page)
{
    std::vector<std::string> frames;
    for (const Row& row : MainWindowLayout().rows)
        if (row.holder.control == "tabMain" && row.holder.page == page)
            frames.emplace_back(row.control);
    return frames;
}
}

TEST(MainWindowLayout, Table_EveryControlOfTheForm_OccursOnce)
{
    EXPECT_EQ(NamesIn(MainWindowLayout()), NamesOf(frmParlune()));
}

TEST(SplashLayout, Table_EveryControlOfTheForm_OccursOnce) { EXPECT_EQ(NamesIn(SplashLayout()), NamesOf(frmSplash())); }

TEST(MainWindowLayout, Pages_AreThoseOfTheForm)
{
    EXPECT_EQ(FramesOnPage(0), (std::vector<std::string>{"fraStartup", "fraClipboard", "fraTime"}));
    EXPECT_EQ(FramesOnPage(1), std::vector<std::string>{"fraCharacter"});
    EXPECT_EQ(FramesOnPage(2), std::vector<std::string>{"fraVoice"});
    EXPECT_EQ(FramesOnPage(3), std::vector<std::string>{"fraBalloon"});
    EXPECT_EQ(FramesOnPage(4), (std::vector<std::string>{"tlbToolbar", "txtRead"}));
    EXPECT_EQ(FramesOnPage(5), std::vector<std::string>{"fraGreetings"});
    EXPECT_EQ(FramesOnPage(6), std::vector<std::string>{"fraAbout"});
}

TEST(MainWindowLayout, Holder_OfEveryRow_ComesBeforeIt)
{
    std::set<std::string_view> before{""};
    for (const Row& row : MainWindowLayout().rows) {
        EXPECT_TRUE(before.count(row.holder.control)) << row.control;
        before.insert(row.control);
    }
}

TEST(MainWindowLayout, Place_OfEveryControl_LiesInsideItsHolder)
{
    for (const FormLayout* layout : {&MainWindowLayout(), &SplashLayout()})
        for (const Row& row : layout->rows) {
            const Rectangle inside = InsideOf(*layout, row.holder);
            EXPECT_GE(row.place.x, 0) << row.control;
            EXPECT_GE(row.place.y, 0) << row.control;
            EXPECT_LE(row.place.Right(), inside.width) << row.control;
            EXPECT_LE(row.place.Bottom(), inside.height) << row.control;
        }
}

TEST(MainWindowLayout, Places_OnTheSameHolder_DoNotOverlap)
{
    for (const FormLayout* layout : {&MainWindowLayout(), &SplashLayout()})
        for (const Row& one : layout->rows)
            for (const Row& other : layout->rows)
                if (&one != &other && SameHolder(one, other)) {
                    EXPECT_FALSE(Overlap(one.place, other.place)) << one.control << " and " << other.control;
                }
}

TEST(MainWindowLayout, TabOrder_OnEveryHolder_FollowsTheEye)
{
    const Row* former = nullptr;
    std::map<std::pair<std::string_view, int>, const Row*> last;
    for (const Row& row : MainWindowLayout().rows) {
        former = std::exchange(last[{row.holder.control, row.holder.page}], &row);
        if (former) {
            EXPECT_TRUE(IsBefore(*former, row)) << former->control << " before " << row.control;
        }
    }
}

// Everything in a frame with a caption keeps the same distance from its edges, and so does everything on a bare page.
TEST(MainWindowLayout, Margins_LeftAndRight_AreEven)
{
    for (const Row& row : MainWindowLayout().rows) {
        if (row.kind == Kind::ToolBar || row.kind == Kind::Editor || row.kind == Kind::StatusBar || row.place.x == 0)
            continue;
        const Rectangle inside = InsideOf(MainWindowLayout(), row.holder);
        const int margin = row.holder.control == "tabTTS" ? 5 : 7;
        EXPECT_GE(row.place.x, margin) << row.control;
        EXPECT_LE(row.place.Right(), inside.width - margin) << row.control;
    }
}

TEST(MainWindowLayout, BalloonBoxes_FromTopToBottom_CountDown)
{
    EXPECT_LT(RowOf("chkBalloon(3)").place.y, RowOf("chkBalloon(2)").place.y);
    EXPECT_LT(RowOf("chkBalloon(2)").place.y, RowOf("chkBalloon(1)").place.y);
    EXPECT_LT(RowOf("chkBalloon(1)").place.y, RowOf("chkBalloon(0)").place.y);
}

TEST(MainWindowLayout, Label_ThatNamesAControl_NamesOneThatIsThere)
{
    for (const Row& row : MainWindowLayout().rows)
        if (!row.names.empty()) {
            EXPECT_NE(FindRow(MainWindowLayout(), row.names), nullptr) << row.control;
        }
}

TEST(MainWindowLayout, ToolBar_HasItsFiveKeysInOrder)
{
    const frmParlune form;
    std::vector<std::string> keys;
    for (const ToolButton& button : ToolBarButtons())
        keys.emplace_back(button.key);

    EXPECT_EQ(keys, (std::vector<std::string>{"NEW", "OPEN", "SAVE", "READ", "STOP"}));
    EXPECT_EQ(keys, form.tlbToolbar.Keys());
}

TEST(FindRow, UnknownControl_IsNull) { EXPECT_EQ(FindRow(MainWindowLayout(), "chkNothing"), nullptr); }

TEST(InsideOf, UnknownHolder_IsEmpty) { EXPECT_EQ(InsideOf(MainWindowLayout(), {"fraNothing"}).width, 0); }

TEST(InsideOf, EachKindOfHolder_HasItsPlacesFromItsOwnCorner)
{
    for (const char* holder : {"", "tabMain", "fraVoice"}) {
        const Rectangle inside = InsideOf(MainWindowLayout(), {holder});
        EXPECT_EQ(inside.x, 0) << holder;
        EXPECT_EQ(inside.y, 0) << holder;
        EXPECT_GT(inside.width, 0) << holder;
    }
}
