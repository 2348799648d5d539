#include "base/text/Utf8.h"
#include "platform/windows/com/AgentEvents.h"
#include "platform/windows/com/CellText.h"
#include "platform/windows/com/EventArguments.h"
#include "platformwindows/com/EngineFixture.h"
#include "platformwindows/com/ValueMaker.h"
#include <atomic>
#include <cstdio>
#include <cstdlib>

// Values from other programs, by the ten thousand. PARLUNE_VARIANTS says how many, PARLUNE_VARIANTS_SEED which ones.
using namespace comtest;
using platform::windowsdesktop::com::CellText;
using platform::windowsdesktop::com::CEventArguments;

namespace {

std::uint32_t FromEnvironment(const char* name, std::uint32_t otherwise)
{
    const char* value = std::getenv(name);
    return value ? static_cast<std::uint32_t>(std::strtoul(value, nullptr, 10)) : otherwise;
}

std::atomic<std::uint32_t> currentRound = 0;

LONG WINAPI TellRound(EXCEPTION_POINTERS*)
{
    std::fprintf(stderr, "It broke off in round %u.\n", currentRound.load());
    return EXCEPTION_CONTINUE_SEARCH;
}

// The number of the failure, or 0. What is no failure of ours reaches the test, and fails it.
template <class Call> std::int32_t Outcome(Call&& call) { return FailureNumber(std::forward<Call>(call)); }

// A type that does not fit, a number that is too large, no object.
bool IsRefusal(std::int32_t outcome) { return outcome == 0 || outcome == 13 || outcome == 6 || outcome == 91; }

}

class Variants : public testing::Test {
protected:
    Variants() : m_former(SetUnhandledExceptionFilter(TellRound)) {}
    ~Variants() override
    {
        SetUnhandledExceptionFilter(m_former);
        maker.Forget();
        EXPECT_EQ(CTestObject::living, 0);
    }
    // Runs `round` again and again, each time with no values left, until one of them has failed.
    template <class Round> void Run(std::uint32_t share, Round round)
    {
        const std::uint32_t rounds = FromEnvironment("PARLUNE_VARIANTS", 50000) / share;
        for (currentRound = 0; currentRound < rounds && !HasFailure(); ++currentRound) {
            SCOPED_TRACE(currentRound.load());
            round();
            maker.Forget();
        }
    }

    platform::windowsdesktop::CComApartment apartment;
    CValueMaker maker{FromEnvironment("PARLUNE_VARIANTS_SEED", 1)};

private:
    LPTOP_LEVEL_EXCEPTION_FILTER m_former;
};

TEST_F(Variants, OfAnyKind_AreReadOrRefused)
{
    Run(1, [&] {
        const VARIANT& value = maker.Make();
        CVariant copy;
        EXPECT_PRED1(IsRefusal, Outcome([&] { copy = CVariant::Copy(value); }));
        EXPECT_PRED1(IsRefusal, Outcome([&] { EXPECT_TRUE(::text::IsUtf8(copy.Text())); }));
        EXPECT_PRED1(IsRefusal, Outcome([&] { copy.Truth(); }));
        EXPECT_PRED1(IsRefusal, Outcome([&] { EXPECT_EQ(copy.Short(), copy.Long()); }));
        EXPECT_PRED1(IsRefusal, Outcome([&] { copy.Long(); }));
        EXPECT_PRED1(IsRefusal, Outcome([&] { EXPECT_TRUE(copy.Object()); }));
        EXPECT_PRED1(IsRefusal, Outcome([&] { EXPECT_TRUE(::text::IsUtf8(CellText(copy))); }));
    });
}

TEST_F(Variants, AsArgumentsOfEvents_MakeADeliveryOrNone)
{
    const auto requests = std::make_shared<platform::windowsdesktop::com::CAgentRequests>();
    Run(40, [&] {
        std::vector<VARIANT> values;
        for (std::uint32_t count = maker.Below(7); count > 0; --count)
            values.push_back(maker.Make());  // Borrowed, as the engine's are.
        DISPPARAMS parameters{values.data(), nullptr, static_cast<UINT>(values.size()), 0};
        const CEventArguments arguments(maker.OneIn(20) ? nullptr : &parameters);
        for (DISPID event = 0; event <= 32; ++event) {
            const std::wstring_view name = platform::windowsdesktop::com::EventName(event);
            EXPECT_PRED1(IsRefusal, Outcome([&] { DeliveryOf(name, arguments, requests); })) << event;
        }
    });
}

TEST_F(Variants, ThatReferToThemselves_AreATypeMismatch)
{
    VARIANT value;
    V_VT(&value) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&value) = &value;

    EXPECT_EQ(FailureNumber([&] { CVariant::Copy(value); }), 13);
}

TEST_F(Variants, DatesOfNoCalendar_AreATypeMismatch)
{
    VARIANT value;
    V_VT(&value) = VT_DATE;
    V_DATE(&value) = 1e300;

    EXPECT_EQ(FailureNumber([&] { CVariant::Copy(value).Text(); }), 13);
}
