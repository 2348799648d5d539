#include "character/bParlune.h"
#include "common/bGlobal.h"
#include "common/zbErrorTrap.h"
#include "ui/frmParlune.h"

namespace {

constexpr char Module[] = "bParlune";

enum Modifier { Pitch, Speed, Volume, SpeakingCharacter, Context };

std::string NumberTag(const char* name, Modifier modifier)
{
    if (!MainWindow().chkAdvSpkTags[modifier].Ticked())
        return "";
    return "\\" + std::string(name) + "=" + std::to_string(MainWindow().sldAdvSpeak[modifier].Value()) + "\\";
}

std::string TextTag(const char* name, Modifier modifier, const std::string& value)
{
    if (!MainWindow().chkAdvSpkTags[modifier].Ticked() || value.empty())
        return "";
    return "\\" + std::string(name) + "=" + bGlobal::Quote(value) + "\\";
}

}

std::string bParlune::GetAdvSpeakTags()
{
    const zbErrorTrap::CGuard guard(Module, "GetAdvSpeakTags");
    std::string tags;
    guard([&] {
        tags = NumberTag("Vol", Volume) + NumberTag("Pit", Pitch) + NumberTag("Spd", Speed) +
               TextTag("Chr", SpeakingCharacter, MainWindow().cboChr.Text()) +
               TextTag("Ctx", Context, MainWindow().cboCtx.Text());
    });
    return tags;
}
