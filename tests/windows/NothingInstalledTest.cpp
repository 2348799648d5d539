#include "driver/Desk.h"
#include "driver/WebPages.h"

// A machine without character engine and speech control panel.
using namespace driver;

namespace {

constexpr char NoEngine[] = "Microsoft Agent 2.0 does not appear to be properly setup on your computer.\r\n\r\n"
                            "Click 'OK' to visit the Parlune website for setup instructions.\r\n"
                            "Click 'Cancel' to try and start Parlune anyways.";
constexpr char NoSpeechPanel[] =
    "The 'Speech Control Panel' does not appear to be installed properly on your computer.\r\n\r\n"
    "Click 'OK' to visit the Parlune website for setup instructions.\r\n"
    "Click 'Cancel' to try and start Parlune anyways.";
constexpr char NoControl[] = "Microsoft Agent 2.0 does not appear to be properly setup on your computer.\r\n\r\n"
                             "Click 'OK' to visit the Parlune website for setup instructions.\r\n"
                             "Click 'Cancel' to Close Parlune.";

class NothingInstalled : public CDesk {
protected:
    // Starts the program, answers a box that must come with this text, and gives the next one.
    Box StartAndSee(const std::string& text)
    {
        parlune.Start();
        return See(text);
    }
    Box See(const std::string& text)
    {
        const Box box = WaitForBox(parlune.Id());
        EXPECT_EQ(box.text, text);
        return box;
    }
};

TEST_F(NothingInstalled, Start_TellsFirstOfTheEngine)
{
    const Box box = StartAndSee(NoEngine);

    EXPECT_EQ(box.title, "Parlune");
    EXPECT_EQ(box.buttons, (std::vector<int>{IDOK, IDCANCEL}));
    EXPECT_EQ(box.standard, IDOK);
    EXPECT_EQ(SignOf(box), Sign::Warning);
}

TEST_F(NothingInstalled, Start_Ok_OpensTheHomePage)
{
    Answer(StartAndSee(NoEngine), IDOK);

    EXPECT_EQ(browser::WaitForPage(), "https://parlune.example/");
}

TEST_F(NothingInstalled, Start_OkTwice_TellsOfBothAndEnds)
{
    Answer(StartAndSee(NoEngine), IDOK);
    Answer(See(NoSpeechPanel), IDOK);

    EXPECT_TRUE(parlune.HasEnded());
    EXPECT_TRUE(Eventually([] { return browser::Opened().size() == 2; }));
    EXPECT_EQ(browser::Opened(), (std::vector<std::string>{"https://parlune.example/", "https://parlune.example/"}));
}

TEST_F(NothingInstalled, Start_Cancel_TellsThatTheControlIsMissing)
{
    Answer(StartAndSee(NoEngine), IDCANCEL);

    const Box box = See(NoControl);
    EXPECT_EQ(box.title, "Parlune");
    EXPECT_EQ(box.buttons, (std::vector<int>{IDOK, IDCANCEL}));
    EXPECT_EQ(SignOf(box), Sign::Warning);
}

TEST_F(NothingInstalled, Start_CancelThenCancel_EndsAtOnce)
{
    Answer(StartAndSee(NoEngine), IDCANCEL);
    Answer(See(NoControl), IDCANCEL);

    EXPECT_TRUE(parlune.HasEnded());
    EXPECT_TRUE(browser::Opened().empty());
}

TEST_F(NothingInstalled, Start_CancelThenOk_OpensTheSetupPageAndEnds)
{
    Answer(StartAndSee(NoEngine), IDCANCEL);
    Answer(See(NoControl), IDOK);

    EXPECT_TRUE(parlune.HasEnded());
    EXPECT_EQ(browser::WaitForPage(), "https://parlune.example/setup");
}

TEST_F(NothingInstalled, Start_WithNoDetect_AsksNothingAndTellsThatTheControlIsMissing)
{
    parlune.Start(" /NoDetect");
    Answer(See(NoControl), IDCANCEL);

    EXPECT_TRUE(parlune.HasEnded());
}

TEST_F(NothingInstalled, Start_EngineRegisteredButGone_PassesDetectionThenFails)
{
    registry::PutText(HKEY_CLASSES_ROOT, "Agent.Control.2\\CLSID", "", "{11111111-2222-3333-4444-555555555555}");
    registry::PutOption("DSSInstalled", "1");
    Answer(StartAndSee(NoControl), IDCANCEL);

    EXPECT_TRUE(parlune.HasEnded());
    registry::Remove(HKEY_CLASSES_ROOT, "Agent.Control.2");
}

TEST_F(NothingInstalled, Start_Fails_WritesNoOptions)
{
    Answer(StartAndSee(NoEngine), IDCANCEL);
    Answer(See(NoControl), IDCANCEL);

    EXPECT_TRUE(parlune.HasEnded());
    EXPECT_EQ(registry::Option("FirstTime"), "(none)");
    EXPECT_EQ(registry::Option("DSSInstalled"), "(none)");
}

}
