#include "Story.h"

// What a user says to the character: the engine hears, the program obeys.
namespace {

class VoiceCommandStory : public CStory {
protected:
    void Hear(const std::vector<engine::HeardCommand>& matches)
    {
        host.speechInput.Hear(matches);
        Pass(1);
    }
};

constexpr char Text[] = "A text to read.";

}

TEST_F(VoiceCommandStory, Start_OffersTheProgramsCommands)
{
    StartAndSettle();

    EXPECT_EQ(host.speechInput.Offered(),
              (std::vector<std::string>{"ReadClipboard: Read Clipboard", "ReadTextFile: Read [Text] File", "Stop: Stop",
                                        "ExitParlune: (Exit|Close) Parlune"}));
}

TEST_F(VoiceCommandStory, ReadClipboard_Heard_ReadsIt)
{
    StartAndSettle();
    desktop.clipboard.Put(Text);

    Hear({{"ReadClipboard", 90, "read clipboard"}});

    EXPECT_EQ(Spoken(), (std::vector<std::string>{Text}));
}

TEST_F(VoiceCommandStory, ReadClipboard_HeardWithLittleConfidence_DoesNothing)
{
    StartAndSettle();
    desktop.clipboard.Put(Text);

    Hear({{"ReadClipboard", -40, "read clipboard"}});
    EXPECT_TRUE(Spoken().empty());
    Hear({{"ReadClipboard", -39, "read clipboard"}});
    EXPECT_EQ(Spoken(), (std::vector<std::string>{Text}));
}

TEST_F(VoiceCommandStory, ReadClipboard_HeardWithACloseRival_DoesNothing)
{
    StartAndSettle();
    desktop.clipboard.Put(Text);

    Hear({{"ReadClipboard", 60, "read clipboard"}, {"Stop", 51, "stop"}});
    EXPECT_TRUE(Spoken().empty());
    Hear({{"ReadClipboard", 60, "read clipboard"}, {"Stop", 50, "stop"}});
    EXPECT_EQ(Spoken(), (std::vector<std::string>{Text}));
}

TEST_F(VoiceCommandStory, Stop_Heard_SilencesTheCharacter)
{
    StartAndSettle();
    desktop.clipboard.Put(Text);
    Hear({{"ReadClipboard", 90, "read clipboard"}});
    Pass(300);
    ASSERT_FALSE(NobodySpeaks());

    Hear({{"Stop", 90, "stop"}});
    Pass(100);

    EXPECT_TRUE(NobodySpeaks());
}

TEST_F(VoiceCommandStory, ExitParlune_Heard_EndsTheProgram)
{
    StartAndSettle();

    Hear({{"ExitParlune", 90, "close parlune"}});
    Pass(10'000);

    EXPECT_FALSE(MainWindow().Loaded());
}

TEST_F(VoiceCommandStory, Speech_ThatMatchesNothing_DoesNothing)
{
    StartAndSettle();
    desktop.clipboard.Put(Text);

    Hear({});
    Hear({{"", 90, "hide Tester"}});

    EXPECT_TRUE(Spoken().empty());
    EXPECT_TRUE(MainWindow().Loaded());
}
