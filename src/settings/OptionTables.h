#pragma once
#include "settings/bOptionsControls.h"

// The options that controls hold and that are loaded and saved alike.
namespace settings::tables {

inline constexpr ControlOption CustomSize{"CharSize", &frmParlune::chkCustomSize};
inline constexpr ControlOption UserName{"UserName", &frmParlune::txtUserName};
inline constexpr ControlOption MonitorClipboard{"MonitorClipboard", &frmParlune::chkMonitorClipboard, "0"};

// Loaded and saved in the same order.
inline constexpr ControlOption Common[] = {
    {"ShowIfHidden", &frmParlune::chkShowIfHidden},
    {"SavePosOnClose", &frmParlune::chkSavePosOnClose},
    {"StartWithWindows", &frmParlune::chkStartWithWindows},
    {"StartUpHideInTray", &frmParlune::chkStartUpHideInTray},
    {"IdleOn", &frmParlune::chkIdleOn},
    {"SoundEffectsOn", &frmParlune::chkSoundEffectsOn},
    {"ReadClipboardOnDblClick", &frmParlune::chkReadClipBoardOnDblClick},
    {"QueueReadCommands", &frmParlune::chkQueueReadCommands},
    {"ReadGreeting", &frmParlune::chkReadGreeting},
    {"ShowSplash", &frmParlune::chkShowSplash},
    {"MinimizeOnClose", &frmParlune::chkMinimizeOnClose},
    {"TTSTestText", &frmParlune::txtTestText},
};

}
