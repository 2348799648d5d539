#include "windows/standins/Telling.h"
#include "support/OwnHandles.h"
#include "windows/standins/Character.h"
#include "windows/standins/Office.h"
#include "windows/standins/Order.h"
#include "windows/standins/TypeInformation.h"
#include <algorithm>
#include <map>

namespace standins {
namespace {

std::vector<std::shared_ptr<CClient>> Clients(CScene& scene)
{
    std::vector<std::shared_ptr<CClient>> living;
    for (const auto& entry : scene.clients)
        if (auto client = entry.lock())
            living.push_back(client);
    return living;
}

std::vector<std::shared_ptr<CCharacterState>> Characters(CScene& scene)
{
    std::vector<std::shared_ptr<CCharacterState>> living;
    for (const auto& entry : scene.characters)
        if (auto state = entry.lock(); state && state->alive)
            living.push_back(state);
    return living;
}

void RaiseForAll(CScene& scene, const char* event, const std::vector<CValue>& arguments)
{
    for (const auto& client : Clients(scene))
        client->Raise(event, arguments);
}

void RaiseLater(CScene& scene, const char* event, std::vector<CValue> arguments)
{
    scene.Later([&scene, event, arguments = std::move(arguments)] { RaiseForAll(scene, event, arguments); });
}

std::vector<CValue> ReadArguments(COrder& order, const char* parameters)
{
    std::vector<CValue> arguments;
    for (const char* letter = parameters; *letter != 0; ++letter) {
        arguments.emplace_back(order.Word());
        Require(SUCCEEDED(arguments.back().ConvertTo(TypeOf(*letter))));
    }
    order.End();
    return arguments;
}

CHeard ReadHeard(COrder& order)
{
    CHeard heard;
    heard.characterID = order.Word();
    heard.name = order.Word();
    heard.confidence = order.Number();
    heard.voice = order.WordOr("");
    heard.firstName = order.WordOr("");
    heard.firstConfidence = order.NumberOr(0);
    heard.firstVoice = order.WordOr("");
    heard.secondName = order.WordOr("");
    heard.secondConfidence = order.NumberOr(0);
    heard.secondVoice = order.WordOr("");
    heard.count = heard.secondName.empty() ? (heard.firstName.empty() ? 1 : 2) : 3;
    order.End();
    return heard;
}

void ShowOrHide(CScene& scene, bool shown, const std::vector<CValue>& arguments)
{
    const auto state = scene.Character(arguments[0].Text());
    if (state)
        state->SetShown(shown, static_cast<std::int16_t>(arguments[1].Number()), /*withEvent*/ false);
}

void RaiseEvent(COrder& order)
{
    const CEventShape* shape = FindEvent(order.Word());
    Require(shape != nullptr);
    CScene& scene = order.scene;
    const std::string name = shape->name;
    if (name == "Command") {
        const CRef<IDispatch> input = NewUserInput(scene.shared_from_this(), ReadHeard(order));
        return RaiseLater(scene, shape->name, {CValue(input.Get())});
    }
    Require(std::string(shape->parameters) != "d");
    const std::vector<CValue> arguments = ReadArguments(order, shape->parameters);
    if (name == "Show" || name == "Hide")
        ShowOrHide(scene, name == "Show", arguments);
    RaiseLater(scene, shape->name, arguments);
}

void Repeat(COrder& order)
{
    const std::int32_t count = order.Number();
    const std::string command = order.Rest();
    for (std::int32_t done = 0; done < count; ++done)
        Require(Obey(order.scene, command));
}

void SetHold(COrder& order)
{
    CScene& scene = order.scene;
    const std::string how = order.Word();
    Require(how == "on" || how == "start" || how == "off");
    scene.hold = how == "on" ? Hold::Running : how == "start" ? Hold::Pending : Hold::Off;
    for (const auto& state : Characters(scene))
        state->queue->Advance();
}

void Complete(COrder& order)
{
    const std::int32_t status = order.NumberOr(0), number = order.NumberOr(0);
    order.scene.Later([&scene = order.scene, status, number] {
        for (const auto& state : Characters(scene))
            state->queue->Complete(status, number);
    });
}

void SetShown(COrder& order)
{
    const auto state = order.scene.Character(order.Word());
    const bool shown = order.Number() != 0;
    Require(state != nullptr);
    state->SetShown(shown, static_cast<std::int16_t>(state->values["VisibilityCause"].Number()), /*withEvent*/ false);
}

void SetProperty(COrder& order)
{
    const auto state = order.scene.Character(order.Word());
    const std::string property = order.Word();
    Require(state != nullptr && state->values.Set(property, order.Word()));
}

void SetInitial(COrder& order)
{
    const std::string property = order.Word();
    order.scene.initialValues.emplace_back(property, order.Word());
}

void SetAnimations(COrder& order)
{
    order.scene.animations.clear();
    while (!order.Empty())
        order.scene.animations.push_back(order.Word());
}

void AddVoice(COrder& order)
{
    const std::string modeID = order.Word(), name = order.Word();
    order.scene.voices.push_back({modeID, name, order.NumberOr(0x0409)});
}

void SetHalfMade(COrder& order)
{
    const bool givesDefault = order.Skip("default");
    Require(givesDefault || order.Skip("error"));
    order.scene.halfMadeGivesDefault = givesDefault;
}

void SetClassInfo(COrder& order)
{
    static const std::map<std::string, ClassInfo> ways = {
        {"both", ClassInfo::Both}, {"one", ClassInfo::One}, {"library", ClassInfo::Library}, {"none", ClassInfo::None}};
    const auto way = ways.find(order.Word());
    Require(way != ways.end());
    order.scene.classInfo = way->second;
}

CRule ReadRule(COrder& order, RuleAct act)
{
    CRule rule;
    rule.act = act;
    rule.always = order.Skip("always");
    SetTarget(rule, order.Word());
    return rule;
}

void AddFailure(COrder& order)
{
    CRule rule = ReadRule(order, RuleAct::Fail);
    rule.failure.code = static_cast<HRESULT>(order.Number());
    const std::string how = order.WordOr("exception");
    Require(how == "result" || how == "exception" || how == "deferred");
    rule.failure.asException = how != "result";
    rule.failure.deferred = how == "deferred";
    rule.failure.source = order.WordOr("");
    rule.failure.description = order.WordOr("");
    order.End();
    order.scene.script.Add(rule);
}

void AddGarbage(COrder& order)
{
    CRule rule = ReadRule(order, RuleAct::Garbage);
    rule.argument = order.Word();
    try {
        Garbage(rule.argument);
    } catch (const CComFailure&) {
        throw CNotUnderstood{};
    }
    order.scene.script.Add(rule);
}

void AddBlock(COrder& order)
{
    CRule rule = ReadRule(order, RuleAct::Block);
    rule.milliseconds = order.Milliseconds();
    order.scene.script.Add(rule);
}

void AddDuring(COrder& order)
{
    CRule rule = ReadRule(order, RuleAct::During);
    rule.argument = order.Rest();
    order.scene.script.Add(rule);
}

void Mark(COrder& order)
{
    const std::string name = order.Word();
    order.scene.Later([&scene = order.scene, name] { scene.log.Write("marked " + name); });
}

void CountHandles(COrder& order)
{
    const support::OwnHandles held = support::CountOwnHandles();
    order.scene.log.Write("held " + std::to_string(held.drawing) + " " + std::to_string(held.windows) + " " +
                          std::to_string(held.kernel));
}

void Hang(COrder& order)
{
    order.scene.Later([milliseconds = order.Milliseconds()] { Sleep(milliseconds); });
}

void Die(COrder& order)
{
    order.scene.Later([&scene = order.scene] {
        if (scene.revoke)
            scene.revoke();
        TerminateProcess(GetCurrentProcess(), 9);
    });
}

void Quit(COrder& order)
{
    Require(static_cast<bool>(order.scene.quit));
    order.scene.Later(order.scene.quit);
}

using Handler = void (*)(COrder&);

const std::map<std::string, Handler>& Handlers()
{
    static const std::map<std::string, Handler> handlers = {
        {"event", RaiseEvent},
        {"repeat", Repeat},
        {"hold", SetHold},
        {"pace", [](COrder& order) { order.scene.requestMilliseconds = static_cast<unsigned>(order.Number()); }},
        {"complete", Complete},
        {"shown", SetShown},
        {"set", SetProperty},
        {"initial", SetInitial},
        {"animations", SetAnimations},
        {"voices", [](COrder& order) { order.scene.voices.clear(); }},
        {"voice", AddVoice},
        {"default", [](COrder& order) { order.scene.defaultCharacter = order.Word(); }},
        {"no-default", [](COrder& order) { order.scene.defaultCharacter.reset(); }},
        {"half-made", SetHalfMade},
        {"class-info", SetClassInfo},
        {"own-events", [](COrder& order) { order.scene.ownEvents = order.Switch(); }},
        {"fail", AddFailure},
        {"garbage", AddGarbage},
        {"block", AddBlock},
        {"during", AddDuring},
        {"forget", [](COrder& order) { order.scene.script.Forget(); }},
        {"mark", Mark},
        {"held", CountHandles},
        {"hang", Hang},
        {"disconnect", [](COrder& order) { order.scene.disconnected = true; }},
        {"connect", [](COrder& order) { order.scene.disconnected = false; }},
        {"die", Die},
        {"quit", Quit},
        {"word", ObeyWord},
        {"excel", ObeyExcel}};
    return handlers;
}

}

bool Obey(CScene& scene, const std::string& command)
try {
    COrder order(scene, command);
    const auto handler = Handlers().find(order.Word());
    Require(handler != Handlers().end());
    handler->second(order);
    order.End();
    return true;
} catch (const CNotUnderstood&) {
    return false;
}

}
