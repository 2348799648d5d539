#include "ui/AboutTab.h"
#include "common/Numbers.h"
#include "common/WebAddresses.h"
#include "common/zbErrorTrap.h"
#include "common/zbShellEx.h"
#include "platform/EventPump.h"
#include "platform/Platform.h"
#include "ui/frmParlune.h"

namespace aboutTab {
namespace {

constexpr char Module[] = "Parlune";
constexpr char VisitedColor[] = "&H800000";
constexpr const char* Pages[] = {web::ScriptingTool, web::AgentRing, web::Home};

void ShowAsVisited(ui::CLabel& link)
{
    ui::TextStyle style = link.Style();
    style.color = text::ToInt32(VisitedColor);
    link.SetStyle(style);
}

}

void imgParlune_Click()
{
    const zbErrorTrap::CGuard guard(Module, "imgParlune_Click");
    guard([] { zbShellEx::ShellEx(web::Home); });
}

void imgAgentRing_Click()
{
    const zbErrorTrap::CGuard guard(Module, "imgAgentRing_Click");
    guard([] { zbShellEx::ShellEx(web::AgentRing); });
}

void lblURL_Click(std::int32_t index)
{
    const zbErrorTrap::CGuard guard(Module, "lblURL_Click");
    guard([&] { ShowAsVisited(MainWindow().lblURL[index]); });
    guard([] { platform::Current().events.RunPendingEvents(); });
    guard([&] { zbShellEx::ShellEx(Pages[index]); });
}

}
