#include "character/bParlune.h"
#include "common/Numbers.h"
#include "common/zbErrorTrap.h"
#include "ui/frmParlune.h"
#include <array>
#include <cstdio>

namespace {

constexpr char Module[] = "bParlune";
constexpr double CharsPerLineUnit = 0x10000;
constexpr double NumberOfLinesUnit = 0x1000000;

// Deliberate: not checked against the labelled range. Too many characters spill into the lines, too many lines overflow.
std::int32_t Part(const ui::CTextBox& box, double unit) { return text::ToInt32(text::LeadingNumber(box.Text()) * unit); }

std::int32_t StyleOfControls()
{
    std::int32_t style = 0;
    for (int bit = 0; bit < 4; ++bit)
        if (MainWindow().chkBalloon[bit].Ticked())
            style += 1 << bit;
    style |= Part(MainWindow().txtCharsPerLine, CharsPerLineUnit);
    style |= Part(MainWindow().txtNumberOfLines, NumberOfLinesUnit);
    return style;
}

}

std::string bParlune::GetBalloonStyle()
{
    const zbErrorTrap::CGuard guard(Module, "GetBalloonStyle");
    std::string style;
    guard([&] { style = FormatBalloonStyle(StyleOfControls()); });
    return style;
}

std::string bParlune::FormatBalloonStyle(std::int32_t style)
{
    std::array<char, 11> text{};
    std::snprintf(text.data(), text.size(), "&H%08X", static_cast<unsigned>(style));
    return text.data();
}
