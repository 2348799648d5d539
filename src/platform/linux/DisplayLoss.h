#pragma once

namespace platform::linuxdesktop {

// True when the X server that showed the program's windows has gone: nothing can be shown or asked any more. Stays true. On
// the user-interface thread.
bool DisplayIsLost();

}
