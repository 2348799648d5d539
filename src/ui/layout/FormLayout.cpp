#include "ui/layout/FormLayout.h"
#include <algorithm>

namespace ui::layout {
namespace {

constexpr int TabHeight = 16, StripBorder = 2;

}

Rectangle InsideOf(const FormLayout& form, const Holder& holder)
{
    if (holder.control.empty())
        return {0, 0, form.width, form.height};
    const Row* row = FindRow(form, holder.control);
    if (!row)
        return {};
    const int tabs = row->kind == Kind::TabStrip ? TabHeight : 0, border = row->kind == Kind::TabStrip ? StripBorder : 0;
    return {0, 0, row->place.width - 2 * border, row->place.height - tabs - border};
}

const Row* FindRow(const FormLayout& form, std::string_view control)
{
    const Row* found =
        std::find_if(form.rows.begin(), form.rows.end(), [&](const Row& row) { return row.control == control; });
    return found == form.rows.end() ? nullptr : found;
}

}
