#include "common/zbGetFiles.h"
#include "common/bGlobal.h"
#include "common/zbErrorTrap.h"
#include "platform/EventPump.h"
#include "platform/Files.h"
#include "platform/Platform.h"

namespace {
constexpr char Module[] = "bGetFiles";
}

void zbGetFiles::GetFiles(const std::string& pattern, std::vector<std::string>& names, std::int32_t& count)
{
    const zbErrorTrap::CGuard guard(Module, "GetFiles");
    std::vector<std::string> found;
    names.clear();
    count = 0;
    if (pattern.empty())
        return;

    guard([&] { found = platform::Current().files.Match(pattern); });
    for (const std::string& name : found) {
        if (name == "." || name == "..")
            continue;
        guard([&] { platform::Current().events.RunPendingEvents(); });
        guard([&] { names.push_back(name); });
        count = static_cast<std::int32_t>(names.size());
    }
    if (count > 1)
        bGlobal::QuickSort(names);
}
