#include "platform/windows/com/SpeechEngines.h"
#include "platform/windows/com/Dispatch.h"
#include "platform/windows/com/Failures.h"

namespace platform::windowsdesktop {
namespace {

using com::CDispatch;
using com::CInterface;

constexpr CLSID SpeechClass = {0xEEE78591, 0xFE22, 0x11D0, {0x8B, 0xEF, 0x00, 0x60, 0x08, 0x18, 0x41, 0xDE}};
// A dual interface: its first functions are those of IDispatch.
constexpr IID SpeechInterface = {0xEEE78590, 0xFE22, 0x11D0, {0x8B, 0xEF, 0x00, 0x60, 0x08, 0x18, 0x41, 0xDE}};

class CSapiList final : public ISpeechEngineList {
public:
    explicit CSapiList(CInterface<IDispatch> speech) : m_speech(std::move(speech)) {}
    std::int32_t Count() override { return m_speech.Get(L"CountEngines").Long(); }
    std::string ModeID(std::int32_t index) override { return m_speech.GetIndexed(L"ModeID", {index}).Text(); }
    std::string ModeName(std::int32_t index) override { return m_speech.GetIndexed(L"ModeName", {index}).Text(); }
    std::int32_t LanguageID(std::int32_t index) override { return m_speech.GetIndexed(L"LanguageID", {index}).Long(); }

private:
    CDispatch m_speech;
};

// Throws CFailure when there is no such class, or when it is something else.
CInterface<IDispatch> NewSpeechObject()
{
    const com::COutgoingCall call;
    CInterface<IUnknown> object;
    if (const HRESULT result = CoCreateInstance(SpeechClass, nullptr, CLSCTX_ALL, IID_IUnknown, object.ReceiveAny());
        FAILED(result)) {
        object.Forget();
        throw com::FailureOf(result);
    }
    CInterface<IDispatch> speech = object.As<IDispatch>(SpeechInterface);
    if (!speech)
        throw com::FailureOf(E_NOINTERFACE);
    return speech;
}

}

bool CSapiSpeechEngines::Installed()
{
    try {
        return static_cast<bool>(NewSpeechObject());
    } catch (const CFailure&) {
        return false;
    }
}

std::unique_ptr<ISpeechEngineList> CSapiSpeechEngines::Open() { return std::make_unique<CSapiList>(NewSpeechObject()); }

}
