#include "platform/windows/com/AgentCharacter.h"
#include "platform/Failure.h"
#include "platform/windows/Text.h"
#include "platform/windows/com/Failures.h"

namespace platform::windowsdesktop::com {
namespace {

constexpr std::size_t AnimationsLimit = 65536;  // An enumeration without end must not be ours.

class CAgentBalloon final : public IBalloon {
public:
    explicit CAgentBalloon(CDispatch balloon) : m_balloon(std::move(balloon)) {}
    bool Enabled() const override { return m_balloon.Get(L"Enabled").Truth(); }
    bool Visible() const override { return m_balloon.Get(L"Visible").Truth(); }
    std::int32_t Style() const override { return m_balloon.Get(L"Style").Long(); }
    void SetStyle(std::int32_t style) override { m_balloon.Put(L"Style", style); }
    std::string FontName() const override { return m_balloon.Get(L"FontName").Text(); }
    void SetFontName(const std::string& name) override { m_balloon.Put(L"FontName", name); }
    std::int32_t FontSize() const override { return m_balloon.Get(L"FontSize").Long(); }
    void SetFontSize(std::int32_t points) override { m_balloon.Put(L"FontSize", points); }
    bool FontBold() const override { return m_balloon.Get(L"FontBold").Truth(); }
    bool FontItalic() const override { return m_balloon.Get(L"FontItalic").Truth(); }
    std::int32_t CharsPerLine() const override { return m_balloon.Get(L"CharsPerLine").Long(); }
    std::int32_t NumberOfLines() const override { return m_balloon.Get(L"NumberOfLines").Long(); }

private:
    CDispatch m_balloon;
};

class CAgentCommands final : public ICommands {
public:
    explicit CAgentCommands(CDispatch commands) : m_commands(std::move(commands)) {}
    void RemoveAll() override { m_commands.Run(L"RemoveAll"); }
    void SetCaption(const std::string& caption) override { m_commands.Put(L"Caption", caption); }
    void Add(const std::string& name, const std::optional<std::string>& caption, const std::optional<std::string>& voice,
             std::optional<bool> enabled, std::optional<bool> visible) override
    {
        m_commands.Run(L"Add", {name, caption, voice, enabled, visible});
    }

private:
    CDispatch m_commands;
};

CInterface<IEnumVARIANT> Enumeration(const CDispatch& collection)
{
    const CVariant answer = collection.Enumeration();
    if (!answer.IsObject())
        throw failure::TypeMismatch();
    auto enumeration = CInterface<IUnknown>(V_UNKNOWN(&answer.Raw())).As<IEnumVARIANT>();
    if (!enumeration)
        throw failure::TypeMismatch();
    return enumeration;
}

// False at the end.
bool Next(const CInterface<IEnumVARIANT>& enumeration, std::vector<std::string>& texts)
{
    const COutgoingCall call;
    CVariant value;
    ULONG count = 0;
    const HRESULT result = enumeration->Next(1, &value.Raw(), &count);
    Check(result);
    if (result != S_OK)
        return false;
    texts.push_back(value.Text());
    return true;
}

}

std::vector<std::string> CAgentCharacter::AnimationNames() const
{
    const auto enumeration = Enumeration(m_character.Child(L"AnimationNames"));
    std::vector<std::string> names;
    while (names.size() < AnimationsLimit && Next(enumeration, names)) {
    }
    return names;
}

std::shared_ptr<IBalloon> CAgentCharacter::Balloon()
{
    return std::make_shared<CAgentBalloon>(m_character.Child(L"Balloon"));
}

std::shared_ptr<ICommands> CAgentCharacter::Commands()
{
    return std::make_shared<CAgentCommands>(m_character.Child(L"Commands"));
}

std::int32_t CAgentCharacter::NamedNumber(const std::string& member) const
{
    return m_character.Get(ToWide(member).c_str()).Long();
}

void CAgentCharacter::Stop(const RequestRef& request)
{
    if (!request)
        return m_character.Run(L"Stop");
    const auto own = std::dynamic_pointer_cast<CAgentRequest>(request);
    if (!own)
        throw CFailure(engineError::NotARequest, "");
    m_character.Run(L"Stop", {own->Object()});
}

}
