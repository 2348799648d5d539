#include "engine/session/CharacterObject.h"
#include "base/text/Case.h"
#include "engine/base/Constants.h"
#include "engine/session/StopTypes.h"
#include "platform/Failure.h"
#include <algorithm>

namespace engine {

namespace engineError = platform::engineError;
using platform::CFailure;
using platform::RequestRef;

namespace {

std::int16_t Short(std::int32_t value)
{
    return static_cast<std::int16_t>(std::clamp<std::int32_t>(value, INT16_MIN, INT16_MAX));
}

std::int32_t Positive(std::int32_t value)
{
    if (value < 1)
        throw CFailure(engineError::InvalidArgument, "A size must be positive.");
    return value;
}

class CCharacterObject final : public platform::ICharacter {
public:
    explicit CCharacterObject(std::weak_ptr<Seat> seat) : m_seat(std::move(seat)) {}

    std::string Name() const override { return Actor()->Name(); }
    void SetName(const std::string& name) override { Actor()->SetName(name); }

    std::int16_t Left() const override { return Short(Place().left); }
    std::int16_t Top() const override { return Short(Place().top); }
    std::int16_t Width() const override { return Short(Place().width); }
    std::int16_t Height() const override { return Short(Place().height); }
    void SetLeft(std::int16_t left) override
    {
        Actor()->Placement().MoveTo({left, Place().top}, engine::MoveCause::Program);
    }
    void SetTop(std::int16_t top) override { Actor()->Placement().MoveTo({Place().left, top}, engine::MoveCause::Program); }
    void SetWidth(std::int16_t width) override { Actor()->Placement().Resize({Positive(width), Place().height}); }
    void SetHeight(std::int16_t height) override { Actor()->Placement().Resize({Place().width, Positive(height)}); }
    std::int16_t OriginalWidth() const override { return Short(Actor()->Data().frameSize.width); }
    std::int16_t OriginalHeight() const override { return Short(Actor()->Data().frameSize.height); }

    std::int32_t Pitch() const override;
    std::int32_t Speed() const override;
    std::string TTSModeID() const override { return Actor()->ModeId(); }
    void SetTTSModeID(const std::string& modeID) override { Actor()->SetModeId(modeID); }

    bool AutoPopupMenu() const override { return Actor()->autoPopupMenu; }
    void SetAutoPopupMenu(bool on) override { Actor()->autoPopupMenu = on; }
    bool IdleOn() const override { return Actor()->Idler().On(); }
    void SetIdleOn(bool on) override { Actor()->Idler().SetOn(on); }
    bool SoundEffectsOn() const override { return Actor()->Pose().SoundsOn(); }
    void SetSoundEffectsOn(bool on) override { Actor()->Pose().SetSoundsOn(on); }

    bool Visible() const override { return Actor()->Visible(); }
    std::int32_t VisibilityCause() const override { return static_cast<std::int32_t>(Actor()->LastVisibilityCause()); }
    std::int32_t MoveCause() const override { return static_cast<std::int32_t>(Actor()->Placement().Cause()); }
    bool HasOtherClients() const override { return Actor()->OtherClientsHaveIt(); }
    std::vector<std::string> AnimationNames() const override;

    std::shared_ptr<platform::IBalloon> Balloon() override { return MakeBalloonObject(LivingSeat()); }
    std::shared_ptr<platform::ICommands> Commands() override { return MakeCommandsObject(LivingSeat()); }
    std::int32_t NamedNumber(const std::string& member) const override;

    RequestRef Show(std::optional<bool> fast) override { return Add(WorkKind::Show, fast.value_or(false)); }
    RequestRef Hide(std::optional<bool> fast) override { return Add(WorkKind::Hide, fast.value_or(false)); }
    RequestRef Play(const std::string& animation) override;
    RequestRef Speak(const std::optional<std::string>& text, const std::optional<std::string>& soundFile) override;
    RequestRef MoveTo(std::int16_t x, std::int16_t y, std::optional<std::int32_t> milliseconds) override;
    void Stop(const RequestRef& request) override { Actor()->Stop(request); }
    void StopAll(const std::optional<std::string>& types) override { Actor()->StopKinds(StoppedKinds(types)); }

private:
    std::shared_ptr<CActor> Actor() const { return Living(m_seat); }
    std::shared_ptr<Seat> LivingSeat() const
    {
        Actor();
        return m_seat.lock();
    }
    const Rect& Place() const { return Actor()->Placement().Place(); }
    RequestRef Add(WorkKind kind, bool fast)
    {
        WorkItem item;
        item.kind = kind;
        item.fast = fast;
        return Actor()->Add(std::move(item));
    }

