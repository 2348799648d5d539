#include "common/ProgramState.h"
#include <utility>
#include <vector>

namespace common {
namespace {
std::vector<std::function<void()>>& Renewals()
{
    static std::vector<std::function<void()>> renewals;
    return renewals;
}
}

void OnRenewal(std::function<void()> renew) { Renewals().push_back(std::move(renew)); }

void RenewProgramState()
{
    for (const std::function<void()>& renew : Renewals())
        renew();
}

}
