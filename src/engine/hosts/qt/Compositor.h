#pragma once

namespace engine {

// Whether half-transparent pixels of a window show what is below: true with a compositing manager, and on platforms other
// than X11. Asks the X server at most once a second, more often with `now`.
bool CompositorRuns(bool now);

}
