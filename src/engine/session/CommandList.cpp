#include "engine/session/CommandList.h"
#include "base/text/Case.h"
#include "platform/CharacterEngine.h"
#include "platform/Failure.h"
#include <algorithm>

namespace engine {

namespace {

namespace engineError = platform::engineError;

constexpr std::int32_t RightParenthesisMissing = engineError::Code(0x80042305);
constexpr std::int32_t RightBracketMissing = engineError::Code(0x80042306);
constexpr std::int32_t LeftParenthesisMissing = engineError::Code(0x80042307);
constexpr std::int32_t LeftBracketMissing = engineError::Code(0x80042308);
constexpr std::int32_t AlternativesNotBracketed = engineError::Code(0x80042309);

}

std::int32_t VoiceTextFault(const std::string& voice)
{
    std::string open;
    for (const char character : voice) {
        if (character == '(' || character == '[')
            open += character;
        else if (character == '|' && open.empty())
            return AlternativesNotBracketed;
        else if (character == ')' || character == ']') {
            const char left = character == ')' ? '(' : '[';
            if (open.find(left) == std::string::npos)
                return character == ')' ? LeftParenthesisMissing : LeftBracketMissing;
            if (open.back() != left)
                return character == ')' ? RightBracketMissing : RightParenthesisMissing;
            open.pop_back();
        }
    }
    if (open.empty())
        return 0;
    return open.back() == '(' ? RightParenthesisMissing : RightBracketMissing;
}

void CommandList::Add(Command command)
{
    const bool known = std::any_of(commands.begin(), commands.end(),
                                   [&](const Command& other) { return text::EqualIgnoringCase(other.name, command.name); });
    if (known)
        throw platform::CFailure(engineError::CommandExists, "There is a command of this name already.");
    if (const std::int32_t fault = VoiceTextFault(command.voice))
        throw platform::CFailure(fault, "The brackets of the voice text do not match.");
    commands.push_back(std::move(command));
}

}
