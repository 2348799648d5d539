#include "ui/ShellIntegration.h"
#include "support/FailEachCall.h"
#include "support/WiredTabs.h"

namespace {

using platform::Root;
using Texts = std::vector<std::string>;

constexpr char RunKey[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr char BrowserKey[] = "Software\\Microsoft\\Internet Explorer\\MenuExt\\Read with Parlune";

class ShellIntegration : public WiredTabs {
protected:
    std::optional<std::string> RunValue(const std::string& name) const
    {
        return desktop.registry.Text(Root::CurrentUser, RunKey, name);
    }
};

}

TEST_F(ShellIntegration, chkStartWithWindows_Click_Ticked_WritesTheProgramUnquotedWithItsBlanks)
{
    window.chkStartWithWindows.SetValue(1);
    EXPECT_EQ(RunValue("Parlune"), "C:\\Program Files\\Parlune\\Parlune.exe");
}

TEST_F(ShellIntegration, chkStartWithWindows_Click_Cleared_DeletesOnlyItsOwnValue)
{
    desktop.registry.Put(Root::CurrentUser, RunKey, "Other", "C:\\other.exe");
    window.chkStartWithWindows.SetValue(1);
    window.chkStartWithWindows.SetValue(0);
    EXPECT_EQ(RunValue("Parlune"), std::nullopt);
    EXPECT_EQ(RunValue("Other"), "C:\\other.exe");
}

TEST_F(ShellIntegration, chkStartWithWindows_Click_ClearedWithoutEntry_KeepsTheKeySilently)
{
    desktop.registry.Put(Root::CurrentUser, RunKey, "Other", "C:\\other.exe");
    window.chkStartWithWindows.SetValue(0);
    EXPECT_TRUE(desktop.registry.HasKey(Root::CurrentUser, RunKey));
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST_F(ShellIntegration, chkStartWithWindows_Click_WhenTheRegistryRefuses_StaysTickedAndTheNextClickTriesAgain)
{
    desktop.registry.RefuseToWrite(true);
    window.chkStartWithWindows.SetValue(1);
    EXPECT_EQ(window.chkStartWithWindows.Value(), 1);
    EXPECT_EQ(RunValue("Parlune"), std::nullopt);
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());

    desktop.registry.RefuseToWrite(false);
    window.chkStartWithWindows.SetValue(1);
    EXPECT_EQ(RunValue("Parlune"), "C:\\Program Files\\Parlune\\Parlune.exe");
}

TEST_F(ShellIntegration, chkIEMenu_Click_Ticked_WritesThePageAndThenTheMenus)
{
    window.chkIEMenu.SetValue(1);
    EXPECT_EQ(desktop.registry.Text(Root::CurrentUser, BrowserKey, ""), "C:\\Program Files\\Parlune\\Parlune.htm");
    EXPECT_EQ(desktop.journal.CallsOf("Registry.Set"),
              (Texts{"Registry.SetText * C:\\Program Files\\Parlune\\Parlune.htm", "Registry.SetNumber Contexts 17"}));
}

TEST_F(ShellIntegration, chkIEMenu_Click_Cleared_DeletesTheWholeKey)
{
    window.chkIEMenu.SetValue(1);
    window.chkIEMenu.SetValue(0);
    EXPECT_FALSE(desktop.registry.HasKey(Root::CurrentUser, BrowserKey));
}

TEST_F(ShellIntegration, chkIEMenu_Click_ClearedWithoutKey_IsSilent)
{
    window.chkIEMenu.SetValue(0);
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST_F(ShellIntegration, chkIEMenu_Click_WhenTheRegistryRefuses_StaysTickedSilently)
{
    desktop.registry.RefuseToWrite(true);
    window.chkIEMenu.SetValue(1);
    EXPECT_EQ(window.chkIEMenu.Value(), 1);
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST(ShellIntegrationFailures, chkStartWithWindows_Click_WhicheverCallFails_IsReportedByTheRegistryModule)
{
    for (const int value : {0, 1})
        support::FailEachCallAndExpect(
            {{"", value == 1 ? "bRegistry:SetReg" : "bRegistry:DelReg"}},
            [](CHeadlessDesktop& desktop) { desktop.registry.Put(Root::CurrentUser, RunKey, "Parlune", "old"); },
            [&](CHeadlessDesktop&) {
                MainWindow().chkStartWithWindows.SetValue(value);
                shellIntegration::chkStartWithWindows_Click();
            });
}

TEST(ShellIntegrationFailures, chkIEMenu_Click_WhicheverCallFails_IsReportedByTheRegistryModule)
{
    for (const int value : {0, 1})
        support::FailEachCallAndExpect(
            {{"", value == 1 ? "bRegistry:SetReg" : "bRegistry:DelReg"}}, [](CHeadlessDesktop&) {},
            [&](CHeadlessDesktop&) {
                MainWindow().chkIEMenu.SetValue(value);
                shellIntegration::chkIEMenu_Click();
            });
}
