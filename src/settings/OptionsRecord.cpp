#include "settings/OptionsRecord.h"
#include "common/ProgramState.h"

settings::OptionsRecord& settings::Options() { return common::StateOf<OptionsRecord>(); }
