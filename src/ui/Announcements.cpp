#include "ui/Announcements.h"
#include "base/text/Text.h"
#include "character/CharacterState.h"
#include "character/RequestWait.h"
#include "character/bParlune.h"
#include "common/Numbers.h"
#include "common/ProgramState.h"
#include "common/zbErrorTrap.h"
#include "platform/Clock.h"
#include "platform/Failure.h"
#include "platform/Platform.h"
#include "ui/frmParlune.h"

namespace {

constexpr char Module[] = "Parlune";
constexpr std::int64_t SpeechWaitSeconds = 5;

struct AnnouncementState {
    std::int32_t lastMinute = 0;  // When the schedule was looked at last, 1 to 60; 0 before the first time.
};

AnnouncementState& State() { return common::StateOf<AnnouncementState>(); }

std::int32_t MinuteOfHour()
{
    const std::int32_t minute = platform::Current().clock.Now().minute;
    return minute == 0 ? 60 : minute;
}

// The minute is kept before anything can fail, and before the announcement lets other ticks run.
bool NewMinuteIsDue(const frmParlune& window)
{
    const std::int32_t minute = MinuteOfHour();
    if (minute == std::exchange(State().lastMinute, minute))
        return false;
    return announcements::AnnouncementDue(minute, text::ToInt32(window.cboSayTimeInterval.Text()));
}

// Returns false when the program keeps no speech to wait for.
bool WaitForSpeech()
{
    const platform::RequestRef& kept = character::State().speechRequest;  // What an event of the wait makes of it counts.
    character::WaitForRequest(kept, SpeechWaitSeconds);
    return kept != nullptr;
}

}

bool announcements::AnnouncementDue(std::int32_t minute, std::int32_t interval)
{
    if (interval == 0)
        throw platform::failure::DivisionByZero();
    return minute % interval == 0;
}

void announcements::tmrTimer_Timer()
{
    const zbErrorTrap::CGuard guard(Module, "Timer");
    guard([] {
        const frmParlune& window = MainWindow();
        if (window.chkSayTime.Value() == 1 && NewMinuteIsDue(window))
            SayTime();
    });
}

// Deliberate: a hidden character is shown whatever the box about showing it says.
void announcements::SayTime()
{
    const zbErrorTrap::CGuard guard(Module, "SayTime");
    std::string sentence;
    bool wasVisible = false;
    bool spoken = true;

    guard([&] { sentence = text::Trim(MainWindow().cboSayTime.Text()); });
    guard([&] { wasVisible = bParlune::CharVisible(); });
    if (!wasVisible)
        guard([] { bParlune::CharShow(); });
    guard([&] { bParlune::CharSpeak(sentence, "", /*isTest*/ false); });
    guard([&] { spoken = WaitForSpeech(); });
    if (spoken && !wasVisible && character::State().loaded)  // Unless an event of the wait has unloaded it.
        guard([] { bParlune::CharUnload(/*waitForHide*/ true); });
}
