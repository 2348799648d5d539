#include "engine/speech/VoiceChoice.h"
#include "base/text/Case.h"
#include <algorithm>
#include <cstdlib>

namespace engine {

namespace {

constexpr std::uint16_t PrimaryLanguage = 0x3FF;
constexpr std::uint16_t English = 0x09;
constexpr std::uint16_t AmericanEnglish = 0x0409;

std::string_view WithoutBraces(std::string_view id)
{
    if (!id.empty() && id.front() == '{')
        id.remove_prefix(1);
    if (!id.empty() && id.back() == '}')
        id.remove_suffix(1);
    return id;
}

int LanguageScore(const Voice& voice, std::uint16_t wanted)
{
    if (voice.languageId == wanted)
        return 4000;
    if ((voice.languageId & PrimaryLanguage) == (wanted & PrimaryLanguage))
        return 3000;
    return (voice.languageId & PrimaryLanguage) == English ? 2000 : 0;
}

int Score(const Voice& voice, const VoiceHints& hints, std::uint16_t language)
{
    const bool sameGender = hints.gender == 0 || voice.gender == hints.gender;
    const int apart = std::abs(static_cast<int>(voice.age) - static_cast<int>(hints.age));
    return LanguageScore(voice, language) + (sameGender ? 500 : 0) - std::min(apart, 200);
}

}

const Voice* FindVoice(const std::vector<Voice>& voices, const std::string& modeIdOrName)
{
    const auto found = std::find_if(voices.begin(), voices.end(), [&](const Voice& voice) {
        return text::EqualIgnoringCase(WithoutBraces(voice.modeId), WithoutBraces(modeIdOrName)) ||
               text::EqualIgnoringCase(voice.name, modeIdOrName);
    });
    return found == voices.end() || modeIdOrName.empty() ? nullptr : &*found;
}

const Voice* ChooseVoice(const std::vector<Voice>& voices, const std::optional<VoiceHints>& hints, std::uint16_t languageId)
{
    const VoiceHints wanted = hints.value_or(VoiceHints{});
    if (const Voice* own = FindVoice(voices, ModeIdText(wanted.modeId)))
        return own;
    const std::uint16_t language = languageId != 0 ? languageId : AmericanEnglish;
    const auto best = std::max_element(voices.begin(), voices.end(), [&](const Voice& left, const Voice& right) {
        return Score(left, wanted, language) < Score(right, wanted, language);
    });
    return best == voices.end() ? nullptr : &*best;
}

std::string ModeIdText(const std::array<std::uint8_t, 16>& id)
{
    constexpr int Order[] = {3, 2, 1, 0, -1, 5, 4, -1, 7, 6, -1, 8, 9, -1, 10, 11, 12, 13, 14, 15};
    constexpr char Digits[] = "0123456789ABCDEF";
    std::string text = "{";
    for (const int index : Order) {
        if (index < 0) {
            text += '-';
            continue;
        }
        const std::uint8_t byte = id[static_cast<std::size_t>(index)];
        text += Digits[byte >> 4];
        text += Digits[byte & 15];
    }
    return text + "}";
}

}
