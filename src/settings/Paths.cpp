#include "settings/Paths.h"
#include "common/ProgramState.h"

settings::ProgramPaths& settings::Paths() { return common::StateOf<ProgramPaths>(); }
