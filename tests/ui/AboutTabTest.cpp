#include "ui/AboutTab.h"
#include "support/FailEachCall.h"
#include "support/WiredTabs.h"

namespace {

using Texts = std::vector<std::string>;

class AboutTab : public WiredTabs {
protected:
    Texts Opened() const
    {
        Texts opened;
        for (const auto& each : desktop.shell.opened)
            opened.push_back(each.file);
        return opened;
    }
};

constexpr std::int32_t DarkBlue = 0x800000;  // Blue is the highest byte.

}

TEST_F(AboutTab, imgParlune_Click_OpensTheHomePage)
{
    window.imgParlune.Click();
    EXPECT_EQ(Opened(), Texts{"https://parlune.example/"});
}

TEST_F(AboutTab, imgAgentRing_Click_OpensTheRing)
{
    window.imgAgentRing.Click();
    EXPECT_EQ(Opened(), Texts{"https://parlune.example/agent-ring"});
}

TEST_F(AboutTab, lblURL_Click_OpensThePageOfItsIndex)
{
    window.lblURL[0].Click();
    window.lblURL[1].Click();
    window.lblURL[2].Click();
    EXPECT_EQ(Opened(), (Texts{"https://parlune.example/scripting", "https://parlune.example/agent-ring",
                               "https://parlune.example/"}));
}

TEST_F(AboutTab, lblURL_ShowsTheAddressThatItOpens)
{
    for (ui::CLabel& link : window.lblURL) {
        link.Click();
        EXPECT_EQ(Opened().back(), link.Caption());
    }
}

TEST_F(AboutTab, lblURL_Click_ShowsThatLinkOnlyAsVisited)
{
    window.lblURL[1].Click();
    EXPECT_EQ(window.lblURL[0].Style().color, 0);
    EXPECT_EQ(window.lblURL[1].Style().color, DarkBlue);
    EXPECT_EQ(window.lblURL[2].Style().color, 0);
}

TEST_F(AboutTab, lblURL_Click_ShowsTheColorBeforeThePageOpens)
{
    std::int32_t color = 0;
    std::size_t opened = 1;
    desktop.events.AtYield(1, [&] {
        color = window.lblURL[0].Style().color;
        opened = desktop.shell.opened.size();
    });
    window.lblURL[0].Click();
    EXPECT_EQ(color, DarkBlue);
    EXPECT_EQ(opened, 0U);
}

TEST_F(AboutTab, lblURL_Click_WhenTheLabelFails_IsReportedAndThePageOpens)
{
    window.lblURL[2].SetPeer([this] { throw failure; });
    window.lblURL[2].Click();
    EXPECT_EQ(Reports(), Texts{"Parlune:lblURL_Click"});
    EXPECT_EQ(Opened(), Texts{"https://parlune.example/"});
}

TEST_F(AboutTab, lblURL_Click_WhenTheEventsFail_IsReportedAndThePageOpens)
{
    desktop.journal.FailNext("Events.RunPendingEvents", failure);
    window.lblURL[2].Click();
    EXPECT_EQ(Reports(), Texts{"Parlune:lblURL_Click"});
    EXPECT_EQ(Opened(), Texts{"https://parlune.example/"});
}

TEST_F(AboutTab, imgParlune_Click_WhenTheDesktopCannotBeAsked_TellsTheUser)
{
    desktop.journal.FailNext("Shell.Open", failure);
    window.imgParlune.Click();
    EXPECT_EQ(desktop.messageBoxes.Last().Line(1), "Error opening:");
    EXPECT_EQ(desktop.messageBoxes.Last().Line(2), "https://parlune.example/");
}
