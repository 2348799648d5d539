#pragma once
#include "windows/standins/Value.h"
#include <string>
#include <vector>

namespace standins {

// A call that fails. As an exception the code travels in EXCEPINFO, as the engine does it; else it is the HRESULT of Invoke.
struct CComFailure {
    HRESULT code = E_FAIL;
    bool asException = true;
    bool deferred = false;  // EXCEPINFO is filled only when the caller asks for it.
    std::string source = {}, description = {};
};

enum class RuleAct { Fail, Garbage, Block, During };

// Something that shall go wrong in calls of one member.
struct CRule {
    std::string object;  // Its class, as in the log's paths; "" for every one.
    std::string member;  // "*" for every one.
    WORD kinds = 0;      // DISPATCH_ flags of which one must be in the call; 0 for all.
    bool always = false;
    RuleAct act = RuleAct::Fail;
    CComFailure failure;
    std::string argument;  // The kind of garbage, or the command to run inside the call.
    DWORD milliseconds = 0;
};

class CScript {
public:
    void Add(const CRule& rule) { m_rules.push_back(rule); }
    void Forget() { m_rules.clear(); }
    // The rules that meet a call, in the order in which they were added. Those for one call are used up by it.
    std::vector<CRule> Take(const std::string& object, const std::string& member, WORD flags);

private:
    std::vector<CRule> m_rules;
};

// Reads "[get:|put:|call:][Class.]Member" into the rule.
void SetTarget(CRule& rule, std::string target);

// A result of a kind that no caller of a number or a text expects: text, number, array, nothing, null, empty, error, huge.
// Throws CComFailure with E_INVALIDARG for an unknown kind.
CValue Garbage(const std::string& kind);

}
