#include "ui/BalloonTab.h"
#include "character/CharacterState.h"
#include "character/OptionListHandlers.h"
#include "character/bParlune.h"
#include "common/Text.h"
#include "common/zbErrorTrap.h"
#include "settings/bOptions.h"
#include "ui/frmParlune.h"

namespace balloonTab {
namespace {

using character::Current;
using zbErrorTrap::CGuard;

constexpr char Module[] = "Parlune";
enum Button { SetFont, ResetToDefault };

void ShowFlags(std::uint32_t style)
{
    for (unsigned bit = 0; bit < 4; ++bit)
        MainWindow().chkBalloon[bit].SetValue(static_cast<int>(style >> bit & 1U));
}

void ShowLines(std::uint32_t style)
{
    MainWindow().txtCharsPerLine.SetText(std::to_string(style >> 16 & 0xFFU));
    MainWindow().txtNumberOfLines.SetText(std::to_string(style >> 24 & 0xFFU));
}

void ShowFont(const std::string& name, std::int32_t size)
{
    MainWindow().cboFontName.SetText(name);
    MainWindow().cboFontSize.SetText(std::to_string(size));
    character::cboFontName_Click();
    character::cboFontSize_Click();
}

// A balloon without a stored style shows no lines yet, and "Set Font" would not know how many.
void ShowWhatIsMissing(std::uint32_t style)
{
    if (MainWindow().txtCharsPerLine.Text().empty() && MainWindow().txtNumberOfLines.Text().empty())
        ShowLines(style);
    if (MainWindow().cboFontName.Text().empty() && MainWindow().cboFontSize.Text().empty())
        ShowFont(Current().Balloon()->FontName(), Current().Balloon()->FontSize());
}

void StoreLook(const CGuard& guard, const std::string& name, const std::string& size, const std::string& style)
{
    guard([&] { bOptions::SetCharOption("FontName", name); });
    guard([&] { bOptions::SetCharOption("FontSize", size); });
    guard([&] { bOptions::SetCharOption("BalloonStyle", style); });
}

void SetShownLook(const CGuard& guard)
{
    const std::string name = MainWindow().cboFontName.Text();
    const std::string size = MainWindow().cboFontSize.Text();
    const std::string style = bParlune::GetBalloonStyle();

    guard([&] { Current().Balloon()->SetFontName(name); });
    guard([&] { Current().Balloon()->SetFontSize(text::ToInt32(size)); });
    if (!style.empty())
        guard([&] { Current().Balloon()->SetStyle(text::ToInt32(style)); });
    StoreLook(guard, name, size, style);
}

void ResetLook(const CGuard& guard)
{
    const character::CharacterDefaults& defaults = character::State().defaults;

    guard([&] { ShowFont(defaults.fontName, defaults.fontSize); });
    StoreLook(guard, "", "", "");
    guard([&] { Current().Balloon()->SetFontName(defaults.fontName); });
    guard([&] { Current().Balloon()->SetFontSize(defaults.fontSize); });
    guard([&] { Current().Balloon()->SetStyle(defaults.balloonStyle); });
    guard([&] { ShowFlags(static_cast<std::uint32_t>(defaults.balloonStyle)); });
    guard([&] { ShowLines(static_cast<std::uint32_t>(defaults.balloonStyle)); });
}

}

void ShowBalloon()
{
    if (!character::State().loaded)
        return;
    const auto style = static_cast<std::uint32_t>(Current().Balloon()->Style());
    ShowFlags(style);
    ShowWhatIsMissing(style);
}

void cmdSetFont_Click(std::int32_t index)
{
    const CGuard guard(Module, "cmdSetFont_Click");
    if (!character::State().current) {  // The steps would fail one after the other.
        guard(Current);
        return;
    }
    if (index == SetFont)
        SetShownLook(guard);
    else if (index == ResetToDefault)
        ResetLook(guard);
}

}
