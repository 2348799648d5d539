#include "engine/hosts/qt/MouthShapes.h"
#include <array>

namespace engine {
namespace {

struct Group {
    std::string_view beginning;
    Mouth mouth;
};

// The first beginning that fits counts: longer ones stand before shorter ones.
constexpr auto Groups = std::to_array<Group>({
    // Diphthongs and coloured vowels, by where they begin.
    {"a#", Mouth::Wide3},
    {"A@", Mouth::Medium},
    {"A:", Mouth::Wide4},
    {"eI", Mouth::Wide3},
    {"e@", Mouth::Wide3},
    {"i@", Mouth::Wide1},
    {"I2", Mouth::Wide1},
    {"oU", Mouth::Narrow},
    {"o@", Mouth::Medium},
    {"O:", Mouth::Medium},
    {"O@", Mouth::Medium},
    {"OI", Mouth::Medium},
    {"O2", Mouth::Medium},
    {"u:", Mouth::Narrow},
    {"U@", Mouth::Narrow},
    {"3:", Mouth::Wide3},
    {"@L", Mouth::Wide1},
    {"tS", Mouth::Wide2},
    {"dZ", Mouth::Wide2},
    {"pf", Mouth::Closed},
    {"_", Mouth::Closed},
    {";", Mouth::Closed},
    {"?", Mouth::Closed},
    // Lips together, or the lower one at the teeth.
    {"p", Mouth::Closed},
    {"b", Mouth::Closed},
    {"m", Mouth::Closed},
    {"f", Mouth::Closed},
    {"v", Mouth::Closed},
    {"B", Mouth::Closed},
    {"F", Mouth::Closed},
    // Made behind the teeth, the lips open by themselves.
    {"k", Mouth::Wide1},
    {"g", Mouth::Wide1},
    {"h", Mouth::Wide1},
    {"N", Mouth::Wide1},
    {"l", Mouth::Wide1},
    {"r", Mouth::Wide1},
    {"R", Mouth::Wide1},
    {"x", Mouth::Wide1},
    {"X", Mouth::Wide1},
    {"j", Mouth::Wide1},
    {"i", Mouth::Wide1},
    {"I", Mouth::Wide1},
    {"q", Mouth::Wide1},
    {"Q", Mouth::Wide1},
    {"c", Mouth::Wide1},
    // The tongue at the teeth or at the ridge behind them.
    {"t", Mouth::Wide2},
    {"d", Mouth::Wide2},
    {"n", Mouth::Wide2},
    {"s", Mouth::Wide2},
    {"z", Mouth::Wide2},
    {"T", Mouth::Wide2},
    {"D", Mouth::Wide2},
    {"S", Mouth::Wide2},
    {"Z", Mouth::Wide2},
    {"e", Mouth::Wide3},
    // Vowels, wider and wider; then the round ones.
    {"E", Mouth::Wide3},
    {"@", Mouth::Wide3},
    {"3", Mouth::Wide3},
    {"V", Mouth::Wide3},
    {"a", Mouth::Wide4},
    {"A", Mouth::Wide4},
    {"0", Mouth::Medium},
    {"o", Mouth::Medium},
    {"O", Mouth::Medium},
    {"u", Mouth::Narrow},
    {"w", Mouth::Narrow},
});

// Round lips of vowels that few languages have.
constexpr std::string_view RoundLetters = "UyYW";

}

Mouth MouthOfPhoneme(std::string_view phoneme)
{
    if (phoneme.empty())
        return Mouth::Closed;
    for (const Group& group : Groups)
        if (phoneme.substr(0, group.beginning.size()) == group.beginning)
            return group.mouth;
    return RoundLetters.find(phoneme.front()) != std::string_view::npos ? Mouth::Narrow : Mouth::Wide2;
}

}
