#include "Require.h"
#include "base/text/Case.h"
#include "base/text/Text.h"
#include "common/Numbers.h"
#include "platform/Failure.h"
#include "platform/headless/Desktop.h"
#include "reading/CParser.h"
#include <algorithm>
#include <cmath>
#include <cstdint>

namespace {

void RequireFields(std::string_view text, std::string_view delimiter)
{
    CParser parser;
    parser.ParseIt(text, delimiter);
    std::size_t bytes = 0;
    for (std::int32_t index = 1; index <= parser.FieldCount(); ++index) {
        const std::string& field = parser.Field(index);
        bytes += field.size();
        Require(text::Trim(field) == field);
        Require(delimiter.empty() || field.find(delimiter) == std::string::npos);
    }
    Require(bytes <= text.size());
    Require((parser.FieldCount() == 0) == text::Trim(text).empty());
    Require(parser.Field(0).empty() && parser.Field(parser.FieldCount() + 1).empty());
}

void RequireCutting(std::string_view text, std::size_t count)
{
    const std::size_t length = text::Length(text);
    const std::string_view left = text::Left(text, count);
    Require(text::Length(left) == std::min(count, length));
    Require(std::string(left) + std::string(text::Mid(text, count + 1)) == text);
    Require(text::Mid(text, 1, count) == left);
}

void RequireCase(std::string_view text)
{
    const std::string upper = text::Upper(text);
    Require(text::Upper(upper) == upper);
    Require(text::Length(upper) == text::Length(text));
    Require(text::Length(text::Lower(text)) == text::Length(text));
    Require(text::EqualIgnoringCase(text, upper));
}

void RequireReplacing(std::string_view text, std::string_view what)
{
    Require(text::Replace(text, what, what) == text);
    Require(what.empty() || text::Replace(text, what, "").size() <= text.size());
    const std::size_t found = text::FindIgnoringCase(text, what);
    Require(found == std::string_view::npos || found + what.size() <= text.size());
    Require((found == std::string_view::npos) == (text.find(what) == std::string_view::npos) || found <= text.find(what));
}

void RequireNumbers(std::string_view text)
{
    const double leading = text::LeadingNumber(text);
    Require(!std::isnan(leading));
    try {
        const double whole = text::WholeNumberText(text);
        Require(whole == leading);
        text::ToInt32(whole);
    } catch (const platform::CFailure& failure) {
        Require(failure.Number() == 13 || failure.Number() == 6);
    }
}

}

// The first two bytes: the size of the delimiter, a count of characters. Then the delimiter, then the text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2)
        return 0;
    static const CHeadlessDesktop desktop;  // Only for reports of failures, of which there are none.
    const std::string input(data + 2, data + size);
    const std::string_view all = input;
    const std::string_view delimiter = all.substr(0, data[0] % 8U);
    const std::string_view text = all.substr(delimiter.size());
    RequireFields(text, delimiter);
    RequireCutting(text, data[1]);
    RequireCase(text);
    RequireReplacing(text, delimiter);
    RequireNumbers(text);
    return 0;
}
