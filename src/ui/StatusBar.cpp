#include "ui/StatusBar.h"
#include "base/text/Case.h"
#include "character/CharacterState.h"
#include "character/RequestWait.h"
#include "common/ProgramState.h"
#include "common/zbErrorTrap.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "reading/bClipboard.h"
#include "ui/frmParlune.h"

namespace {

// The engine is asked for a character's name once.
struct KnownCharacter {
    std::weak_ptr<platform::ICharacter> character;
    std::string name;
};

struct Note {
    std::string text;  // "" for none.
    std::int64_t since = 0;
};

constexpr std::int64_t LeastMilliseconds = 2000;

Note& Told() { return common::StateOf<Note>(); }

std::int64_t Milliseconds() { return platform::Current().clock.SteadyMilliseconds(); }

std::string WithNote(std::string activity) { return Told().text.empty() ? activity : Told().text + " | " + activity; }

std::string NameOf(const std::shared_ptr<platform::ICharacter>& character)
{
    KnownCharacter& known = common::StateOf<KnownCharacter>();
    if (known.character.lock() != character) {
        known.name = statusBar::PlainName(character->Name());
        known.character = character;
    }
    return known.name;
}

void Append(std::string& words, const char* word) { words += (words.empty() ? "" : ", ") + std::string(word); }

// The menu's caption is the program's only record of whether the user has the character shown.
statusBar::Activity Now()
{
    const character::CharacterState& state = character::State();
    statusBar::Activity now;
    now.monitoring = bClipboard::Monitoring();
    now.shown = MainWindow().mnuPopHide.Caption() == "&Hide";
    if (!state.loaded || !state.current)
        return now;
    now.reading = character::StillRunning(state.speechRequest);
    now.character = NameOf(state.current);
    return now;
}

}

std::string statusBar::PlainName(std::string_view name)
{
    constexpr std::string_view Ending = ".acs";
    name.remove_prefix(name.find_last_of("/\\") + 1);
    if (name.size() > Ending.size() && text::EqualIgnoringCase(name.substr(name.size() - Ending.size()), Ending))
        name.remove_suffix(Ending.size());
    return std::string(name);
}

std::string statusBar::TextFor(const Activity& activity)
{
    const bool present = !activity.character.empty();
    std::string doing;
    if (activity.reading)
        Append(doing, "reading");
    else if (!activity.shown)
        Append(doing, "hidden");
    if (activity.monitoring)
        Append(doing, "monitoring the clipboard");
    const std::string who = present ? activity.character : activity.shown ? "No character" : "Character";
    return doing.empty() ? who : who + " - " + doing;
}

void statusBar::Tell(const std::string& note)
{
    Told() = {note, Milliseconds()};
    Refresh();
}

void statusBar::Edited()
{
    if (Told().text.empty())
        return;
    zbErrorTrap::IgnoreFailure([] {
        if (Milliseconds() - Told().since < LeastMilliseconds)
            return;
        Told() = {};
        Refresh();
    });
}

void statusBar::Refresh()
{
    zbErrorTrap::IgnoreFailure([] { MainWindow().staStatus.SetText(WithNote(TextFor(Now()))); });
}
