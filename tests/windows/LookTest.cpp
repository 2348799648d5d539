#include "driver/Companion.h"
#include <set>

// How the windows look. The pictures are kept for somebody to look at.
using namespace driver;

namespace {

class Look : public CCompanion {};

TEST_F(Look, PagesOfTheOptionsWindow_AreDifferentOnes)
{
    const char* const names[] = {"page0-general", "page1-character", "page2-voice", "page3-balloon",
                                 "page4-read",    "page5-greetings", "page6-about"};
    BeginShown();
    std::set<std::vector<DWORD>> seen;
    for (int page = 0; page < 7; ++page) {
        parlune.GoTo(static_cast<Page>(page));
        RedrawWindow(parlune.Main(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
        ASSERT_TRUE(Answers(parlune.Main()));
        TakePicture(parlune.Main(), names[page]);
        seen.insert(PictureOf(PlaceOf(parlune.Main())).pixels);
    }
    parlune.GoTo(Page::Voice);
    parlune.SetTab("tabTTS", 1);
    ASSERT_TRUE(Answers(parlune.Main()));
    TakePicture(parlune.Main(), "page2-modifiers");

    EXPECT_EQ(seen.size(), 7U);
}

TEST_F(Look, ControlsOfEachPage_AreSeenOnItAlone)
{
    BeginShown();
    parlune.GoTo(Page::Greetings);

    EXPECT_TRUE(IsWindowVisible(parlune.Control("txtUserName")));
    EXPECT_FALSE(IsWindowVisible(parlune.Control("chkShowSplash")));
    EXPECT_FALSE(IsWindowVisible(parlune.Control("txtGreeting(1)")));
    EXPECT_TRUE(IsWindowVisible(parlune.Control("txtGreeting(0)")));
}

}
