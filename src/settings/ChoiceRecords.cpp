#include "settings/ChoiceRecords.h"
#include "base/text/CheckSum.h"
#include <charconv>
#include <cstdint>
#include <optional>

namespace settings {
namespace {

using namespace text;

constexpr std::string_view Heading = "Parlune choices 1\n";

// One line with a check sum and the lengths, then the three texts. The sum goes on from one record to the next: none can be
// left out, put elsewhere or taken from another file.
std::string Record(const Choice& choice, std::uint64_t& sum)
{
    const std::string checked = ' ' + std::to_string(choice.key.size()) + ' ' + std::to_string(choice.stored.size()) + ' ' +
                                std::to_string(choice.chosen.size()) + '\n' + choice.key + choice.stored + choice.chosen +
                                '\n';
    sum = CheckSum(checked, sum);
    return Hexadecimal(sum) + checked;
}

// The length behind a blank, cut off the line; nothing when there is none.
std::optional<std::size_t> CutLength(std::string_view& line)
{
    std::size_t length = 0;
    if (!line.starts_with(' '))
        return std::nullopt;
    const auto [end, error] = std::from_chars(line.data() + 1, line.data() + line.size(), length);
    if (error != std::errc())
        return std::nullopt;
    line.remove_prefix(static_cast<std::size_t>(end - line.data()));
    return length;
}

// The next so many bytes, cut off; nothing when there are fewer.
std::optional<std::string> Cut(std::string_view& bytes, std::optional<std::size_t> length)
{
    if (!length || *length > bytes.size())
        return std::nullopt;
    std::string cut(bytes.substr(0, *length));
    bytes.remove_prefix(*length);
    return cut;
}

// The record that the bytes may begin with.
std::optional<Choice> Guess(std::string_view bytes)
{
    const std::size_t end = bytes.find('\n');
    if (end == std::string_view::npos || end < CheckSumDigits)
        return std::nullopt;
    std::string_view line = bytes.substr(CheckSumDigits, end - CheckSumDigits);
    std::string_view texts = bytes.substr(end + 1);
    const auto keyLength = CutLength(line), storedLength = CutLength(line), chosenLength = CutLength(line);
    auto key = Cut(texts, keyLength), stored = Cut(texts, storedLength), chosen = Cut(texts, chosenLength);
    if (!key || !stored || !chosen)
        return std::nullopt;
    return Choice{std::move(*key), std::move(*stored), std::move(*chosen)};
}

}

std::string WriteChoices(const std::vector<Choice>& choices)
{
    std::string bytes(Heading);
    std::uint64_t sum = CheckSum(Heading);
    for (const Choice& choice : choices)
        bytes += Record(choice, sum);
    return bytes;
}

std::vector<Choice> ReadChoices(std::string_view bytes)
{
    std::vector<Choice> choices;
    if (!bytes.starts_with(Heading))
        return choices;
    bytes.remove_prefix(Heading.size());
    std::uint64_t sum = CheckSum(Heading);
    while (auto choice = Guess(bytes)) {
        const std::string record = Record(*choice, sum);
        if (!bytes.starts_with(record))
            break;
        bytes.remove_prefix(record.size());
        choices.push_back(std::move(*choice));
    }
    return choices;
}

}
