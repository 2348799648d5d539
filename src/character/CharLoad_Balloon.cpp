#include "base/text/Case.h"
#include "character/CharLoadSteps.h"
#include "character/CharacterState.h"
#include "common/Numbers.h"
#include "common/zbErrorTrap.h"
#include "settings/bOptions.h"
#include "ui/frmParlune.h"
#include <charconv>

namespace character {
namespace {

constexpr std::size_t StyleTextLength = 10;

// The number that "&H" and eight hexadecimal digits denote; nothing for any other text.
std::optional<std::uint32_t> StyleOfText(std::string_view style)
{
    if (style.size() != StyleTextLength || !text::EqualIgnoringCase(style.substr(0, 2), "&H"))
        return std::nullopt;
    std::uint32_t value = 0;
    const std::from_chars_result read = std::from_chars(style.data() + 2, style.data() + style.size(), value, 16);
    return read.ec == std::errc() && read.ptr == style.data() + style.size() ? std::optional(value) : std::nullopt;
}

void ShowStyle(std::uint32_t style)
{
    frmParlune& window = MainWindow();
    const zbErrorTrap::CGuard guard(SessionModule, "CharLoad");
    for (unsigned bit = 0; bit < 4; ++bit)
        guard([&] { window.chkBalloon[bit].SetValue(static_cast<int>(style >> bit & 1U)); });
    guard([&] { window.txtCharsPerLine.SetText(std::to_string(style >> 16 & 0xFFU)); });
    guard([&] { window.txtNumberOfLines.SetText(std::to_string(style >> 24 & 0xFFU)); });
}

}

void CharLoad_BalloonFont()
{
    const zbErrorTrap::CGuard guard(SessionModule, "CharLoad_BalloonFont");
    std::string name;
    std::string size;
    guard([&] { name = bOptions::GetCharOption("FontName", Current().Balloon()->FontName()); });
    guard([&] { size = bOptions::GetCharOption("FontSize", std::to_string(Current().Balloon()->FontSize())); });
    if (!name.empty())
        zbErrorTrap::IgnoreFailure([&] { Current().Balloon()->SetFontName(name); });
    zbErrorTrap::IgnoreFailure([&] { Current().Balloon()->SetFontSize(text::ToInt32(size)); });
}

void CharLoad_BalloonStyle()
{
    const zbErrorTrap::CGuard guard(SessionModule, "CharLoad");
    std::string stored;
    guard([&] { stored = bOptions::GetCharOption("BalloonStyle", ""); });
    const std::optional<std::uint32_t> style = StyleOfText(stored);
    if (!style)
        return;
    ShowStyle(*style);
    guard([&] { Current().Balloon()->SetStyle(static_cast<std::int32_t>(*style)); });
}

}
