#pragma once
#include "platform/CharacterEngine.h"
#include "platform/windows/com/Dispatch.h"

namespace platform::windowsdesktop::com {

// What the user said or chose, asked for member by member.
class CAgentUserInput final : public IUserInput {
public:
    explicit CAgentUserInput(CInterface<IDispatch> input) : m_input(std::move(input)) {}
    std::string CharacterID() const override { return m_input.Get(L"CharacterID").Text(); }
    std::int32_t Count() const override { return m_input.Get(L"Count").Long(); }
    std::string Name() const override { return m_input.Get(L"Name").Text(); }
    std::int32_t Confidence() const override { return m_input.Get(L"Confidence").Long(); }
    std::string Voice() const override { return m_input.Get(L"Voice").Text(); }
    std::string Alt1Name() const override { return m_input.Get(L"Alt1Name").Text(); }
    std::int32_t Alt1Confidence() const override { return m_input.Get(L"Alt1Confidence").Long(); }
    std::string Alt1Voice() const override { return m_input.Get(L"Alt1Voice").Text(); }
    std::string Alt2Name() const override { return m_input.Get(L"Alt2Name").Text(); }
    std::int32_t Alt2Confidence() const override { return m_input.Get(L"Alt2Confidence").Long(); }
    std::string Alt2Voice() const override { return m_input.Get(L"Alt2Voice").Text(); }

private:
    CDispatch m_input;
};

}
