#include "character/CharacterSession.h"
#include "common/zbErrorTrap.h"
#include "endurance/LiveMemory.h"
#include "reading/bRead.h"
#include "settings/bOptions.h"
#include "stories/Story.h"
#include "ui/TextEditor.h"
#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

// A run of the program in which memory runs out for a moment. What a user or the clock does comes as an event, as from the
// system's loop: a failure that nobody handles before is reported there.
class CRun : public CStory {
public:
    using CStory::Centre;
    using CStory::host;
    using CStory::PutOption;
    CRun()
    {
        PutOption("MonitorClipboard", "0");
        desktop.files.PutFile(LetterFile, "Dear Ann,\r\nall is well.");
    }
    void TestBody() override {}

    template <class Action> static void Event(Action action)
    {
        const zbErrorTrap::CGuard guard("Parlune", "Event");
        guard(action);
    }
    void Wait(std::int64_t milliseconds)
    {
        desktop.clock.Advance(milliseconds);
        const std::int64_t end = host.time.NowMilliseconds() + milliseconds;
        while (host.time.NowMilliseconds() < end || host.time.HasDue())
            Event([&] { host.Advance(end - host.time.NowMilliseconds()); });
    }
    void Begin()
    {
        Event([&] { Start(); });
        Wait(10'000);
    }
    void Copy(const std::string& text) { desktop.clipboard.Put(text); }
    void DoubleClick()
    {
        Event([&] {
            if (!host.windows.empty() && host.windows.back().mouse != nullptr)
                host.Window().DoubleClick(1, 0, Centre());
        });
        Wait(10'000);
    }
    bool Reads(const std::string& text)
    {
        Copy(text);
        DoubleClick();
        const std::vector<std::string> spoken = Spoken();
        return !spoken.empty() && spoken.back() == text;
    }
    std::size_t Reports() const { return desktop.messageBoxes.shown.size(); }

    static constexpr char LetterFile[] = "C:\\Users\\Ann\\Documents\\letter.txt";
};

struct Tale {
    std::string name;
    std::function<void(CRun&)> prepare;
    std::function<void(CRun&)> act;  // Of events only.
};

void Begin(CRun& run) { run.Begin(); }

const std::vector<Tale>& Tales()
{
    static const std::vector<Tale> tales = {
        {"Start", [](CRun&) {}, Begin},
        {"ReadClipboard",
         [](CRun& run) {
             run.Begin();
             run.Copy("The text of the clipboard is read.\r\n\r\nAll of it.");
         },
         [](CRun& run) { run.DoubleClick(); }},
        {"ReadTextFile", Begin,
         [](CRun& run) {
             CRun::Event([] { bRead::ReadTextFile(CRun::LetterFile); });
             run.Wait(10'000);
         }},
        {"Announce",
         [](CRun& run) {
             run.PutOption("SayTimeInterval", "1");
             run.PutOption("SayTimeText", "It is {Time}");
             run.Begin();
             run.Wait(60'000);
         },
         [](CRun& run) {
             CRun::Event([] { MainWindow().tmrTimer.Tick(); });
             run.Wait(10'000);
         }},
        {"SaveText",
         [](CRun& run) {
             run.Begin();
             MainWindow().txtRead.SetText("A text of the user's");
         },
         [](CRun&) { CRun::Event([] { textEditor::SaveFile(CRun::LetterFile); }); }},
        {"OpenText", Begin, [](CRun&) { CRun::Event([] { bOptions::OpenFile(CRun::LetterFile); }); }},
        {"SaveOptions",
         [](CRun& run) {
             run.Begin();
             MainWindow().txtUserName.SetText("Ann");
         },
         [](CRun&) { CRun::Event([] { bOptions::SetOptions(); }); }},
        {"LoadCharacter", Begin,
         [](CRun& run) {
             CRun::Event([] { character::CharLoad("", /*show*/ true); });
             run.Wait(10'000);
         }},
        {"LookAtEveryPage", Begin,
         [](CRun& run) {
             for (int page = 0; page < 7; ++page)
                 CRun::Event([&] { MainWindow().tabMain.Select(page); });
             run.Wait(1'000);
         }},
        {"Stop",
         [](CRun& run) {
             run.Begin();
             run.Copy("one two three four five six seven eight nine ten");
             CRun::Event([&] { run.host.Window().DoubleClick(1, 0, run.Centre()); });
             run.Wait(900);
         },
         [](CRun& run) {
             CRun::Event([&] { run.host.Window().Click(1, 1, run.Centre()); });
             run.Wait(5'000);
         }},
    };
    return tales;
}

// How many requests lie from one that fails to the next one.
std::int64_t Stride()
{
    const char* given = std::getenv("PARLUNE_MEMORY_STRIDE");
    return given ? std::max(1, std::atoi(given)) : 1;
}

class EveryRequest : public testing::TestWithParam<Tale> {
protected:
    struct Played {
        std::int64_t requests = 0;
        std::int64_t blocksKept = 0;  // After everything has gone.
    };
    Played Play(std::int64_t number) const
    {
        Played played;
        const std::int64_t blocks = liveMemory::Blocks();
        {
            CRun run;
            GetParam().prepare(run);
            liveMemory::FailRequest(number);
            GetParam().act(run);
            played.requests = liveMemory::Requests();
            liveMemory::FailRequest(0);
            if (number != 0)
                ExpectToGoOn(run);
        }
        played.blocksKept = liveMemory::Blocks() - blocks;
        return played;
    }
    // A character that did not come is loaded again, as a user would do it.
    static void ExpectToGoOn(CRun& run)
    {
        if (!run.Reads("all is well")) {
            CRun::Event([] { character::CharLoad("", /*show*/ true); });
            run.Wait(20'000);
            EXPECT_TRUE(run.Reads("all is well again")) << "nothing is read any more";
        }
    }
    // What a way is gone for the first time may make something for good; what is lost is lost each time.
    void FailRequests(std::int64_t number) const
    {
        EXPECT_TRUE(Play(number).blocksKept == 0 || Play(number).blocksKept == 0) << "memory is lost";
    }
    void FailEachRequest() const
    {
        Play(0);
        const std::int64_t requests = Play(0).requests;
        ASSERT_GT(requests, 10);
        for (std::int64_t number = 1; number <= requests && !HasFailure(); number += Stride()) {
            SCOPED_TRACE("request " + std::to_string(number) + " of " + std::to_string(requests));
            if (std::getenv("PARLUNE_MEMORY_TELL"))
                std::fprintf(stderr, "%s %lld\n", GetParam().name.c_str(), static_cast<long long>(number));
            FailRequests(number);
        }
    }
};

TEST_P(EveryRequest, OneFails_TheProgramGoesOnAndLosesNoMemory) { FailEachRequest(); }

INSTANTIATE_TEST_SUITE_P(Of, EveryRequest, testing::ValuesIn(Tales()), [](const auto& tale) { return tale.param.name; });

}
