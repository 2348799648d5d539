#include "windows/standins/Character.h"
#include "windows/standins/Engine.h"

// Objects with little behind them: lists of names, what the user said, the speech service.
namespace standins {
namespace {

class CNameEnumeration final : public IEnumVARIANT {
public:
    CNameEnumeration(std::vector<std::string> names, std::size_t next) : m_names(std::move(names)), m_next(next) {}
    STDMETHODIMP QueryInterface(REFIID id, void** object) override
    {
        const bool known = id == IID_IUnknown || id == IID_IEnumVARIANT;
        *object = known ? this : nullptr;
        if (known)
            AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_references; }
    STDMETHODIMP_(ULONG) Release() override
    {
        const ULONG left = --m_references;
        if (left == 0)
            delete this;
        return left;
    }
    STDMETHODIMP Next(ULONG count, VARIANT* values, ULONG* fetched) override
    {
        ULONG given = 0;
        while (given < count && m_next < m_names.size())
            values[given++] = CValue(m_names[m_next++]).Detach();
        if (fetched)
            *fetched = given;
        return given == count ? S_OK : S_FALSE;
    }
    STDMETHODIMP Skip(ULONG count) override
    {
        const std::size_t left = m_names.size() - m_next;
        m_next += std::min<std::size_t>(count, left);
        return count <= left ? S_OK : S_FALSE;
    }
    STDMETHODIMP Reset() override
    {
        m_next = 0;
        return S_OK;
    }
    STDMETHODIMP Clone(IEnumVARIANT** copy) override
    {
        *copy = new CNameEnumeration(m_names, m_next);
        return S_OK;
    }

private:
    virtual ~CNameEnumeration() = default;
    std::vector<std::string> m_names;
    std::size_t m_next;
    std::atomic<ULONG> m_references{1};
};

class CNames final : public CAutomationObject {
public:
    CNames(std::shared_ptr<CScene> scene, const std::string& path, std::vector<std::string> names)
        : CAutomationObject(std::move(scene), path), m_names(std::move(names))
    {
        Indexed("_NewEnum", DISPID_NEWENUM, "", 'u', [this](const CCall&) {
            CValue value;
            value.Raw().vt = VT_UNKNOWN;
            value.Raw().punkVal = new CNameEnumeration(m_names, 0);
            return value;
        });
    }

private:
    std::vector<std::string> m_names;
};

class CUserInput final : public CAutomationObject {
public:
    CUserInput(std::shared_ptr<CScene> scene, const CHeard& heard) : CAutomationObject(std::move(scene), "UserInput")
    {
        constexpr DISPID first = 0x60020000;
        const std::vector<std::pair<const char*, CValue>> members = {{"Count", CValue(heard.count)},
                                                                     {"Name", CValue(heard.name)},
                                                                     {"CharacterID", CValue(heard.characterID)},
                                                                     {"Confidence", CValue(heard.confidence)},
                                                                     {"Voice", CValue(heard.voice)},
                                                                     {"Alt1Name", CValue(heard.firstName)},
                                                                     {"Alt1Confidence", CValue(heard.firstConfidence)},
                                                                     {"Alt1Voice", CValue(heard.firstVoice)},
                                                                     {"Alt2Name", CValue(heard.secondName)},
                                                                     {"Alt2Confidence", CValue(heard.secondConfidence)},
                                                                     {"Alt2Voice", CValue(heard.secondVoice)}};
        for (std::size_t index = 0; index < members.size(); ++index)
            Constant(members[index].first, first + static_cast<DISPID>(index), members[index].second);
    }
};

class CSpeech final : public CAutomationObject {
public:
    explicit CSpeech(const std::shared_ptr<CScene>& scene) : CAutomationObject(scene, "Speech")
    {
        ReadOnly("CountEngines", 18, 'l', [this] { return CValue(static_cast<std::int32_t>(Scene().voices.size())); });
        Indexed("ModeName", 19, "l", 's', [this](const CCall& call) { return CValue(Voice(call).modeName); });
        Indexed("MfgName", 20, "l", 's', [this](const CCall& call) { return CValue("Maker of " + Voice(call).modeName); });
        Indexed("ModeID", 22, "l", 's', [this](const CCall& call) { return CValue(Voice(call).modeID); });
        Indexed("Speaker", 23, "l", 's', [this](const CCall& call) { return CValue(Voice(call).modeName); });
        Indexed("Gender", 25, "l", 'l', [this](const CCall& call) { return Voice(call), CValue(std::int32_t{2}); });
        Indexed("Age", 26, "l", 'l', [this](const CCall& call) { return Voice(call), CValue(std::int32_t{30}); });
        Indexed("LanguageID", 30, "l", 'l', [this](const CCall& call) { return CValue(Voice(call).language); });
    }

protected:
    void* Interface(REFIID id) override { return id == SpeechInterface ? static_cast<IDispatch*>(this) : nullptr; }

private:
    const CVoice& Voice(const CCall& call)  // Counted from 1.
    {
        const auto& voices = Scene().voices;
        const std::int32_t index = call.Number(0);
        if (index < 1 || static_cast<std::size_t>(index) > voices.size())
            throw CComFailure{E_INVALIDARG};
        return voices[static_cast<std::size_t>(index) - 1];
    }
};

}

CRef<IDispatch> NewNames(const std::shared_ptr<CScene>& scene, const std::string& path, std::vector<std::string> names)
{
    return CRef<IDispatch>::Adopt(new CNames(scene, path, std::move(names)));
}

CRef<IDispatch> NewUserInput(const std::shared_ptr<CScene>& scene, const CHeard& heard)
{
    return CRef<IDispatch>::Adopt(new CUserInput(scene, heard));
}

CRef<IDispatch> NewSpeech(const std::shared_ptr<CScene>& scene) { return CRef<IDispatch>::Adopt(new CSpeech(scene)); }

}
