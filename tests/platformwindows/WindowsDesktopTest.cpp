#include "platform/windows/WindowsDesktop.h"
#include "Support.h"
#include "settings/zbRegistry.h"

namespace platform::windowsdesktop {

TEST(Desktop, Platform_HandsOutTheServicesThatItOwns)
{
    CWindowsDesktop desktop;
    EXPECT_EQ(&desktop.Platform().clipboard, &desktop.Clipboard());
    EXPECT_EQ(&desktop.Platform().events, &desktop.Events());
    EXPECT_EQ(&desktop.Platform().screen, &desktop.Screen());
    EXPECT_EQ(&desktop.Platform().trayIcon, &desktop.TrayIcon());
    EXPECT_EQ(desktop.Platform().files.Separator(), '\\');
}

TEST(Desktop, InUse_TheProgramsOwnProceduresReachTheSystem)
{
    const CWindowsDesktop desktop;
    const CPlatformInUse inUse(desktop.Platform());
    const std::string path = "Software\\ParluneDesktopTest\\Group\\";
    EXPECT_TRUE(zbRegistry::SetReg(Root::CurrentUser, path, "Item", "value"));
    EXPECT_EQ(zbRegistry::GetReg(Root::CurrentUser, path, "Item", "default"), "value");
    EXPECT_TRUE(zbRegistry::SetReg(Root::CurrentUser, path, "*", ""));
    EXPECT_EQ(zbRegistry::GetReg(Root::CurrentUser, path, "*", "default"), "");
    EXPECT_FALSE(zbRegistry::DelReg(Root::CurrentUser, "Software\\ParluneDesktopTest", ""));
    EXPECT_TRUE(zbRegistry::DelReg(Root::CurrentUser, path, ""));
    EXPECT_TRUE(zbRegistry::DelReg(Root::CurrentUser, "Software\\ParluneDesktopTest", ""));
    EXPECT_EQ(zbRegistry::GetReg(Root::CurrentUser, path, "Item", "default"), "default");
}

}
