#pragma once
#include "TestCharacter.h"
#include "engine/hosts/headless/EventJournal.h"
#include "engine/hosts/headless/HeadlessHost.h"
#include "engine/hosts/headless/MemorySource.h"
#include "platform/Failure.h"
#include <gtest/gtest.h>

namespace code = platform::engineError;
using Lines = std::vector<std::string>;
using platform::RequestRef;
using platform::RequestStatus;

// The engine's number in a failure that an action throws; 0 when it throws nothing.
template <class Action> std::int32_t FailureOf(Action&& action)
{
    try {
        action();
    } catch (const platform::CFailure& failure) {
        return failure.Number();
    }
    return 0;
}

// A connected control with the test character under the id "Bot", hidden, on the headless host.
class EngineTest : public ::testing::Test {
protected:
    EngineTest() : journal(host.time) {}

    void Load(engine::Character character = testing_character::Make(), const engine::EngineSettings& settings = {})
    {
        source.files["test.acs"] = std::make_shared<engine::Character>(std::move(character));
        Connect(settings);
        control->Characters()->Load("Bot", "test.acs");
        bot = control->Characters()->Character("Bot");
    }
    void Connect(const engine::EngineSettings& settings = {})
    {
        control = engine::CreateEngine(host, source, settings);
        control->SetConnected(true);
        control->SetEvents(&journal);
    }
    // Loaded, shown and at rest, nothing noted yet.
    void LoadShown(engine::Character character = testing_character::Make(), const engine::EngineSettings& settings = {})
    {
        Load(std::move(character), settings);
        bot->SetIdleOn(false);
        bot->SetLeft(400);
        bot->SetTop(400);
        bot->Show(std::nullopt);
        host.RunUntilIdle();
        journal.Clear();
    }
    RequestRef Say(const std::string& text) { return bot->Speak(text, std::nullopt); }
    std::uint32_t Pixel(int x = 0, int y = 0) { return host.Window().picture.pixels[static_cast<std::size_t>(y * 4 + x)]; }
    std::vector<RequestRef> kept;
    RequestRef Keep(RequestRef request)
    {
        kept.push_back(request);
        return request;
    }
    Lines Requests() const { return journal.Of("Request"); }

    engine::CHeadlessHost host;
    engine::CMemorySource source;
    engine::CEventJournal journal;
    std::shared_ptr<platform::ICharacterEngine> control;
    std::shared_ptr<platform::ICharacter> bot;
};

inline std::int32_t StatusOf(const RequestRef& request) { return static_cast<std::int32_t>(request->Status()); }
