#include "Require.h"
#include "platform/headless/Desktop.h"
#include "settings/ChoiceRecords.h"
#include "settings/OptionsJournal.h"
#include "settings/SavedOptions.h"
#include "settings/bOptions.h"

namespace {

std::size_t WritesOfSavedOptions(const CHeadlessDesktop& desktop)
{
    std::size_t writes = 0;
    settings::VisitSavedOptions([&](const settings::SavedOption& option) {
        writes += desktop.journal.Count("Registry.SetText " + std::string(option.key) + " ");
    });
    return writes;
}

// Whatever lies in the state folder: only options are written, and none of them ends the program.
void TakeOver(std::string file)
{
    CHeadlessDesktop desktop;
    desktop.stateFile.left.push_back(std::move(file));
    optionsJournal::TakeOver();
    Require(desktop.stateFile.left.empty());
    Require(desktop.journal.Count("Registry.SetText ") == WritesOfSavedOptions(desktop));
    bOptions::GetOptions();
}

}

// The bytes as they are, and as the choice of an option in a file that is whole: what is read is the beginning of the bytes,
// written once more.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string bytes(TextOf(data, size));
    const auto choices = settings::ReadChoices(bytes);
    Require(choices.empty() || bytes.starts_with(settings::WriteChoices(choices)));
    TakeOver(bytes);

    const std::size_t middle = size == 0 ? 0 : 1 + data[0] % size;
    const std::vector<settings::Choice> whole{{"SayTimeInterval", "30", bytes},
                                              {"CharWidth", "", bytes.substr(middle)},
                                              {bytes, bytes, bytes},
                                              {"UserName", bytes.substr(0, middle), bytes}};
    Require(settings::ReadChoices(settings::WriteChoices(whole)) == whole);
    TakeOver(settings::WriteChoices(whole));
    return 0;
}
