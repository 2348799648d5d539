#pragma once

namespace startup {

// Ties every control, window and engine event to its procedure. Once per run, before the start-up window is loaded.
void WireProgram();

}
