#pragma once
#include "platform/Failure.h"
#include "platform/windows/com/AgentControl.h"
#include "platform/windows/com/Apartment.h"
#include "platformwindows/com/TestObject.h"
#include <gtest/gtest.h>

namespace comtest {

inline constexpr CLSID EngineClass = {0xD45FD31B, 0x5C6E, 0x11D1, {0x9E, 0xC1, 0x00, 0xC0, 0x4F, 0xD7, 0x08, 0x1F}};

// The engine, made of objects that do what they are told. At the end nothing of them may be left.
class CEngineFixture : public testing::Test {
protected:
    CEngineFixture() { Connect(); }
    ~CEngineFixture() override
    {
        engine.reset();
        ForgetObjects();
        EXPECT_EQ(CTestObject::living, 0);
    }

    void Connect()
    {
        control->answers[L"Characters"] = Giving(characters->Value());
        control->answers[L"PropertySheet"] = Giving(sheet->Value());
        characters->answers[L"Character"] = Giving(character->Value());
        character->answers[L"Balloon"] = Giving(balloon->Value());
        character->answers[L"Commands"] = Giving(commands->Value());
    }
    TestRef New(const std::string& object) { return TestRef(new CTestObject(object, journal)); }
    // A request that answers with this number.
    TestRef NewRequest(std::int32_t id)
    {
        TestRef request = New("Request");
        request->answers[L"ID"] = Giving(CVariant(id));
        request->answers[L"Status"] = Giving(CVariant(std::int32_t{2}));
        return request;
    }
    std::shared_ptr<platform::ICharacterEngine> Create()
    {
        engine = platform::windowsdesktop::CAgentFactory().Create();
        journal->clear();
        return engine;
    }
    std::shared_ptr<platform::ICharacter> Character()
    {
        auto found = Create()->Characters()->Character("Bot");
        journal->clear();
        return found;
    }
    void ForgetObjects()
    {
        for (TestRef* each : {&characters, &sheet, &character, &balloon, &commands}) {
            (*each)->answers.clear();
            *each = {};
        }
        control->answers.clear();
        control->receiver = {};
        control = {};
    }

    platform::windowsdesktop::CComApartment apartment;
    std::shared_ptr<Journal> journal = std::make_shared<Journal>();
    ControlRef control{new CTestControl(journal)};
    TestRef characters = New("Characters"), sheet = New("Sheet"), character = New("Character"), balloon = New("Balloon"),
            commands = New("Commands");
    CProgramName programName{L"Agent.Control.2", EngineClass};
    bool creatable = true;
    CTestClass engineClass{EngineClass, [this] {
                               return creatable ? CInterface<IDispatch>(control.Raw()).As<IUnknown>()
                                                : CInterface<IUnknown>();
                           }};
    std::shared_ptr<platform::ICharacterEngine> engine;
};

// The number of the failure that a call ends with; 0 when it ends well.
template <class Call> std::int32_t FailureNumber(Call&& call)
{
    try {
        call();
        return 0;
    } catch (const platform::CFailure& failure) {
        return failure.Number();
    }
}

template <class Call> std::string FailureText(Call&& call)
{
    try {
        call();
        return "no failure";
    } catch (const platform::CFailure& failure) {
        return failure.Description();
    }
}

inline std::int32_t Code(std::uint32_t code) { return static_cast<std::int32_t>(code); }

}
