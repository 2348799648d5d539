#include "platform/windows/com/SpeechEngines.h"
#include "platformwindows/com/EngineFixture.h"

using namespace comtest;
using platform::windowsdesktop::CSapiSpeechEngines;

namespace {

constexpr CLSID SpeechClass = {0xEEE78591, 0xFE22, 0x11D0, {0x8B, 0xEF, 0x00, 0x60, 0x08, 0x18, 0x41, 0xDE}};
constexpr IID SpeechInterface = {0xEEE78590, 0xFE22, 0x11D0, {0x8B, 0xEF, 0x00, 0x60, 0x08, 0x18, 0x41, 0xDE}};

class SpeechEngines : public testing::Test {
protected:
    SpeechEngines() { speech->alias = SpeechInterface; }
    ~SpeechEngines() override
    {
        speech->answers.clear();
        speech = {};
        EXPECT_EQ(CTestObject::living, 0);
    }
    platform::windowsdesktop::CComApartment apartment;
    std::shared_ptr<Journal> journal = std::make_shared<Journal>();
    TestRef speech{new CTestObject("Speech", journal)};
    CTestClass speechClass{SpeechClass, [this] { return speech.As<IUnknown>(); }};
};

}

TEST(SpeechNotRegistered, Installed_WithoutTheClass_IsFalse)
{
    const platform::windowsdesktop::CComApartment apartment;
    EXPECT_FALSE(CSapiSpeechEngines().Installed());
}

TEST(SpeechNotRegistered, Open_WithoutTheClass_GivesTheSystemsCode)
{
    const platform::windowsdesktop::CComApartment apartment;
    EXPECT_EQ(FailureNumber([] { CSapiSpeechEngines().Open(); }), Code(0x80040154));
}

TEST_F(SpeechEngines, Installed_WithTheClass_CreatesAndLetsGo)
{
    EXPECT_TRUE(CSapiSpeechEngines().Installed());
    EXPECT_EQ(speech->References(), 1u);
}

TEST_F(SpeechEngines, Installed_WithoutTheInterface_IsFalse)
{
    speech->alias = IID_NULL;
    EXPECT_FALSE(CSapiSpeechEngines().Installed());
    EXPECT_EQ(FailureNumber([] { CSapiSpeechEngines().Open(); }), Code(0x80004002));
}

TEST_F(SpeechEngines, List_EachMember_IsAskedWithTheIndex)
{
    speech->answers[L"CountEngines"] = Giving(std::int32_t{2});
    speech->answers[L"ModeID"] = Giving(std::string("CA141FD0"));
    speech->answers[L"ModeName"] = Giving(std::string("Adult Male #1"));
    speech->answers[L"LanguageID"] = Giving(std::int32_t{0x0409});
    const auto list = CSapiSpeechEngines().Open();
    EXPECT_EQ(list->Count(), 2);
    EXPECT_EQ(list->ModeID(1), "CA141FD0");
    EXPECT_EQ(list->ModeName(2), "Adult Male #1");
    EXPECT_EQ(list->LanguageID(2), 0x0409);
    EXPECT_EQ(*journal, (Journal{"get Speech.CountEngines", "get-or-call Speech.ModeID I4 1",
                                 "get-or-call Speech.ModeName I4 2", "get-or-call Speech.LanguageID I4 2"}));
}

TEST_F(SpeechEngines, List_OfAnObjectThatDeniesItsOtherName_IsReadAllTheSame)
{
    speech->callableByName = false;
    speech->answers[L"CountEngines"] = Giving(std::int32_t{2});
    EXPECT_EQ(CSapiSpeechEngines().Open()->Count(), 2);
}

TEST_F(SpeechEngines, List_OfAServiceThatFails_GivesItsCode)
{
    speech->answers[L"CountEngines"] = Raising(Code(0x80042402), L"no synthesis");
    const auto list = CSapiSpeechEngines().Open();
    EXPECT_EQ(FailureNumber([&] { list->Count(); }), Code(0x80042402));
    EXPECT_EQ(FailureText([&] { list->Count(); }), "no synthesis");
}

TEST_F(SpeechEngines, List_WithoutAMember_Fails438)
{
    speech->missing.insert(L"LanguageID");
    const auto list = CSapiSpeechEngines().Open();
    EXPECT_EQ(FailureNumber([&] { list->LanguageID(1); }), 438);
}

TEST_F(SpeechEngines, LanguageID_WithoutValue_IsUnknown) { EXPECT_EQ(CSapiSpeechEngines().Open()->LanguageID(1), 0); }
