#include "platform/windows/Win32.h"
#include <cstdio>
#include <gtest/gtest.h>
#include <string>

// The controls look and behave as in the program: as the manifest of version 6 of the common controls asks for.
namespace {

constexpr char Manifest[] =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\">\n"
    "<dependency><dependentAssembly><assemblyIdentity type=\"win32\" name=\"Microsoft.Windows.Common-Controls\" "
    "version=\"6.0.0.0\" processorArchitecture=\"*\" publicKeyToken=\"6595b64144ccf1df\" language=\"*\"/>"
    "</dependentAssembly></dependency>\n"
    "</assembly>\n";

bool TakeManifest()
{
    char folder[MAX_PATH] = "";
    GetTempPathA(MAX_PATH, folder);
    const std::string file = std::string(folder) + "parlune-test.manifest";
    std::FILE* out = std::fopen(file.c_str(), "wb");
    if (!out || std::fputs(Manifest, out) < 0 || std::fclose(out) != 0)
        return false;
    ACTCTXA context = {};
    context.cbSize = sizeof context;
    context.lpSource = file.c_str();
    ULONG_PTR cookie = 0;
    return ActivateActCtx(CreateActCtxA(&context), &cookie) != FALSE;
}

}

int main(int argc, char** argv)
{
    if (!TakeManifest()) {
        std::fputs("The manifest of the common controls cannot be used.\n", stderr);
        return 1;
    }
    OleInitialize(nullptr);
    INITCOMMONCONTROLSEX controls = {};
    controls.dwSize = sizeof controls;
    controls.dwICC = ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES;
    InitCommonControlsEx(&controls);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
