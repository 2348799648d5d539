#include "character/bParlune.h"
#include "base/text/Text.h"
#include "character/CharacterSession.h"
#include "character/CharacterState.h"
#include "character/RequestWait.h"
#include "common/bGlobal.h"
#include "common/zbErrorTrap.h"
#include "reading/CParser.h"
#include "settings/OptionsRecord.h"
#include "ui/frmParlune.h"
#include <optional>

using character::BotID;
using character::State;
using zbErrorTrap::IgnoreFailure;

namespace {

constexpr char Module[] = "bParlune";
constexpr std::int64_t HideWaitSeconds = 5;

template <class Phrase> void ExpandToken(std::string& line, std::string_view token, const Phrase& phrase)
{
    if (text::FindIgnoringCase(line, token) != std::string::npos)
        line = text::ReplaceIgnoringCase(line, token, phrase());
}

// Deliberate: the tokens of date and time match in any letter case, the one of the user's name only as it is written.
std::string WithTokensExpanded(std::string line)
{
    if (line.find('{') == std::string::npos)
        return line;
    ExpandToken(line, "{TimeOfDay}", bGlobal::GetTimeOfDay);
    ExpandToken(line, "{Day}", bGlobal::GetDay);
    ExpandToken(line, "{Date}", bGlobal::GetDate);
    ExpandToken(line, "{Time}", [] { return bGlobal::GetTime(MainWindow().cboSayTimeFormat.Text()); });
    return text::Replace(line, "{UserName}", MainWindow().txtUserName.Text());
}

// The engine speaks one of the alternatives between "|", so that each of them needs the tags.
std::string WithTags(const std::string& line, const std::string& tags)
{
    return tags + text::Replace(line, "|", "|" + tags);
}

void KeepRequest(platform::RequestRef request, bool isTest)
{
    if (isTest) {
        State().testRequest = std::move(request);
        return;
    }
    State().speechRequest = request;
    State().skipTarget = std::move(request);
}

void SpeakLines(std::string_view lines, const std::string& soundFile, bool isTest)
{
    CParser parser;
    parser.ParseIt(lines, text::LineBreak);
    const std::string tags = bParlune::GetAdvSpeakTags();
    for (std::int32_t number = 1; number <= parser.FieldCount(); ++number) {
        if (parser.Field(number).empty())
            continue;
        const std::string line = WithTags(WithTokensExpanded(parser.Field(number)), tags);
        // Deliberate: an empty first line takes the sound with it.
        const bool withSound = number == 1 && !soundFile.empty();
        KeepRequest(character::Current().Speak(line, withSound ? std::optional(soundFile) : std::nullopt), isTest);
    }
}

void HideAndWait(platform::ICharacter& character)
{
    const platform::RequestRef hiding = character.Hide(std::nullopt);
    character::WaitForRequest(hiding, HideWaitSeconds);
}

void ForgetCurrent()
{
    State().current = nullptr;
    State().animationNames.clear();
    State().loaded = false;
}

}

void bParlune::CharSpeak(const std::string& text, const std::string& soundFile, bool isTest)
{
    const zbErrorTrap::CGuard guard(Module, "CharSpeak");
    guard([&] {
        const std::string_view trimmed = text::Trim(text);
        if (trimmed.empty() && !soundFile.empty())
            State().speechRequest = character::Current().Speak(std::nullopt, soundFile);
        else
            SpeakLines(trimmed, soundFile, isTest);
    });
}

void bParlune::CharPlay(const std::string& animation)
{
    if (State().loaded)
        IgnoreFailure([&] { character::Current().Play(animation); });
}

void bParlune::CharStop()
{
    IgnoreFailure([] { character::Current().StopAll(std::nullopt); });
}

void bParlune::CharHide()
{
    CharStop();
    IgnoreFailure([] { character::Current().Hide(std::nullopt); });
}

void bParlune::CharShow()
{
    const auto show = [] { character::Current().Show(std::nullopt); };
    if (IgnoreFailure(show))
        return;
    IgnoreFailure([] { character::CharLoad(settings::Options().Character, true); });
    IgnoreFailure(show);
}

bool bParlune::CharVisible()
{
    bool visible = false;
    IgnoreFailure([&] { visible = character::Current().Visible(); });
    return visible;
}

void bParlune::CharUnload(bool waitForHide)
{
    const zbErrorTrap::CGuard guard(Module, "CharUnload");
    guard([&] {
        character::Current().StopAll(std::nullopt);
        const std::shared_ptr<platform::ICharacter> leaving = State().current;
        if (waitForHide && leaving->Visible())
            HideAndWait(*leaving);
        if (State().current != leaving)  // An event of the wait has unloaded it, or loaded another one.
            return;
        State().engine->Characters()->Unload(BotID);
        ForgetCurrent();
    });
}
