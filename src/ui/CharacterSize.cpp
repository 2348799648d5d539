#include "ui/CharacterSize.h"
#include "character/CharacterState.h"
#include "common/Numbers.h"
#include "common/ProgramState.h"
#include "common/zbErrorTrap.h"
#include "settings/OptionsRecord.h"
#include "ui/frmParlune.h"

namespace characterSize {
namespace {

using character::Current;
using settings::Options;
using zbErrorTrap::IgnoreFailure;

constexpr char Module[] = "Parlune";
constexpr std::int32_t Width = 0;

struct SizeState {
    bool committing = false;
};

bool& Committing() { return common::StateOf<SizeState>().committing; }

double NumberIn(const ui::CTextBox& box) { return text::LeadingNumber(box.Text()); }

std::int16_t PixelsIn(const ui::CTextBox& box) { return text::ToInt16(NumberIn(box)); }

void OpenBoxes(bool open)
{
    for (ui::CTextBox& box : MainWindow().txtSize)
        IgnoreFailure([&] { box.SetEnabled(open); });
    IgnoreFailure([&] { MainWindow().chkProportional.SetEnabled(open); });
}

void TakeShownSize()
{
    const ui::CTextBox& width = MainWindow().txtSize[0];
    const ui::CTextBox& height = MainWindow().txtSize[1];
    if (!(NumberIn(width) > 0 && NumberIn(height) > 0))
        return;
    IgnoreFailure([&] { Current().SetWidth(PixelsIn(width)); });
    IgnoreFailure([&] { Current().SetHeight(PixelsIn(height)); });
    IgnoreFailure([] { Options().CharWidth = Current().Width(); });
    IgnoreFailure([] { Options().CharHeight = Current().Height(); });
}

void ReturnToOwnSize()
{
    IgnoreFailure([] { MainWindow().txtSize[0].SetText(std::to_string(Current().OriginalWidth())); });
    IgnoreFailure([] { MainWindow().txtSize[1].SetText(std::to_string(Current().OriginalHeight())); });
    IgnoreFailure([] { Current().SetWidth(Current().OriginalWidth()); });
    IgnoreFailure([] { Current().SetHeight(Current().OriginalHeight()); });
}

// The length of the other side, in the character's own proportions.
double OtherSide(std::int32_t edited, double number)
{
    const double width = Current().OriginalWidth();
    const double height = Current().OriginalHeight();
    const double divisor = edited == Width ? width : height;
    if (divisor == 0)
        throw platform::failure::DivisionByZero();
    return number * (edited == Width ? height : width) / divisor;
}

// A box without a number leaves the other one alone.
void SetOtherBox(std::int32_t edited)
{
    const double number = NumberIn(MainWindow().txtSize[edited]);
    if (number > 0 && character::State().loaded)
        MainWindow().txtSize[1 - edited].SetText(std::to_string(text::ToInt32(OtherSide(edited, number))));
}

void ApplyWidth()
{
    const std::int16_t width = PixelsIn(MainWindow().txtSize[0]);
    if (width <= 0)
        return;
    if (character::State().loaded)
        Current().SetWidth(width);
    Options().CharWidth = width;
}

void ApplyHeight()
{
    const std::int16_t height = PixelsIn(MainWindow().txtSize[1]);
    if (height <= 0)
        return;
    if (character::State().loaded)
        Current().SetHeight(height);
    Options().CharHeight = height;
}

}

void chkCustomSize_Click()
{
    const bool custom = MainWindow().chkCustomSize.Ticked();
    OpenBoxes(custom);
    if (!custom) {
        ReturnToOwnSize();
        return;
    }
    TakeShownSize();
    IgnoreFailure([] { MainWindow().txtSize[0].SetFocus(); });
}

void txtSize_LostFocus(std::int32_t index)
{
    // A report takes the focus away, which commits the box once more.
    if (Committing() || !MainWindow().chkCustomSize.Ticked())
        return;
    Committing() = true;
    const zbErrorTrap::CGuard guard(Module, "txtSize_LostFocus");
    if (MainWindow().chkProportional.Ticked())
        guard([&] { SetOtherBox(index); });
    guard(ApplyWidth);
    guard(ApplyHeight);
    Committing() = false;
}

}
