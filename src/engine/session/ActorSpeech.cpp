#include "engine/session/Actor.h"
#include "engine/speech/VoiceChoice.h"
#include "platform/Failure.h"
#include <algorithm>
#include <new>

// How a character finds its voice and what it is about to say.
namespace engine {

namespace engineError = platform::engineError;

namespace {

bool HasSound(const SpokenText& text)
{
    return std::any_of(text.segments.begin(), text.segments.end(), [](const SpeechSegment& segment) {
        return segment.pauseMilliseconds > 0 || segment.text.find_first_not_of(" \t\r\n") != std::string::npos;
    });
}

}

const std::vector<Voice>& CActor::Voices() const
{
    if (m_voices.empty())
        m_voices = m_core.host.Synthesizer().Voices();
    return m_voices;
}

std::string CActor::ModeId() const
{
    if (!m_core.settings.speechOn || !m_core.host.Synthesizer().Available())
        return "";
    const Voice* set = FindVoice(Voices(), m_modeId);
    const Voice* voice = set != nullptr ? set : ChooseVoice(Voices(), m_character->voice, m_core.settings.languageId);
    return voice != nullptr ? voice->modeId : "";
}

void CActor::SetModeId(const std::string& modeId)
{
    m_modeId.clear();
    m_voices.clear();  // Voices may have been installed since.
    if (modeId.empty())
        return;
    const bool canSpeak = m_core.settings.speechOn && m_core.host.Synthesizer().Available();
    const Voice* voice = canSpeak ? FindVoice(Voices(), modeId) : nullptr;
    if (voice == nullptr)
        throw platform::CFailure(engineError::SpeechEngineNotFound, "There is no such voice.");
    m_modeId = voice->modeId;
}

SpeechDefaults CActor::VoiceDefaults() const
{
    if (!m_character->voice)
        return {};
    const auto pace = std::min<std::uint32_t>(m_character->voice->wordsPerMinute.value_or(0), 800);
    return {m_character->voice->pitch.value_or(0), static_cast<std::int32_t>(pace)};
}

std::unique_ptr<PreparedSpeech> CActor::Prepare(const WorkItem& item)
{
    auto speech = std::make_unique<PreparedSpeech>();
    const bool chooses = item.text.find('|') != std::string::npos;
    speech->statement.text = chooses ? std::string(ChooseAlternative(item.text, m_core.host.RandomFraction())) : item.text;
    speech->statement.soundFile = item.soundFile ? *item.soundFile : "";
    speech->spoken = ParseSpeech(speech->statement.text, VoiceDefaults());
    if (speech->spoken.repeatsLast) {
        speech->statement = m_lastStatement;
        speech->spoken = ParseSpeech(m_lastStatement.text, VoiceDefaults());
        speech->spoken.bookmarks.clear();
    }
    OrderVoice(*speech);
    return speech;
}

void CActor::OrderVoice(PreparedSpeech& speech)
{
    speech.feed.reset();
    speech.modeId = ModeId();
    speech.speedPercent = m_core.user->Now().speedPercent;
    if (!speech.modeId.empty() && speech.statement.soundFile.empty() && HasSound(speech.spoken))
        speech.feed = std::make_unique<CSpeechFeed>(m_core.host.Synthesizer(), speech.modeId, speech.speedPercent,
                                                    speech.spoken.segments);
}

// Has the next text synthesised while the character is still busy, so that no gap is heard between two texts. Without memory
// for it there is a gap.
void CActor::PrefetchNext()
{
    WorkItem* next = m_queue.Next();
    const WorkItem* running = m_queue.Running();
    if (next == nullptr || running == nullptr || next->kind != WorkKind::Speak || next->prepared || next->soundFile)
        return;
    if (!m_stage.Visible() || running->kind == WorkKind::Hide)
        return;
    try {
        next->prepared = Prepare(*next);
    } catch (const std::bad_alloc&) {
        next->prepared.reset();
    }
}

}
