#include "character/CTTSEngines.h"
#include "common/ProgramState.h"
#include "platform/Failure.h"
#include "platform/Platform.h"
#include "platform/SpeechEngines.h"
#include <algorithm>

namespace {

constexpr std::int32_t Growth = 50;
constexpr std::int32_t FoundSAPIVersion = 4;

// The form in which the character engine names a voice.
std::string Braced(const std::string& modeID) { return modeID.starts_with('{') ? modeID : "{" + modeID + "}"; }

// The voice list's catalogue: without any voice until the list is filled.
struct Catalogue {
    CTTSEngines engines{CTTSEngines::CEmpty{}};
};

}

CTTSEngines::CTTSEngines()
{
    const std::unique_ptr<platform::ISpeechEngineList> list = platform::Current().speechEngines.Open();
    const std::int32_t count = list->Count();
    for (std::int32_t index = 1; index <= count; ++index) {
        const std::string modeID = Braced(list->ModeID(index));
        const std::string modeName = list->ModeName(index);
        AddEngine(FoundSAPIVersion, modeID, modeName, list->LanguageID(index));
    }
}

const std::string& CTTSEngines::ModeID(std::int32_t index) const { return At(index).ModeID; }

const std::string& CTTSEngines::ModeName(std::int32_t index) const { return At(index).ModeName; }

std::int32_t CTTSEngines::SAPIVersion(std::int32_t index) const { return At(index).SAPIVersion; }

std::int32_t CTTSEngines::LanguageID(std::int32_t index) const { return At(index).LanguageID; }

void CTTSEngines::AddEngine(std::int32_t version, const std::string& modeID, const std::string& modeName,
                            std::int32_t languageID)
{
    if (m_count + 1 > Capacity())
        m_engines.resize(static_cast<std::size_t>(m_count + Growth));
    m_engines[static_cast<std::size_t>(m_count)] = {version, languageID, modeID, modeName};
    ++m_count;
}

void CTTSEngines::FindModeID(const std::string& modeID)
{
    const auto end = m_engines.begin() + m_count;
    const auto found = std::find_if(m_engines.begin(), end, [&](const Engine& engine) { return engine.ModeID == modeID; });
    m_found = found == end ? -1 : static_cast<std::int32_t>(found - m_engines.begin()) + 1;
}

const CTTSEngines::Engine& CTTSEngines::At(std::int32_t index) const
{
    if (index < 1 || index > Capacity())
        throw platform::CFailure(9, "Subscript out of range");
    return m_engines[static_cast<std::size_t>(index - 1)];
}

CTTSEngines& SpeechCatalogue() { return common::StateOf<Catalogue>().engines; }
