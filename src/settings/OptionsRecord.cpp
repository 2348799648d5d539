#include "settings/OptionsRecord.h"
#include "common/ProgramState.h"
#include "settings/OptionsJournal.h"

// Who asks for the record may be about to change it.
settings::OptionsRecord& settings::Options()
{
    optionsJournal::Hint();
    return common::StateOf<OptionsRecord>();
}
