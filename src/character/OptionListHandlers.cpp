#include "character/OptionListHandlers.h"
#include "base/text/Case.h"
#include "character/CharLoadSteps.h"
#include "character/CharacterState.h"
#include "character/bParlune.h"
#include "common/Numbers.h"
#include "common/zbErrorTrap.h"
#include "ui/frmParlune.h"
#include <cmath>
#include <limits>

namespace character {
namespace {

constexpr int SpeakingCharacterBox = 3;
constexpr int ContextBox = 4;

float ToSingle(std::string_view text)
{
    const double number = text::WholeNumberText(text);
    if (!(std::abs(number) <= static_cast<double>(std::numeric_limits<float>::max())))
        throw platform::failure::Overflow();
    return static_cast<float>(number);
}

}

void cboAnim_Click(std::int32_t index)
{
    if (text::EqualIgnoringCase(State().fillingGreetingLists, "True"))
        return;
    bParlune::CharStop();
    bParlune::CharPlay(MainWindow().cboAnim[index].Text());
}

void cboChr_Click() { MainWindow().chkAdvSpkTags[SpeakingCharacterBox].SetValue(1); }

void cboCtx_Click() { MainWindow().chkAdvSpkTags[ContextBox].SetValue(1); }

void cboFontName_Click()
{
    const zbErrorTrap::CGuard guard(SessionModule, "cboFontName_Click");
    guard([] {
        ui::TextStyle style = MainWindow().lblFontDisplay.Style();
        style.bold = style.italic = style.underline = style.strikeThrough = false;
        style.fontName = MainWindow().cboFontName.Text();
        MainWindow().lblFontDisplay.SetStyle(style);
    });
}

void cboFontSize_Click()
{
    const zbErrorTrap::CGuard guard(SessionModule, "cboFontSize_Click");
    guard([] {
        ui::TextStyle style = MainWindow().lblFontDisplay.Style();
        style.fontSize = ToSingle(MainWindow().cboFontSize.Text());
        MainWindow().lblFontDisplay.SetStyle(style);
    });
}

}
