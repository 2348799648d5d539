#include "engine/session/Actor.h"
#include <algorithm>

// What the user can say to a character, and what the program hears of it.
namespace engine {

namespace {

constexpr std::size_t MostMatches = 3;

class CUserInput final : public platform::IUserInput {
public:
    CUserInput(std::string id, std::vector<HeardCommand> matches) : m_id(std::move(id)), m_matches(std::move(matches))
    {
        m_count = static_cast<std::int32_t>(m_matches.size());
        m_matches.resize(MostMatches);
    }
    std::string CharacterID() const override { return m_id; }
    std::int32_t Count() const override { return m_count; }
    std::string Name() const override { return m_matches[0].name; }
    std::int32_t Confidence() const override { return m_matches[0].confidence; }
    std::string Voice() const override { return m_matches[0].voice; }
    std::string Alt1Name() const override { return m_matches[1].name; }
    std::int32_t Alt1Confidence() const override { return m_matches[1].confidence; }
    std::string Alt1Voice() const override { return m_matches[1].voice; }
    std::string Alt2Name() const override { return m_matches[2].name; }
    std::int32_t Alt2Confidence() const override { return m_matches[2].confidence; }
    std::string Alt2Voice() const override { return m_matches[2].voice; }

private:
    std::string m_id;
    std::int32_t m_count = 0;
    std::vector<HeardCommand> m_matches;
};

std::vector<SpokenCommand> SpokenOnes(const CommandList& list)
{
    std::vector<SpokenCommand> spoken;
    for (const Command& command : list.commands)
        if (command.enabled && !command.voice.empty())
            spoken.push_back({command.name, command.voice});
    return spoken;
}

}

void CActor::SetCommands(CommandList commands)
{
    m_commands = std::move(commands);
    OfferCommands();
}

// Nobody talks to a character that is not there.
void CActor::OfferCommands()
{
    std::vector<SpokenCommand> spoken = SpokenOnes(m_commands);
    if (!Visible() || spoken.empty()) {
        m_core.host.SpeechInput().Withdraw(this);
        return;
    }
    m_core.host.SpeechInput().Offer(this, std::move(spoken),
                                    [this](const std::vector<HeardCommand>& matches) { Heard(matches); });
}

void CActor::Heard(const std::vector<HeardCommand>& matches)
{
    const auto end = matches.begin() + static_cast<std::ptrdiff_t>(std::min(matches.size(), MostMatches));
    m_core.Tell([input = CUserInput(m_id, {matches.begin(), end})](auto& events) { events.Command(input); });
}

}
