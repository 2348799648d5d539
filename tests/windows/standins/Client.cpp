#include "windows/standins/Client.h"
#include "windows/standins/Character.h"
#include <algorithm>

namespace standins {
namespace {

char Lower(char letter) { return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter; }

}

bool CNameOrder::operator()(const std::string& left, const std::string& right) const
{
    return std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end(),
                                        [](char one, char other) { return Lower(one) < Lower(other); });
}

bool CValues::Set(const std::string& name, const std::string& text)
{
    const auto found = m_values.find(name);
    CValue value{text};
    if (found == m_values.end() || FAILED(value.ConvertTo(found->second.Get().vt)))
        return false;
    found->second = value;
    return true;
}

void CClient::Raise(const char* event, std::vector<CValue> arguments)
{
    const auto alive = sinks;
    if (const CEventShape* shape = FindEvent(event))
        alive->Raise(*shape, arguments);
}

std::shared_ptr<CCharacterState> CClient::Find(const std::string& id) const
{
    const auto found = characters.find(id);
    return found == characters.end() ? nullptr : found->second;
}

}
