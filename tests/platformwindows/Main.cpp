#include "platform/windows/Win32.h"
#include <gtest/gtest.h>

// Everything runs on one thread with an apartment of its own, as in the program.
int main(int argc, char** argv)
{
    OleInitialize(nullptr);
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&controls);
    testing::InitGoogleTest(&argc, argv);
    const int result = RUN_ALL_TESTS();
    OleUninitialize();
    return result;
}
