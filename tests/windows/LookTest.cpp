#include "driver/Companion.h"
#include <set>

// How the windows look. The pictures are kept for somebody to look at.
using namespace driver;

namespace {

class Look : public CCompanion {
protected:
    // What is seen of the window when it has been drawn: it stays the same for a moment.
    std::vector<DWORD> FinishedPicture(const std::string& name)
    {
        const RECT place = PlaceOf(parlune.Main());
        std::vector<DWORD> before;
        for (int same = 0; same < 10;) {
            LetOthersWork();
            Answers(parlune.Main());
            std::vector<DWORD> now = PictureOf(place).pixels;
            same = now == before ? same + 1 : 0;
            before = std::move(now);
        }
        TakePicture(parlune.Main(), name);
        return before;
    }
};

TEST_F(Look, PagesOfTheOptionsWindow_AreDifferentOnes)
{
    const char* const names[] = {"page0-general", "page1-character", "page2-voice", "page3-balloon",
                                 "page4-read",    "page5-greetings", "page6-about"};
    BeginShown();
    std::set<std::vector<DWORD>> seen;
    for (int page = 0; page < 7; ++page) {
        ShowPage(static_cast<Page>(page));
        seen.insert(FinishedPicture(names[page]));
    }
    ShowPage(Page::Voice);
    parlune.SetTab("tabTTS", 1);
    FinishedPicture("page2-modifiers");

    EXPECT_EQ(seen.size(), 7U);
}

TEST_F(Look, ControlsOfEachPage_AreSeenOnItAlone)
{
    BeginShown();
    ShowPage(Page::Greetings);

    EXPECT_TRUE(IsWindowVisible(parlune.Control("txtUserName")));
    EXPECT_FALSE(IsWindowVisible(parlune.Control("chkShowSplash")));
    EXPECT_FALSE(IsWindowVisible(parlune.Control("txtGreeting(1)")));
    EXPECT_TRUE(IsWindowVisible(parlune.Control("txtGreeting(0)")));
}

}
