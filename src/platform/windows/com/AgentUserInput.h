#pragma once
#include "platform/CharacterEngine.h"
#include "platform/windows/com/Dispatch.h"
#include "platform/windows/com/KeptAnswer.h"

namespace platform::windowsdesktop::com {

// What the user said or chose, read member by member when this object is made: while the engine tells of it. Nobody knows
// whether the engine would still answer afterwards. A member that could not be read throws when it is asked for.
class CAgentUserInput final : public IUserInput {
public:
    explicit CAgentUserInput(CInterface<IDispatch> input) : m_input(std::move(input)) {}
    std::string CharacterID() const override { return m_characterID.Get(); }
    std::int32_t Count() const override { return m_count.Get(); }
    std::string Name() const override { return m_name.Get(); }
    std::int32_t Confidence() const override { return m_confidence.Get(); }
    std::string Voice() const override { return m_voice.Get(); }
    std::string Alt1Name() const override { return m_alt1Name.Get(); }
    std::int32_t Alt1Confidence() const override { return m_alt1Confidence.Get(); }
    std::string Alt1Voice() const override { return m_alt1Voice.Get(); }
    std::string Alt2Name() const override { return m_alt2Name.Get(); }
    std::int32_t Alt2Confidence() const override { return m_alt2Confidence.Get(); }
    std::string Alt2Voice() const override { return m_alt2Voice.Get(); }

private:
    using Text = CKeptAnswer<std::string>;
    using Number = CKeptAnswer<std::int32_t>;
    Text TextOf(const wchar_t* member) const
    {
        return Text([&] { return m_input.Get(member).Text(); });
    }
    Number NumberOf(const wchar_t* member) const
    {
        return Number([&] { return m_input.Get(member).Long(); });
    }

    CDispatch m_input;
    Text m_characterID = TextOf(L"CharacterID");
    Number m_count = NumberOf(L"Count");
    Text m_name = TextOf(L"Name");
    Number m_confidence = NumberOf(L"Confidence");
    Text m_voice = TextOf(L"Voice");
    Text m_alt1Name = TextOf(L"Alt1Name");
    Number m_alt1Confidence = NumberOf(L"Alt1Confidence");
    Text m_alt1Voice = TextOf(L"Alt1Voice");
    Text m_alt2Name = TextOf(L"Alt2Name");
    Number m_alt2Confidence = NumberOf(L"Alt2Confidence");
    Text m_alt2Voice = TextOf(L"Alt2Voice");
};

}
