#include "platform/windows/com/AgentEvents.h"
#include "base/text/Case.h"
#include "platform/windows/Text.h"
#include "platform/windows/com/AgentUserInput.h"
#include <algorithm>
#include <array>

namespace platform::windowsdesktop::com {
namespace {

using Events = ICharacterEngineEvents;
using Character = const std::string&;
using MouseEvent = void (Events::*)(Character, std::int16_t, std::int16_t, std::int16_t, std::int16_t);
using CharacterEvent = void (Events::*)(Character);
using CauseEvent = void (Events::*)(Character, std::int16_t);
using RequestEvent = void (Events::*)(const RequestRef&);
using Maker = Delivery (*)(const CEventArguments& arguments, const RequestsRef& requests);

template <MouseEvent Event> Delivery Mouse(const CEventArguments& arguments, const RequestsRef&)
{
    return [id = arguments.Text(0), button = arguments.Short(1), shift = arguments.Short(2), x = arguments.Short(3),
            y = arguments.Short(4)](Events& receiver) { (receiver.*Event)(id, button, shift, x, y); };
}

template <CharacterEvent Event> Delivery OfCharacter(const CEventArguments& arguments, const RequestsRef&)
{
    return [id = arguments.Text(0)](Events& receiver) { (receiver.*Event)(id); };
}

template <CauseEvent Event> Delivery WithCause(const CEventArguments& arguments, const RequestsRef&)
{
    return [id = arguments.Text(0), cause = arguments.Short(1)](Events& receiver) { (receiver.*Event)(id, cause); };
}

Delivery Move(const CEventArguments& arguments, const RequestsRef&)
{
    return [id = arguments.Text(0), x = arguments.Short(1), y = arguments.Short(2),
            cause = arguments.Short(3)](Events& receiver) { receiver.Move(id, x, y, cause); };
}

Delivery Size(const CEventArguments& arguments, const RequestsRef&)
{
    return [id = arguments.Text(0), width = arguments.Short(1), height = arguments.Short(2)](Events& receiver) {
        receiver.Size(id, width, height);
    };
}

Delivery RequestStart(const CEventArguments& arguments, const RequestsRef& requests)
{
    return [told = requests->ToldOf(arguments.Object(0)), requests](Events& receiver) {
        const AgentRequestRef request = requests->Of(told);
        requests->Started(request);
        receiver.RequestStart(request);
    };
}

Delivery RequestComplete(const CEventArguments& arguments, const RequestsRef& requests)
{
    const AgentRequestRef told = requests->ToldOf(arguments.Object(0));
    told->ReadOutcome();
    return [told, requests](Events& receiver) {
        const AgentRequestRef request = requests->Of(told);
        requests->Completed(request);
        receiver.RequestComplete(request);
    };
}

Delivery Command(const CEventArguments& arguments, const RequestsRef&)
{
    return [input = std::make_shared<const CAgentUserInput>(arguments.Object(0))](Events& receiver) {
        receiver.Command(*input);
    };
}

Delivery Bookmark(const CEventArguments& arguments, const RequestsRef&)
{
    return [number = arguments.Long(0)](Events& receiver) { receiver.Bookmark(number); };
}

struct KnownEvent {
    std::wstring_view name;
    DISPID id;
    Maker maker;
};
constexpr std::array<KnownEvent, 17> KnownEvents{{
    {L"Click", 2, Mouse<&Events::Click>},
    {L"DblClick", 4, Mouse<&Events::DblClick>},
    {L"DragStart", 5, Mouse<&Events::DragStart>},
    {L"DragComplete", 6, Mouse<&Events::DragComplete>},
    {L"Show", 15, WithCause<&Events::Show>},
    {L"Hide", 7, WithCause<&Events::Hide>},
    {L"Move", 22, Move},
    {L"Size", 23, Size},
    {L"RequestStart", 9, RequestStart},
    {L"RequestComplete", 11, RequestComplete},
    {L"Command", 17, Command},
    {L"Bookmark", 16, Bookmark},
    {L"BalloonShow", 24, OfCharacter<&Events::BalloonShow>},
    {L"BalloonHide", 25, OfCharacter<&Events::BalloonHide>},
    {L"IdleStart", 19, OfCharacter<&Events::IdleStart>},
    {L"IdleComplete", 20, OfCharacter<&Events::IdleComplete>},
    {L"DefaultCharacterChange", 30, OfCharacter<&Events::DefaultCharacterChange>},
}};

const KnownEvent* Find(std::wstring_view name)
{
    const auto* found = std::find_if(KnownEvents.begin(), KnownEvents.end(), [&](const KnownEvent& event) {
        return ::text::EqualIgnoringCase(FromWide(event.name), FromWide(name));
    });
    return found == KnownEvents.end() ? nullptr : found;
}

}

std::wstring_view EventName(DISPID id)
{
    const auto* found =
        std::find_if(KnownEvents.begin(), KnownEvents.end(), [&](const KnownEvent& event) { return event.id == id; });
    return found == KnownEvents.end() ? std::wstring_view() : found->name;
}

bool IsEventName(std::wstring_view name) { return Find(name) != nullptr; }

Delivery DeliveryOf(std::wstring_view name, const CEventArguments& arguments, const RequestsRef& requests)
{
    const KnownEvent* event = Find(name);
    return event ? event->maker(arguments, requests) : Delivery();
}

}
