#pragma once
#include "character/CharacterState.h"
#include "common/ProgramState.h"
#include "engine/Engine.h"
#include "engine/TestCharacter.h"
#include "engine/hosts/headless/HeadlessHost.h"
#include "engine/hosts/headless/MemorySource.h"
#include "platform/headless/Desktop.h"
#include "startup/Wiring.h"
#include "ui/frmParlune.h"
#include "ui/frmSplash.h"
#include <gtest/gtest.h>

// The whole program on a desktop in memory, with our own character engine in virtual time: what a user does and what they
// see and hear.
class CStory : public testing::Test {
protected:
    static constexpr char OptionKey[] = "Software\\Tarrowind\\Parlune";

    CStory() : desktop(m_engines)
    {
        source.standard = std::make_shared<const engine::Character>(testing_character::Make());
        host.synthesizer.voices = {{"{11111111-2222-3333-4444-555555555555}", "Ann", "ann", 0x0409, 1, 30}};
        desktop.registry.Put(platform::Root::ClassesRoot, "Agent.Control.2\\CLSID", "",
                             "{D45FD31B-5C6E-11D1-9EC1-00C04FD7081F}");
        desktop.files.PutFile("C:\\WINDOWS\\MSAgent\\Chars\\Tester.acs");
        for (const char* size : {"CharWidth", "CharHeight"})
            PutOption(size, "0");
        desktop.events.onTimePasses = [this](std::int32_t milliseconds) { host.Advance(milliseconds); };
        desktop.events.onYield = [this] { host.Advance(0); };
    }
    ~CStory() override { common::RenewProgramState(); }

    void PutOption(const std::string& name, const std::string& value)
    {
        desktop.registry.Put(platform::Root::CurrentUser, OptionKey, name, value);
    }
    std::optional<std::string> Option(const std::string& name) const
    {
        return desktop.registry.Text(platform::Root::CurrentUser, OptionKey, name);
    }
    void Start()
    {
        startup::WireProgram();
        SplashWindow().Load();
    }
    // Starts and lets the greeting end; what was spoken so far is forgotten.
    void StartAndSettle()
    {
        Start();
        Pass(10'000);
        m_ordersBefore = host.synthesizer.Orders().size();
    }
    void Pass(std::int64_t milliseconds)
    {
        desktop.clock.Advance(milliseconds);
        host.Advance(milliseconds);
    }
    void DoubleClickCharacter()
    {
        host.Window().DoubleClick(1, 0, Centre());
        Pass(1);  // The event comes from the event loop.
    }
    // What the balloon shows; "" when there is none.
    std::string BalloonText() { return host.balloons.empty() || !host.Balloon().shown ? "" : host.Balloon().Text(); }
    engine::Point Centre()
    {
        const engine::Rect place = host.Window().place;
        return {place.left + place.width / 2, place.top + place.height / 2};
    }
    // Texts that the voice was asked to speak since the program settled, stopped ones included.
    std::vector<std::string> Spoken() const
    {
        std::vector<std::string> texts;
        const auto& orders = host.synthesizer.Orders();
        for (std::size_t order = m_ordersBefore; order < orders.size(); ++order)
            for (const engine::SpeechSegment& segment : orders[order].segments)
                texts.push_back(segment.text);
        return texts;
    }
    bool NobodySpeaks() const { return !StillRunning(character::State().speechRequest); }

    engine::CHeadlessHost host;
    engine::CMemorySource source;

private:
    static bool StillRunning(const platform::RequestRef& request)
    {
        return request && (request->Status() == platform::RequestStatus::Pending ||
                           request->Status() == platform::RequestStatus::InProgress);
    }

    class CEngines final : public platform::ICharacterEngineFactory {
    public:
        explicit CEngines(CStory& story) : m_story(story) {}
        std::shared_ptr<platform::ICharacterEngine> Create() override
        {
            return engine::CreateEngine(m_story.host, m_story.source);
        }
        void RequireForMainWindow() override {}

    private:
        CStory& m_story;
    };

    CEngines m_engines{*this};
    std::size_t m_ordersBefore = 0;

protected:
    CHeadlessDesktop desktop;
};
