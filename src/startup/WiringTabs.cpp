#include "character/OptionListHandlers.h"
#include "startup/WiringParts.h"
#include "startup/bInit.h"
#include "ui/AboutTab.h"
#include "ui/BalloonTab.h"
#include "ui/CharacterSize.h"
#include "ui/CharacterTab.h"
#include "ui/GeneralTab.h"
#include "ui/GreetingsTab.h"
#include "ui/OptionTabs.h"
#include "ui/ShellIntegration.h"
#include "ui/VoiceTab.h"

namespace startup {
namespace {

// Ties the click procedure of each member of an array to its index.
template <class Controls> void WireClicks(Controls& controls, void (*click)(std::int32_t index))
{
    for (std::int32_t index = 0; index < static_cast<std::int32_t>(std::size(controls)); ++index)
        controls[index].onClick = [click, index] { click(index); };
}

void SelectAllOnEntering(ui::CTextBox& box)
{
    box.onEnter = [&box] { box.SelectAll(); };
}

void WireTabStrips(frmParlune& window)
{
    optionTabs::SetFills({bInit::InitTTS, bInit::InitBalloonFonts});
    window.tabMain.onClick = optionTabs::tabMain_Click;
    window.tabTTS.onClick = voiceTab::tabTTS_Click;
    window.tabGreetings.onClick = greetingsTab::tabGreetings_Click;
}

void WireGeneral(frmParlune& window)
{
    window.chkStartWithWindows.onClick = shellIntegration::chkStartWithWindows_Click;
    window.chkIEMenu.onClick = shellIntegration::chkIEMenu_Click;
    window.chkMonitorClipboard.onClick = generalTab::chkMonitorClipboard_Click;
    window.cmdReadClipboard.onClick = generalTab::cmdReadClipboard_Click;
    window.chkSayTime.onClick = generalTab::chkSayTime_Click;
    window.chkSayTimeShowIfHidden.onClick = generalTab::chkSayTimeShowIfHidden_Click;
}

void WireCharacter(frmParlune& window)
{
    window.cmdLoadChar.onClick = characterTab::cmdLoadChar_Click;
    window.cboBrowseChar.onClick = characterTab::cboBrowseChar_Click;
    window.cmdCharacterOptions.onClick = characterTab::cmdCharacterOptions_Click;
    window.cmdSetDefault.onClick = characterTab::cmdSetDefault_Click;
    window.cmdSaveCurrentPos.onClick = characterTab::cmdSaveCurrentPos_Click;
    window.chkSavePosOnClose.onClick = characterTab::chkSavePosOnClose_Click;
    window.chkIdleOn.onClick = characterTab::chkIdleOn_Click;
    window.chkSoundEffectsOn.onClick = characterTab::chkSoundEffectsOn_Click;
}

void WireCharacterSize(frmParlune& window)
{
    window.chkCustomSize.onClick = characterSize::chkCustomSize_Click;
    for (std::int32_t index = 0; index < 2; ++index) {
        window.txtSize[index].onCommit = [index] { characterSize::txtSize_LostFocus(index); };
        SelectAllOnEntering(window.txtSize[index]);
    }
}

void WireVoice(frmParlune& window)
{
    window.lstTTS.onDoubleClick = voiceTab::lstTTS_DblClick;
    WireClicks(window.cmdTTSVoice, voiceTab::cmdTTSVoice_Click);
    for (std::int32_t index = 0; index < 3; ++index)
        window.sldAdvSpeak[index].onChange = [index] { voiceTab::sldAdvSpeak_Change(index); };
    window.cboChr.onClick = character::cboChr_Click;
    window.cboCtx.onClick = character::cboCtx_Click;
}

void WireBalloon(frmParlune& window)
{
    window.cboFontName.onClick = character::cboFontName_Click;
    window.cboFontSize.onClick = character::cboFontSize_Click;
    WireClicks(window.cmdSetFont, balloonTab::cmdSetFont_Click);
    SelectAllOnEntering(window.txtCharsPerLine);
    SelectAllOnEntering(window.txtNumberOfLines);
}

void WireGreetings(frmParlune& window)
{
    WireClicks(window.cboAnim, character::cboAnim_Click);
    window.cmdTestWelcome.onClick = greetingsTab::cmdTestWelcome_Click;
}

void WireAbout(frmParlune& window)
{
    window.imgParlune.onClick = aboutTab::imgParlune_Click;
    window.imgAgentRing.onClick = aboutTab::imgAgentRing_Click;
    WireClicks(window.lblURL, aboutTab::lblURL_Click);
}

}

void WireTabs(frmParlune& window)
{
    WireTabStrips(window);
    WireGeneral(window);
    WireCharacter(window);
    WireCharacterSize(window);
    WireVoice(window);
    WireBalloon(window);
    WireGreetings(window);
    WireAbout(window);
}

}
