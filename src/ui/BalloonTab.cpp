#include "ui/BalloonTab.h"
#include "character/CharacterState.h"
#include "character/OptionListHandlers.h"
#include "character/bParlune.h"
#include "common/Numbers.h"
#include "common/zbErrorTrap.h"
#include "settings/bOptions.h"
#include "ui/frmParlune.h"

namespace balloonTab {
namespace {

using character::Current;
using zbErrorTrap::CGuard;

constexpr char Module[] = "Parlune";
constexpr std::int32_t Page = 3;  // Of the main window's tab strip.
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

void StoreFont(const CGuard& guard, const std::string& name, const std::string& size)
{
    guard([&] { bOptions::SetCharOption("FontName", name); });
    guard([&] { bOptions::SetCharOption("FontSize", size); });
}

void StoreStyle(const CGuard& guard, const std::string& style)
{
    guard([&] { bOptions::SetCharOption("BalloonStyle", style); });
}

// Without a style, which is reported by then, giving it to the balloon fails; the stored one stays.
void SetShownLook(const CGuard& guard)
{
    const std::string name = MainWindow().cboFontName.Text();
    const std::string size = MainWindow().cboFontSize.Text();
    const std::string style = bParlune::GetBalloonStyle();

    guard([&] { Current().Balloon()->SetFontName(name); });
    guard([&] { Current().Balloon()->SetFontSize(text::ToInt32(size)); });
    guard([&] { Current().Balloon()->SetStyle(text::ToInt32(style)); });
    StoreFont(guard, name, size);
    if (!style.empty())
        StoreStyle(guard, style);
}

void ResetLook(const CGuard& guard)
{
    const character::CharacterDefaults& defaults = character::State().defaults;

    guard([&] { ShowFont(defaults.fontName, defaults.fontSize); });
    StoreFont(guard, "", "");
    StoreStyle(guard, "");
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
    const std::string fontName = Current().Balloon()->FontName();
    const std::int32_t fontSize = Current().Balloon()->FontSize();
    ShowFlags(style);
    ShowLines(style);
    ShowFont(fontName, fontSize);
}

void Refresh()
{
    if (MainWindow().tabMain.Selected() == Page)
        ShowBalloon();
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
