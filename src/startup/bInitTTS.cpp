#include "character/CTTSEngines.h"
#include "character/CharacterState.h"
#include "character/bParlune.h"
#include "common/Version.h"
#include "common/WebAddresses.h"
#include "common/zbErrorTrap.h"
#include "common/zbShellEx.h"
#include "platform/EventPump.h"
#include "platform/MessageBoxes.h"
#include "platform/Platform.h"
#include "platform/SpeechEngines.h"
#include "startup/bInit.h"
#include "ui/frmParlune.h"
#include <optional>

namespace bInit {
namespace {

constexpr char ServiceMissing[] = "Parlune requires the Microsoft Speech Control Panel to be installed.\r\n"
                                  "Please, click OK to go to the Parlune Setup page to intall it.";
constexpr char VoicesMissing[] = "There appears to be a problem accessing the Text-to-Speech Engines\r\n"
                                 "on your computer.\r\n"
                                 "Please make sure you have installed a TTS engine and the Microsoft Speech Control Panel.";

constexpr std::int32_t VoicesPerYield = 16;

void Yield() { platform::Current().events.RunPendingEvents(); }

void ShowProgress(bool shown)
{
    MainWindow().pbrTTSEngines.SetVisible(shown);
    MainWindow().lblTTSEngines.SetVisible(shown);
}

void OfferSetup()
{
    const platform::BoxAnswer answer = platform::Current().messageBoxes.Show(
        {.text = ServiceMissing, .title = version::Title, .buttons = platform::BoxButtons::OkCancel});
    if (answer == platform::BoxAnswer::Ok)
        zbShellEx::ShellEx(web::Setup);
}

void TellVoicesMissing() { platform::Current().messageBoxes.Show({.text = VoicesMissing, .title = version::Title}); }

bool ServiceInstalled()
{
    bool installed = false;
    zbErrorTrap::IgnoreFailure([&] { installed = platform::Current().speechEngines.Installed(); });
    return installed;
}

bool LoadCatalogue()
{
    return zbErrorTrap::IgnoreFailure([] { SpeechCatalogue() = CTTSEngines(); }) && SpeechCatalogue().TTSCount() > 0;
}

void FillVoiceList()
{
    frmParlune& window = MainWindow();
    const std::int32_t count = SpeechCatalogue().TTSCount();
    window.lstTTS.Clear();
    window.pbrTTSEngines.SetMaximum(count);
    for (std::int32_t voice = 1; voice <= count; ++voice) {
        window.lstTTS.Add(SpeechCatalogue().ModeName(voice), voice);
        window.pbrTTSEngines.SetValue(voice);
        if (voice % VoicesPerYield == 0)
            Yield();
    }
}

void LoadAndFill()
{
    if (!ServiceInstalled())
        OfferSetup();
    else if (!LoadCatalogue())
        TellVoicesMissing();
    else
        FillVoiceList();
}

}

void InitTTS()
{
    const zbErrorTrap::CGuard guard("bInit", "InitTTS");

    guard([] { ShowProgress(true); });
    guard([] { Yield(); });
    guard([] { LoadAndFill(); });
    guard([] { ShowProgress(false); });
    guard([] {
        if (character::State().loaded)
            bParlune::SetTTSModeID();
    });
}

}
