#include "engine/session/StopTypes.h"
#include "base/text/Case.h"
#include "base/text/Text.h"
#include "platform/Failure.h"

namespace engine {

namespace {

void AddKind(std::set<WorkKind>& kinds, std::string_view name)
{
    if (text::EqualIgnoringCase(name, "Play"))
        kinds.insert(WorkKind::Play);
    else if (text::EqualIgnoringCase(name, "Speak"))
        kinds.insert(WorkKind::Speak);
    else if (text::EqualIgnoringCase(name, "Move"))
        kinds.insert(WorkKind::MoveTo);
    else if (!text::EqualIgnoringCase(name, "Get") && !text::EqualIgnoringCase(name, "NonQueuedGet"))
        throw platform::CFailure(platform::engineError::InvalidArgument, "There is no request type of this name.");
}

}

std::set<WorkKind> StoppedKinds(const std::optional<std::string>& types)
{
    if (!types)
        return {WorkKind::Show, WorkKind::Hide, WorkKind::Play, WorkKind::Speak, WorkKind::MoveTo};
    std::set<WorkKind> kinds;
    std::string_view rest = *types;
    while (true) {
        const std::size_t comma = rest.find(',');
        AddKind(kinds, text::Trim(rest.substr(0, comma)));
        if (comma == std::string_view::npos)
            return kinds;
        rest.remove_prefix(comma + 1);
    }
}

}
