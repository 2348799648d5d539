#include "character/CharacterEvents.h"
#include "character/CharLoadSteps.h"
#include "character/CharacterProperties.h"
#include "character/CharacterState.h"
#include "character/bParlune.h"
#include "common/zbErrorTrap.h"
#include "reading/bRead.h"
#include "ui/Menus.h"
#include "ui/StatusBar.h"
#include "ui/frmParlune.h"
#include <cstdlib>

namespace character {
namespace {

constexpr std::int16_t LeftButton = 1;
constexpr std::int16_t RightButton = 2;
constexpr std::int16_t NoKey = 0;
constexpr std::int16_t ShiftKey = 1;
constexpr std::int16_t ControlKey = 2;

constexpr std::int32_t RejectedConfidence = -40;
constexpr std::int64_t DistinctDifference = 10;

bool CloseToBest(const platform::IUserInput& input)
{
    const std::int64_t alternative = std::llabs(input.Alt1Confidence());
    const std::int64_t best = std::llabs(input.Confidence());
    return std::llabs(alternative - best) < DistinctDifference;
}

bool Rivals(const platform::IUserInput& input, const std::string& alternativeName)
{
    // Deliberate: the confidence of the first alternative decides about the second one too.
    return !alternativeName.empty() && input.Name() != alternativeName && CloseToBest(input);
}

bool Unambiguous(const platform::IUserInput& input)
{
    return input.Confidence() > RejectedConfidence && !Rivals(input, input.Alt1Name()) && !Rivals(input, input.Alt2Name());
}

void Obey(const std::string& command)
{
    if (command == "ReadClipboard")
        bRead::ReadClipboard();
    else if (command == "ReadTextFile")
        bRead::ReadTextFile("");
    else if (command == "Stop")
        bParlune::CharStop();
    else if (command == "ExitParlune")
        MainWindow().Unload(ui::UnloadMode::Code);
}

void ToggleMainWindow()
{
    const zbErrorTrap::CGuard guard(SessionModule, "AgentControl_DblClick");
    frmParlune& window = MainWindow();
    if (window.Visible()) {
        guard([&] { window.SetState(ui::WindowState::Minimized); });
        guard([&] { window.SetVisible(false); });
    } else {
        guard([&] { window.SetState(ui::WindowState::Normal); });
        guard([&] { window.SetVisible(true); });
        guard([&] { window.Activate(); });
    }
}

bool IsTestRequest(const platform::IRequest& request)
{
    if (!State().testRequest)
        throw platform::failure::ObjectNotSet();
    return State().testRequest->ID() == request.ID();
}

void Clicked(std::int16_t button, std::int16_t shift)
{
    if (button == LeftButton && shift == ShiftKey) {
        bParlune::CharStop();
        bParlune::CharPlay("RestPose");
    } else if (button == RightButton && shift == NoKey) {
        ui::PopUpCharacterMenu();
    }
}

void DoubleClicked(std::int16_t button, std::int16_t shift)
{
    if (button != LeftButton)
        return;
    if (shift == NoKey && MainWindow().chkReadClipBoardOnDblClick.Ticked())
        bRead::ReadClipboard();
    else if (shift == ControlKey)
        ToggleMainWindow();
}

void Understand(const platform::IUserInput& input)
{
    const zbErrorTrap::CGuard guard(SessionModule, "AgentControl_Command");
    bool understood = false;
    std::string command;
    guard([&] { understood = Unambiguous(input); });
    if (!understood)
        return;
    guard([&] { command = input.Name(); });
    guard([&] { Obey(command); });
}

void Completed(const platform::RequestRef& request)
{
    statusBar::Refresh();
    zbErrorTrap::IgnoreFailure([&] {
        if (request && request->Status() == platform::RequestStatus::Completed && IsTestRequest(*request))
            RestoreCharProperties();
    });
}

class CEventReceiver final : public platform::ICharacterEngineEvents {
public:
    void Click(const std::string&, std::int16_t button, std::int16_t shift, std::int16_t, std::int16_t) override
    {
        const zbErrorTrap::CEventHandler handler;
        Clicked(button, shift);
    }

    void DblClick(const std::string&, std::int16_t button, std::int16_t shift, std::int16_t, std::int16_t) override
    {
        const zbErrorTrap::CEventHandler handler;
        DoubleClicked(button, shift);
    }

    void Command(const platform::IUserInput& input) override
    {
        const zbErrorTrap::CEventHandler handler;
        Understand(input);
    }

    void RequestComplete(const platform::RequestRef& request) override
    {
        const zbErrorTrap::CEventHandler handler;
        Completed(request);
    }

    // These can report nothing.
    void Show(const std::string&, std::int16_t) override { ui::RefreshMenu(true); }
    void Hide(const std::string&, std::int16_t) override { ui::RefreshMenu(false); }
    // Deliberate: treated like a hide; nothing is loaded again.
    void DefaultCharacterChange(const std::string&) override { ui::RefreshMenu(false); }
    void RequestStart(const platform::RequestRef&) override { statusBar::Refresh(); }
};

}

platform::ICharacterEngineEvents& EventReceiver()
{
    static CEventReceiver receiver;
    return receiver;
}

void CharLoad_Commands()
{
    struct VoiceCommand {
        const char* name;
        const char* caption;
        const char* grammar;
    };
    static constexpr VoiceCommand VoiceCommands[] = {
        {"ReadClipboard", "&Read Clipboard", "Read Clipboard"},
        {"ReadTextFile", "&Read Text File", "Read [Text] File"},
        {"Stop", "&Stop", "Stop"},
        {"ExitParlune", "E&xit Parlune", "(Exit|Close) Parlune"},
    };
    const std::shared_ptr<platform::ICommands> commands = Current().Commands();
    commands->RemoveAll();
    commands->SetCaption("Parlune");
    for (const VoiceCommand& command : VoiceCommands)
        commands->Add(command.name, command.caption, command.grammar, std::nullopt, std::nullopt);
}

}
