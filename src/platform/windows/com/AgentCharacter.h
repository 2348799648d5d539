#pragma once
#include "platform/CharacterEngine.h"
#include "platform/windows/com/AgentRequests.h"

namespace platform::windowsdesktop::com {

// A loaded character of the engine.
class CAgentCharacter final : public ICharacter {
public:
    CAgentCharacter(std::string id, CInterface<IDispatch> character, RequestsRef requests)
        : m_id(std::move(id)), m_character(std::move(character)), m_requests(std::move(requests))
    {
    }

    std::string Name() const override { return m_character.Get(L"Name").Text(); }
    void SetName(const std::string& name) override { m_character.Put(L"Name", name); }
    std::int16_t Left() const override { return m_character.Get(L"Left").Short(); }
    void SetLeft(std::int16_t left) override { m_character.Put(L"Left", left); }
    std::int16_t Top() const override { return m_character.Get(L"Top").Short(); }
    void SetTop(std::int16_t top) override { m_character.Put(L"Top", top); }
    std::int16_t Width() const override { return m_character.Get(L"Width").Short(); }
    void SetWidth(std::int16_t width) override { m_character.Put(L"Width", width); }
    std::int16_t Height() const override { return m_character.Get(L"Height").Short(); }
    void SetHeight(std::int16_t height) override { m_character.Put(L"Height", height); }
    std::int16_t OriginalWidth() const override { return m_character.Get(L"OriginalWidth").Short(); }
    std::int16_t OriginalHeight() const override { return m_character.Get(L"OriginalHeight").Short(); }
    std::int32_t Pitch() const override { return m_character.Get(L"Pitch").Long(); }
    std::int32_t Speed() const override { return m_character.Get(L"Speed").Long(); }
    std::string TTSModeID() const override { return m_character.Get(L"TTSModeID").Text(); }
    void SetTTSModeID(const std::string& modeID) override { m_character.Put(L"TTSModeID", modeID); }
    bool AutoPopupMenu() const override { return m_character.Get(L"AutoPopupMenu").Truth(); }
    void SetAutoPopupMenu(bool on) override { m_character.Put(L"AutoPopupMenu", on); }
    bool IdleOn() const override { return m_character.Get(L"IdleOn").Truth(); }
    void SetIdleOn(bool on) override { m_character.Put(L"IdleOn", on); }
    bool SoundEffectsOn() const override { return m_character.Get(L"SoundEffectsOn").Truth(); }
    void SetSoundEffectsOn(bool on) override { m_character.Put(L"SoundEffectsOn", on); }
    bool Visible() const override { return m_character.Get(L"Visible").Truth(); }
    std::int32_t VisibilityCause() const override { return m_character.Get(L"VisibilityCause").Long(); }
    std::int32_t MoveCause() const override { return m_character.Get(L"MoveCause").Long(); }
    bool HasOtherClients() const override { return m_character.Get(L"HasOtherClients").Truth(); }
    std::vector<std::string> AnimationNames() const override;
    std::shared_ptr<IBalloon> Balloon() override;
    std::shared_ptr<ICommands> Commands() override;
    std::int32_t NamedNumber(const std::string& member) const override;

    RequestRef Show(std::optional<bool> fast) override { return Request(L"Show", {fast}); }
    RequestRef Hide(std::optional<bool> fast) override { return Request(L"Hide", {fast}); }
    RequestRef Play(const std::string& animation) override { return Request(L"Play", {animation}); }
    RequestRef Speak(const std::optional<std::string>& text, const std::optional<std::string>& soundFile) override
    {
        return Request(L"Speak", {text, soundFile});
    }
    RequestRef MoveTo(std::int16_t x, std::int16_t y, std::optional<std::int32_t> milliseconds) override
    {
        return Request(L"MoveTo", {x, y, milliseconds});
    }
    void Stop(const RequestRef& request) override;
    void StopAll(const std::optional<std::string>& types) override { m_character.Run(L"StopAll", {types}); }

private:
    RequestRef Request(const wchar_t* method, Arguments arguments)
    {
        return m_requests->Made(m_id, m_character.Call(method, arguments));
    }

    std::string m_id;
    CDispatch m_character;
    RequestsRef m_requests;
};

}
