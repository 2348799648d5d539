#include "driver/Companion.h"
#include <vector>

// What a user typed is not lost, however the program ends.
using namespace driver;

namespace {

class KeptTexts : public CCompanion {
protected:
    // The contents of the kept texts whose names begin so.
    static std::vector<std::string> Kept(const std::string& beginning)
    {
        const std::string folder = CParlune::DataFolder() + "Tarrowind\\Parlune\\texts\\";
        std::vector<std::string> contents;
        WIN32_FIND_DATAA entry = {};
        const HANDLE search = FindFirstFileA((folder + beginning + "*").c_str(), &entry);
        for (bool more = search != INVALID_HANDLE_VALUE; more; more = FindNextFileA(search, &entry) != 0)
            contents.push_back(Contents(folder + entry.cFileName));
        if (search != INVALID_HANDLE_VALUE)
            FindClose(search);
        return contents;
    }
    using Texts = std::vector<std::string>;
};

TEST_F(KeptTexts, KilledWithAChangedText_TheNextStartTellsWhereItIs)
{
    BeginShown();
    parlune.SetText("txtRead", "Nobody saved this.");
    ASSERT_TRUE(Eventually([] { return !Kept("unsaved ").empty(); }, 3 * Patience));  // Half a minute, at least.
    parlune.Process().Kill();
    ASSERT_TRUE(parlune.HasEnded());
    agent.Forget();
    BeginShown();

    EXPECT_TRUE(Eventually([&] { return parlune.Text("staStatus").starts_with("Your unsaved text was kept: "); }))
        << parlune.Text("staStatus");
    EXPECT_EQ(Kept("2"), Texts{"Nobody saved this."});
    EXPECT_EQ(Kept("unsaved "), Texts{});
}

TEST_F(KeptTexts, SessionsEndWithAnUnnamedText_KeepsItWithoutADialog)
{
    BeginShown();
    parlune.SetText("txtRead", "No name yet.");
    SendMessageW(parlune.Main(), WM_QUERYENDSESSION, 0, 0);
    SendMessageW(parlune.Main(), WM_ENDSESSION, TRUE, 0);

    EXPECT_TRUE(parlune.HasEnded());
    EXPECT_EQ(Kept("unsaved "), Texts{"No name yet."});
}

TEST_F(KeptTexts, SaveOverAnotherContent_KeepsTheFormerBytes)
{
    const std::string picture = CParlune::DataFolder() + "picture.png";
    const std::string bytes("\x89PNG\r\n\x1A\n\0\xFF\xFE", 11);
    WriteFile(picture, bytes);
    BeginShown();
    parlune.Choose("mnuFileOpen");
    GiveFile(WaitForFileDialog(parlune.Id(), "Open Text File"), picture);
    ASSERT_TRUE(Eventually([&] { return parlune.Title() == "Parlune - [" + picture + "]"; }));
    parlune.SetText("txtRead", "x");
    parlune.Choose("mnuFileExit");

    EXPECT_TRUE(parlune.HasEnded());
    EXPECT_EQ(Contents(picture), "x\r\n");
    EXPECT_EQ(Kept("2"), Texts{bytes});
}

}
