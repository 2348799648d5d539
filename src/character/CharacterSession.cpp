#include "character/CharacterSession.h"
#include "base/text/Text.h"
#include "character/CharLoadSteps.h"
#include "character/CharacterEvents.h"
#include "character/CharacterState.h"
#include "character/Greeting.h"
#include "character/bParlune.h"
#include "common/zbErrorTrap.h"
#include "platform/EventPump.h"
#include "platform/Platform.h"
#include "settings/OptionsRecord.h"
#include "settings/bOptions.h"
#include "ui/BalloonTab.h"
#include "ui/StatusBar.h"
#include "ui/frmParlune.h"
#include <array>

namespace character {
namespace {

zbErrorTrap::CGuard Guard() { return {SessionModule, "CharLoad"}; }

void ConnectEngine()
{
    if (State().engine)
        return;
    Guard()([] { State().engine = platform::Current().characterEngines.Create(); });
    if (!State().engine)
        return;
    Guard()([] { State().engine->SetConnected(true); });
    Guard()([] { State().engine->SetEvents(&EventReceiver()); });
}

// Unloads the character that is to be replaced and returns where it stood; nothing when there is none.
std::optional<ScreenFrame> PutFormerAway()
{
    if (!State().loaded)
        return std::nullopt;
    ScreenFrame frame;
    Guard()([&] { frame.left = Current().Left(); });
    Guard()([&] { frame.top = Current().Top(); });
    Guard()([&] { frame.width = Current().Width(); });
    Guard()([&] { frame.height = Current().Height(); });
    bParlune::CharUnload(/*waitForHide*/ false);
    return frame;
}

platform::ICharacterEngine& Engine()
{
    if (!State().engine)
        throw platform::failure::ObjectNotSet();
    return *State().engine;
}

bool LoadFile(const std::string& id)
{
    const bool isFile = text::FindIgnoringCase(id, ".acs") != std::string::npos;
    return zbErrorTrap::IgnoreFailure([&] { Engine().Characters()->Load(BotID, isFile ? id : id + ".acs"); });
}

bool LoadDefault()
{
    try {
        Engine().Characters()->Load(BotID, std::nullopt);
        return true;
    } catch (const platform::CFailure& failure) {
        return failure.Number() == platform::engineError::AlreadyLoaded;
    } catch (const std::exception&) {
        return false;
    }
}

// Leaves "" in `id` when the default character stands in for a file that cannot be loaded.
bool LoadUnderBot(std::string& id)
{
    if (!id.empty() && id != DefaultName) {
        if (LoadFile(id))
            return true;
        id.clear();
    }
    return LoadDefault();
}

void TakeAsCurrent()
{
    Guard()([] { State().current = Engine().Characters()->Character(BotID); });
}

// The name is the character's identity from now on, also in the settings file.
void Introduce(const std::string& id)
{
    Guard()([] { Current().SetAutoPopupMenu(false); });
    if (!id.empty())
        Guard()([&] { Current().SetName(id); });
}

std::string StandardModeID(const std::string& name)
{
    struct Standard {
        const char* name;
        const char* modeID;
    };
    static constexpr std::array<Standard, 4> Standards{{{"Genie", "{ca141fd0-ac7f-11d1-97a3-006008273000}"},
                                                        {"Merlin", "{ca141fd0-ac7f-11d1-97a3-006008273002}"},
                                                        {"Robby", "{ca141fd0-ac7f-11d1-97a3-006008273006}"},
                                                        {"Peedy", "{ca141fd0-ac7f-11d1-97a3-006008273001}"}}};
    for (const Standard& standard : Standards)
        if (name == standard.name)
            return standard.modeID;
    return "";
}

std::string StandardModeOfCurrent()
{
    std::string name;
    Guard()([&] { name = Current().Name(); });
    return StandardModeID(name);
}

void KeepDefaults()
{
    CharacterDefaults& defaults = State().defaults;
    Guard()([&] { defaults.ttsModeID = Current().TTSModeID(); });
    Guard()([&] { defaults.fontName = Current().Balloon()->FontName(); });
    Guard()([&] { defaults.fontSize = Current().Balloon()->FontSize(); });
    Guard()([&] { defaults.fontItalic = Current().Balloon()->FontItalic(); });
    Guard()([&] { defaults.fontBold = Current().Balloon()->FontBold(); });
    Guard()([&] { defaults.balloonStyle = Current().Balloon()->Style(); });
}

void ChooseVoice(const std::string& standardModeID)
{
    const bool standardWanted = !standardModeID.empty() && settings::Options().FirstTime;
    std::string wanted;
    std::string present;
    Guard()([&] { wanted = bOptions::GetCharOption("TTSModeID", standardWanted ? standardModeID : Current().TTSModeID()); });
    Guard()([&] { present = Current().TTSModeID(); });
    if (!wanted.empty() && wanted != present)
        bParlune::CharSetTTSModeID(wanted);
}

void Dress(const std::optional<ScreenFrame>& former)
{
    const std::string standardModeID = StandardModeOfCurrent();
    KeepDefaults();
    ChooseVoice(standardModeID);
    CharLoad_AdvSpeechTags();
    CharLoad_BalloonFont();
    CharLoad_BalloonStyle();
    Guard()([] { CharLoad_Commands(); });
    CharLoad_CustomSize();
    CharLoad_Placement(former);
    FillGreetingLists();
    Guard()([] { Current().SetIdleOn(MainWindow().chkIdleOn.Ticked()); });
    Guard()([] { Current().SetSoundEffectsOn(MainWindow().chkSoundEffectsOn.Ticked()); });
}

}

bool CharLoad(const std::string& requestedID, bool show)
{
    std::string id = requestedID;
    ConnectEngine();
    const std::optional<ScreenFrame> former = PutFormerAway();
    if (!LoadUnderBot(id))
        return false;
    TakeAsCurrent();
    if (!State().current)  // Reported; no later step could do anything.
        return false;
    Introduce(id);
    Dress(former);
    if (show) {
        Guard()([] { Current().Show(std::nullopt); });
        Guard()([] { platform::Current().events.RunPendingEvents(); });
    }
    State().currentID = id;
    settings::Options().Character = id;
    State().loaded = true;
    Guard()(balloonTab::Refresh);
    statusBar::Refresh();
    return true;
}

}
