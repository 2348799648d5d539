#include "settings/OptionsJournal.h"
#include "common/ProgramState.h"
#include "common/zbErrorTrap.h"
#include "platform/EventPump.h"
#include "platform/Platform.h"
#include "platform/StateFile.h"
#include "settings/ChoiceRecords.h"
#include "settings/SavedOptions.h"
#include "settings/bOptions.h"
#include <map>
#include <string>
#include <vector>

namespace optionsJournal {
namespace {

using settings::Choice;
using settings::SavedOption;
using settings::VisitSavedOptions;
using zbErrorTrap::IgnoreFailure;

constexpr std::int32_t RestMilliseconds = 500;

using Texts = std::map<std::string, std::string, std::less<>>;

struct JournalState {
    bool begun = false;
    bool callDue = false;
    bool hinted = false;
    Texts stored;  // By name; of options that were read or written in this run.
    Texts shown;   // By key, at the last look.
};

JournalState& State() { return common::StateOf<JournalState>(); }

platform::IStateFile& File() { return platform::Current().stateFile; }

std::string Stored(std::string_view name)
{
    const auto found = State().stored.find(name);
    return found == State().stored.end() ? std::string() : found->second;
}

Texts Shown()
{
    Texts shown;
    VisitSavedOptions([&](const SavedOption& option) { shown.emplace(option.key, option.Value()); });
    return shown;
}

// What the writer would write now.
std::vector<Choice> Choices()
{
    std::vector<Choice> choices;
    VisitSavedOptions([&](const SavedOption& option) {
        if (option.IsWritten())
            choices.push_back({option.key, Stored(option.key), option.Value()});
    });
    return choices;
}

bool IsAllStored()
{
    bool all = true;
    VisitSavedOptions([&](const SavedOption& option) {
        if (option.IsWritten() && Stored(option.key) != option.Value())
            all = false;
    });
    return all;
}

void KeepChoices() { File().Keep(settings::WriteChoices(Choices())); }

void LookWhenHinted();

bool CallLater(std::int32_t milliseconds)
{
    return IgnoreFailure([&] { platform::Current().events.CallLater(milliseconds, LookWhenHinted); });
}

// Looking shows as a hint, too: hints that come meanwhile do not count.
void LookWhenHinted()
{
    State().callDue = false;
    if (!State().hinted)
        return;
    State().callDue = true;
    const bool kept = Look();
    State().hinted = false;
    State().callDue = kept && CallLater(RestMilliseconds);
}

// False when the store refuses.
bool TakeOverOption(const Choice& choice, const SavedOption& option)
{
    if (bOptions::GetOption(choice.key, choice.stored, option.IsTruthValue()) != choice.stored)
        return true;
    bOptions::SetOption(choice.key, choice.chosen);
    return Stored(choice.key) == choice.chosen;
}

// Options of other names are none of ours.
bool TakeOverFile(const std::string& content)
{
    bool taken = true;
    for (const Choice& choice : settings::ReadChoices(content))
        VisitSavedOptions([&](const SavedOption& option) {
            if (choice.key == option.key && !TakeOverOption(choice, option))
                taken = false;
        });
    return taken;
}

}

void TakeOver()
{
    IgnoreFailure([] { File().TakeOver(TakeOverFile); });
}

void Begin()
{
    IgnoreFailure([] {
        State().shown = Shown();
        State().begun = true;
    });
}

void Hint()
{
    JournalState& state = State();
    if (!state.begun)
        return;
    state.hinted = true;
    if (state.callDue)
        return;
    state.callDue = CallLater(0);
}

bool Look()
{
    if (!State().begun)
        return false;
    bool changed = false;
    IgnoreFailure([&] {
        Texts shown = Shown();
        changed = shown != State().shown;
        if (changed) {
            KeepChoices();
            State().shown = std::move(shown);
        }
    });
    return changed;
}

void Close()
{
    if (!State().begun)
        return;
    State().begun = false;
    IgnoreFailure([] {
        if (IsAllStored())
            File().Remove();
        else
            KeepChoices();
    });
}

void Forget()
{
    State().begun = false;
    IgnoreFailure([] {
        File().Keep({});  // Where it cannot be removed, it says nothing.
        File().Remove();
    });
}

void NoteStored(std::string_view name, std::string_view text)
{
    IgnoreFailure([&] { State().stored.insert_or_assign(std::string(name), std::string(text)); });
}

}
