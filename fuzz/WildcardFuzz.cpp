#include "Require.h"
#include "base/text/Case.h"
#include "base/text/Utf8.h"
#include "platform/text/Wildcards.h"
#include <vector>

// File names and patterns of any bytes: the answer is that of the definition, worked out in the slow way. The first byte is
// the length of the pattern.
namespace {

using namespace platform::text;

std::vector<std::string_view> CharactersOf(std::string_view text)
{
    std::vector<std::string_view> characters;
    for (; !text.empty(); text.remove_prefix(characters.back().size()))
        characters.push_back(text.substr(0, ::text::CharacterAt(text, 0).size));
    return characters;
}

// Row by row: does the pattern so far match the first n characters of the name?
bool Fits(const std::vector<std::string_view>& name, const std::vector<std::string_view>& pattern)
{
    std::vector<bool> fits(name.size() + 1);
    fits[0] = true;
    for (const std::string_view wanted : pattern) {
        std::vector<bool> next(name.size() + 1);
        next[0] = fits[0] && wanted == "*";
        for (std::size_t n = 1; n <= name.size(); ++n)
            next[n] = wanted == "*" ? fits[n] || next[n - 1] : fits[n - 1] && (wanted == "?" || wanted == name[n - 1]);
        fits = next;
    }
    return fits.back();
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const std::string_view text = TextOf(data + 1, size - 1);
    const std::string_view pattern = text.substr(0, data[0]);
    const std::string_view name = text.substr(pattern.size());
    const std::string foldedName = ::text::FoldCase(name), foldedPattern = ::text::FoldCase(pattern);
    const bool fits = pattern == "*.*" || Fits(CharactersOf(foldedName), CharactersOf(foldedPattern));
    Require(MatchesWildcards(name, pattern) == fits);
    Require(MatchesWildcards(name, "*.*") && MatchesWildcards(name, "*"));
    return 0;
}
