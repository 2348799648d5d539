#include "app/windows/window/Units.h"
#include "app/windows/window/Look.h"
#include <algorithm>
#include <cmath>

namespace appwindows {
namespace {

using ui::layout::Kind;
using ui::layout::Row;

constexpr char Alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
constexpr int CheckGap = 7;      // Between a tick and its caption, and behind that.
constexpr int ButtonMargin = 7;  // On each side of a button's caption.
constexpr int ButtonHeight = 7;  // More than its text's.
constexpr int BoxHeight = 8;     // What a box for text has more than the text, with its border.

std::string WithoutAccessKey(std::string caption)
{
    const std::size_t mark = caption.find('&');
    if (mark != std::string::npos)
        caption.erase(mark, 1);
    return caption;
}

// How large a control wants to be with a caption; what is 0 does not matter.
SIZE WantedSize(HDC dc, int dpi, Kind kind, const std::string& caption)
{
    const SIZE text = ExtentOf(dc, caption.empty() ? "A" : WithoutAccessKey(caption));
    const LONG tick = SystemSize(SM_CXMENUCHECK, dpi);
    switch (kind) {
    case Kind::CheckBox:
        return {caption.empty() ? tick : tick + text.cx + Scaled(CheckGap, dpi), text.cy};
    case Kind::Button:
        return {text.cx + 2 * Scaled(ButtonMargin, dpi), text.cy + Scaled(ButtonHeight, dpi)};
    case Kind::Label:
        return text;
    case Kind::Link:
        return {text.cx + 2, text.cy};
    case Kind::TextBox:
    case Kind::EditableCombo:
    case Kind::DropDownList:
        return {0, text.cy + Scaled(BoxHeight, dpi)};
    default:
        return {};
    }
}

const ui::CControl* Find(const ui::CForm& form, std::string_view name)
{
    const auto& controls = form.Controls();
    const auto found =
        std::find_if(controls.begin(), controls.end(), [&](const auto* control) { return control->Name() == name; });
    return found == controls.end() ? nullptr : *found;
}

// One pixel more, for edges are rounded.
void EnlargeFor(Units& units, const Row& row, const SIZE& wanted)
{
    const auto perUnit = [](LONG pixels, int size) { return pixels > 0 ? (static_cast<double>(pixels) + 1) / size : 0; };
    units.x = std::max(units.x, perUnit(wanted.cx, row.place.width));
    units.y = std::max(units.y, perUnit(wanted.cy, row.place.height));
}

}

SIZE Units::ToPixels(int width, int height) const
{
    return {static_cast<LONG>(std::ceil(width * x)), static_cast<LONG>(std::ceil(height * y))};
}

// What touches in the table touches on the screen, and nothing lies on its neighbour.
Rectangle Units::ToPixels(const Rectangle& place) const
{
    const auto edge = [](int at, double unit) { return static_cast<int>(std::lround(at * unit)); };
    const int left = edge(place.x, x), top = edge(place.y, y);
    return {left, top, edge(place.Right(), x) - left, edge(place.Bottom(), y) - top};
}

Units UnitsOf(HFONT font)
{
    const CMemoryDc dc;
    const CSelected selected(dc.Get(), font);
    TEXTMETRICW metrics = {};
    GetTextMetricsW(dc.Get(), &metrics);
    const double average = static_cast<double>(ExtentOf(dc.Get(), Alphabet).cx) / (sizeof Alphabet - 1);
    return {average / 4, static_cast<double>(metrics.tmHeight) / 8};
}

Units UnitsThatFit(HFONT font, int dpi, const ui::CForm& form, const ui::layout::FormLayout& layout)
{
    Units units = UnitsOf(font);
    const CMemoryDc dc;
    const CSelected selected(dc.Get(), font);
    for (const Row& row : layout.rows)
        if (const ui::CControl* control = Find(form, row.control))
            EnlargeFor(units, row, WantedSize(dc.Get(), dpi, row.kind, control->Caption()));
    return units;
}

}
