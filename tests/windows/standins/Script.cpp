#include "windows/standins/Script.h"
#include <algorithm>
#include <array>

namespace standins {
namespace {

bool Meets(const CRule& rule, const std::string& object, const std::string& member, WORD flags)
{
    return (rule.object.empty() || SameName(rule.object, object)) && (rule.member == "*" || SameName(rule.member, member)) &&
           (rule.kinds == 0 || (rule.kinds & flags) != 0);
}

struct Prefix {
    const char* text;
    WORD kinds;
};

constexpr std::array Prefixes{Prefix{"get:", DISPATCH_PROPERTYGET},
                              Prefix{"put:", DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF},
                              Prefix{"call:", DISPATCH_METHOD}};

CValue ArrayOfNumbers()
{
    CValue value;
    value.Raw().vt = VT_ARRAY | VT_I4;
    value.Raw().parray = SafeArrayCreateVector(VT_I4, 0, 3);
    return value;
}

CValue OfType(VARTYPE type, std::int32_t number)
{
    CValue value(number);
    value.Raw().vt = type;
    return value;
}

}

std::vector<CRule> CScript::Take(const std::string& object, const std::string& member, WORD flags)
{
    std::vector<CRule> taken;
    const auto meets = [&](const CRule& rule) { return Meets(rule, object, member, flags); };
    std::copy_if(m_rules.begin(), m_rules.end(), std::back_inserter(taken), meets);
    m_rules.erase(
        std::remove_if(m_rules.begin(), m_rules.end(), [&](const CRule& rule) { return !rule.always && meets(rule); }),
        m_rules.end());
    return taken;
}

void SetTarget(CRule& rule, std::string target)
{
    for (const Prefix& prefix : Prefixes)
        if (const std::string text = prefix.text; target.compare(0, text.size(), text) == 0) {
            rule.kinds = prefix.kinds;
            target.erase(0, text.size());
        }
    const auto dot = target.find('.');
    rule.object = dot == std::string::npos ? "" : target.substr(0, dot);
    rule.member = dot == std::string::npos ? target : target.substr(dot + 1);
}

CValue Garbage(const std::string& kind)
{
    if (kind == "text")
        return CValue("no number");
    if (kind == "number")
        return CValue(std::int32_t{12345});
    if (kind == "huge")
        return CValue(1e300);
    if (kind == "array")
        return ArrayOfNumbers();
    if (kind == "nothing")
        return CValue(static_cast<IDispatch*>(nullptr));
    if (kind == "null")
        return OfType(VT_NULL, 0);
    if (kind == "empty")
        return CValue();
    if (kind == "error")
        return OfType(VT_ERROR, static_cast<std::int32_t>(DISP_E_BADINDEX));
    throw CComFailure{E_INVALIDARG};
}

}
