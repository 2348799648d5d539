#include "engine/hosts/qt/EspeakLibrary.h"
#include "base/text/Case.h"
#include "engine/hosts/qt/VoiceIdentity.h"
#include <algorithm>
#include <array>
#include <cstring>
#include <espeak-ng/speak_lib.h>
#include <exception>
#include <set>
#include <utility>

namespace engine {
namespace {

// Without it the library ends the program when its data is missing.
constexpr int DoNotExit = 0x8000;

// Who hears of one text, and what they threw: no exception may pass through the library.
struct Hearing {
    CEspeakLibrary::IListener& listener;
    std::exception_ptr failure;
};

bool Tell(CEspeakLibrary::IListener& listener, const short* samples, int count, const espeak_EVENT* events)
{
    for (const espeak_EVENT* event = events; event->type != espeakEVENT_LIST_TERMINATED; ++event) {
        if (event->type == espeakEVENT_WORD)
            listener.Word(event->sample, event->text_position);
        else if (event->type == espeakEVENT_PHONEME)
            listener.Phoneme(event->sample, {event->id.string, strnlen(event->id.string, sizeof event->id.string)});
    }
    return !samples || count <= 0 || listener.Samples(samples, static_cast<std::size_t>(count));
}

// Called by the library with the samples of its next stretch and what happens in them; 1 stops the text.
int Receive(short* samples, int count, espeak_EVENT* events)
{
    auto* hearing = static_cast<Hearing*>(events->user_data);
    if (!hearing)
        return 0;
    try {
        return Tell(hearing->listener, samples, count, events) ? 0 : 1;
    } catch (...) {
        hearing->failure = std::current_exception();
        return 1;
    }
}

// The file's name without its folder: the folders change from release to release.
std::string IdentityOf(std::string identifier)
{
    identifier.erase(0, identifier.rfind('/') + 1);
    return identifier;
}

std::string NameForPeople(std::string name)
{
    std::replace(name.begin(), name.end(), '_', ' ');
    name.erase(name.find_last_not_of(' ') + 1);
    return name;
}

std::uint16_t GenderOf(const espeak_VOICE& voice)
{
    const std::array<std::uint16_t, 3> genders{0, 2, 1};  // The library counts: none, male, female.
    return voice.gender < genders.size() ? genders[voice.gender] : std::uint16_t{0};
}

// Voices of another synthesiser that the library only drives; they fail without it.
bool NeedsOtherProgram(const espeak_VOICE& voice) { return std::strncmp(voice.identifier, "mb/", 3) == 0; }

// The list of languages begins with the first one's priority, in one byte.
Voice Describe(const espeak_VOICE& voice)
{
    Voice described;
    described.key = voice.identifier;
    described.name = NameForPeople(voice.name ? voice.name : voice.identifier);
    if (voice.languages && voice.languages[0] != 0)
        described.languageId = LanguageIdOfTag(text::Lower(voice.languages + 1));
    described.gender = GenderOf(voice);
    described.age = voice.age;
    return described;
}

}

CEspeakLibrary& CEspeakLibrary::Get()
{
    static CEspeakLibrary library;
    return library;
}

const std::string& CEspeakLibrary::Start()
{
    if (std::exchange(m_started, true))
        return m_failure;
    const int rate = espeak_Initialize(AUDIO_OUTPUT_SYNCHRONOUS, 0, nullptr, espeakINITIALIZE_PHONEME_EVENTS | DoNotExit);
    if (rate <= 0)
        return m_failure = "libespeak-ng cannot start; is its data (espeak-ng-data) installed?";
    m_sampleRate = rate;
    espeak_SetSynthCallback(&Receive);
    return m_failure;
}

std::vector<Voice> CEspeakLibrary::Voices() const
{
    std::vector<Voice> voices;
    std::set<std::string> identities;
    for (const espeak_VOICE** next = espeak_ListVoices(nullptr); next && *next; ++next) {
        if (!(*next)->identifier || NeedsOtherProgram(**next))
            continue;
        voices.push_back(Describe(**next));
        const std::string identity = IdentityOf(voices.back().key);
        const bool isNew = identities.insert(identity).second;
        voices.back().modeId = ModeIdOfVoice(isNew ? identity : voices.back().key);
    }
    return voices;
}

bool CEspeakLibrary::SelectVoice(const std::string& key, bool whisper)
{
    if (whisper && espeak_SetVoiceByName((key + "+whisper").c_str()) == EE_OK)
        return true;
    return espeak_SetVoiceByName(key.c_str()) == EE_OK;
}

void CEspeakLibrary::Set(const Setting& setting)
{
    espeak_SetParameter(espeakRATE, setting.wordsPerMinute, 0);
    espeak_SetParameter(espeakPITCH, setting.pitch, 0);
    espeak_SetParameter(espeakRANGE, setting.range, 0);
    espeak_SetParameter(espeakVOLUME, setting.volume, 0);
}

bool CEspeakLibrary::Speak(const std::string& text, bool endPause, IListener& listener)
{
    const unsigned flags = espeakCHARS_UTF8 | (endPause ? static_cast<unsigned>(espeakENDPAUSE) : 0U);
    Hearing hearing{listener, nullptr};
    const auto result = espeak_Synth(text.c_str(), text.size() + 1, 0, POS_CHARACTER, 0, flags, nullptr, &hearing);
    if (hearing.failure)
        std::rethrow_exception(hearing.failure);
    return result == EE_OK;
}

}