    std::weak_ptr<Seat> m_seat;
};

std::int32_t CCharacterObject::Pitch() const
{
    const auto actor = Actor();
    if (!actor->HasVoice())
        return 0;
    const auto& hints = actor->Data().voice;
    return hints && hints->pitch ? std::int32_t{*hints->pitch} : -1;
}

std::int32_t CCharacterObject::Speed() const
{
    const auto actor = Actor();
    const auto& hints = actor->Data().voice;
    if (!actor->HasVoice() || !hints || !hints->wordsPerMinute)
        return actor->ReadingPace();
    return static_cast<std::int32_t>(std::min<std::uint32_t>(*hints->wordsPerMinute, INT16_MAX));
}

std::vector<std::string> CCharacterObject::AnimationNames() const
{
    std::vector<std::string> names;
    for (const Animation& animation : Actor()->Data().animations)
        names.push_back(animation.name);
    return names;
}

std::int32_t CCharacterObject::NamedNumber(const std::string& member) const
{
    using Getter = std::int32_t (*)(const CCharacterObject&);
    static constexpr std::pair<const char*, Getter> Members[] = {
        {"Left", [](const CCharacterObject& it) { return std::int32_t{it.Left()}; }},
        {"Top", [](const CCharacterObject& it) { return std::int32_t{it.Top()}; }},
        {"Width", [](const CCharacterObject& it) { return std::int32_t{it.Width()}; }},
        {"Height", [](const CCharacterObject& it) { return std::int32_t{it.Height()}; }},
        {"OriginalWidth", [](const CCharacterObject& it) { return std::int32_t{it.OriginalWidth()}; }},
        {"OriginalHeight", [](const CCharacterObject& it) { return std::int32_t{it.OriginalHeight()}; }},
        {"Pitch", [](const CCharacterObject& it) { return it.Pitch(); }},
        {"Speed", [](const CCharacterObject& it) { return it.Speed(); }},
        {"MoveCause", [](const CCharacterObject& it) { return it.MoveCause(); }},
        {"VisibilityCause", [](const CCharacterObject& it) { return it.VisibilityCause(); }},
    };
    for (const auto& [name, getter] : Members)
        if (text::EqualIgnoringCase(name, member))
            return getter(*this);
    throw platform::failure::NoSuchMember();
}

RequestRef CCharacterObject::Play(const std::string& animation)
{
    const auto actor = Actor();
    if (actor->Pose().Find(animation) == nullptr)
        throw CFailure(engineError::NoSuchAnimation, "The character has no animation of this name.");
    WorkItem item;
    item.kind = WorkKind::Play;
    item.text = animation;
    return actor->Add(std::move(item));
}

RequestRef CCharacterObject::Speak(const std::optional<std::string>& text, const std::optional<std::string>& soundFile)
{
    if (!text && !soundFile)
        throw CFailure(engineError::InvalidArgument, "A text or a sound file must be given.");
    WorkItem item;
    item.kind = WorkKind::Speak;
    item.text = text.value_or("");
    if (soundFile && !soundFile->empty())
        item.soundFile = std::make_unique<std::string>(*soundFile);
    return Actor()->Add(std::move(item));
}

RequestRef CCharacterObject::MoveTo(std::int16_t x, std::int16_t y, std::optional<std::int32_t> milliseconds)
{
    WorkItem item;
    item.kind = WorkKind::MoveTo;
    item.x = x;
    item.y = y;
    item.milliseconds = std::max(0, milliseconds.value_or(constants::DefaultMoveTime));
    return Actor()->Add(std::move(item));
}

}

std::shared_ptr<CActor> Living(const std::weak_ptr<Seat>& seat)
{
    const auto living = seat.lock();
    if (!living)
        throw CFailure(engineError::BadCharacterID, "The character is not loaded.");
    return living->actor;
}

std::shared_ptr<platform::ICharacter> MakeCharacterObject(const std::shared_ptr<Seat>& seat)
{
    return std::make_shared<CCharacterObject>(seat);
}

}
