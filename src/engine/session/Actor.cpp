#include "engine/session/Actor.h"
#include "engine/base/Constants.h"
#include "engine/session/SoundFile.h"
#include "engine/speech/VoiceChoice.h"
#include "platform/Failure.h"
#include <cstdlib>
#include <exception>

namespace engine {

using platform::ICharacterEngineEvents;
using platform::RequestStatus;
namespace engineError = platform::engineError;

CActor::CActor(Core& core, std::string id, CharacterRef character, bool isDefault)
    : m_core(core), m_id(std::move(id)), m_character(std::move(character)), m_guid(GuidOf(*m_character)),
      m_isDefault(isDefault), m_name(NamesFor(*m_character, core.settings.languageId).name), m_mouse(*this),
      m_stage(core.host, *m_character, m_mouse), m_pose(core.host, *m_character, m_stage),
      m_idler(core.host.Timers(), m_pose),
      m_balloon(m_character->balloon
                    ? std::make_unique<CWordBalloon>(core.host, *m_character->balloon, core.user->Now().balloonsOn,
                                                     [this](bool shown) {
                                                         m_core.Tell([id = m_id, shown](auto& events) {
                                                             shown ? events.BalloonShow(id) : events.BalloonHide(id);
                                                         });
                                                     })
                    : nullptr),
      m_placement(core, m_id, m_stage, m_balloon.get()), m_speech(core.host, *this), m_queue(*core.postbox, *this, *this)
{
    m_pose.AllowSounds(core.user->Now().soundEffectsOn);
    m_idler.SetEvents([this] { m_core.Tell([id = m_id](auto& events) { events.IdleStart(id); }); },
                      [this] { m_core.Tell([id = m_id](auto& events) { events.IdleComplete(id); }); });
    m_core.host.LoadedCharacters().Enter(m_guid);  // Last: who does not come to be never leaves.
}

CActor::~CActor()
{
    try {
        m_core.host.LoadedCharacters().Leave(m_guid);
    } catch (const std::exception&) {
        // Without memory for it the other programs see the character until this one ends.
    }
    m_core.host.SpeechInput().Withdraw(this);
    m_queue.Abandon();
    m_speech.Stop();
}

platform::RequestRef CActor::Add(WorkItem item)
{
    platform::RequestRef request = m_queue.Add(std::move(item), m_core.NewRequestID());
    PrefetchNext();
    return request;
}

void CActor::Stop(const platform::RequestRef& request)
{
    if (request) {
        m_queue.Stop(request);
        return;
    }
    const WorkItem* running = m_queue.Running();
    const bool spared = running != nullptr && (running->kind == WorkKind::Show || running->kind == WorkKind::Hide);
    const std::int32_t sparedId = spared ? running->id : 0;
    m_queue.Stop([sparedId](const WorkItem& item) { return item.id != sparedId; });
}

void CActor::StopKinds(const std::set<WorkKind>& kinds)
{
    m_queue.Stop([&](const WorkItem& item) { return kinds.count(item.kind) != 0; });
}

void CActor::WorkAreaChanged()
{
    if (!m_mouse.Dragging())
        m_placement.BackOnScreen();
    if (m_balloon)
        m_balloon->WorkAreaChanged();
}

void CActor::UserSettingsChanged()
{
    const UserSettings& now = m_core.user->Now();
    m_pose.AllowSounds(now.soundEffectsOn);
    if (m_balloon)
        m_balloon->SetEnabled(now.balloonsOn);
}

void CActor::Replace(CActor& other)
{
    other.m_queue.Stop([](const WorkItem&) { return true; });
    autoPopupMenu = other.autoPopupMenu;
    m_modeId = other.m_modeId;
    m_idler.SetOn(other.m_idler.On());
    m_pose.SetSoundsOn(other.m_pose.SoundsOn());
    m_placement.TakeOver(other.m_placement);
    if (m_balloon && other.m_balloon) {
        m_balloon->SetStyle(other.m_balloon->Style());
        m_balloon->SetFont(other.m_balloon->TextFont());
    }
    m_visibilityCause = other.m_visibilityCause;
    if (other.Visible()) {
        if (const Animation* neutral = m_pose.Pick("SPEAKING"))
            m_pose.Assume(*neutral, nullptr);
        m_stage.Show();
        m_idler.Begin();
    }
    SetCommands(other.m_commands);
}

void CActor::Started(std::weak_ptr<CRequest> request)
{
    m_core.Tell([request = std::move(request)](ICharacterEngineEvents& events) {
        if (const auto held = request.lock())
            events.RequestStart(held);
    });
}

void CActor::Completed(std::weak_ptr<CRequest> request)
{
    m_core.Tell([request = std::move(request)](ICharacterEngineEvents& events) {
        if (const auto held = request.lock())
            events.RequestComplete(held);
    });
}

void CActor::Perform(WorkItem& item)
{
    ++m_turn;
    m_idler.End();
    const bool needsSight = item.kind != WorkKind::Show && item.kind != WorkKind::Hide;
    if (needsSight && !m_stage.Visible()) {
        PerformHidden(item);
        return;
    }
    switch (item.kind) {
    case WorkKind::Show:
        PerformShow(item);
        break;
    case WorkKind::Hide:
        PerformHide(item);
        break;
    case WorkKind::Play:
        PerformPlay(item);
        break;
    case WorkKind::Speak:
        PerformSpeak(item);
        break;
    case WorkKind::MoveTo:
        PerformMove(item);
        break;
    }
    PrefetchNext();
}

void CActor::Finish(RequestStatus status, std::int32_t number) { m_queue.Finish(status, number); }

std::function<void()> CActor::Then(std::function<void()> step)
{
    return [this, turn = m_turn, step = std::move(step)] {
        if (turn == m_turn)
            step();
    };
}

void CActor::RanOut()
{
    if (m_stage.Visible())
        m_idler.Begin();
}

// The frame moves all the same; only the animation that was asked for cannot be seen.
void CActor::PerformHidden(const WorkItem& item)
{
    if (item.kind == WorkKind::MoveTo) {
        m_placement.MoveTo({item.x, item.y}, MoveCause::Program);
        if (item.milliseconds == 0) {
            Finish();
            return;
        }
    }
    Finish(RequestStatus::Failed, engineError::CharacterHidden);
}

// The frame shows before anything else happens: whoever stops the request at once still gets a visible character.
void CActor::PerformShow(const WorkItem& item)
{
    if (m_stage.Visible()) {
        m_stage.Raise();
        Finish();
        return;
    }
    m_visibilityCause = VisibilityCause::ProgramShowed;
    m_core.Tell([id = m_id](auto& events) { events.Show(id, static_cast<std::int16_t>(VisibilityCause::ProgramShowed)); });
    const Animation* showing = item.fast ? nullptr : m_pose.Pick("SHOWING");
    if (showing != nullptr)
        m_pose.Play(*showing, Then([this] { Finish(); }));
    else
        Finish();
    m_stage.Show();
    OfferCommands();
}

void CActor::PerformHide(const WorkItem& item)
{
    const Animation* hiding = item.fast || !m_stage.Visible() ? nullptr : m_pose.Pick("HIDING");
    if (hiding == nullptr) {
        HideNow();
        return;
    }
    m_pose.Leave(hiding->name, Then([this, hiding] { m_pose.Play(*hiding, Then([this] { HideNow(); })); }));
}

void CActor::HideNow()
{
    if (m_stage.Visible()) {
        m_mouse.Forget();
        if (m_balloon)
            m_balloon->Hide();
        m_pose.Clear();
        m_stage.Hide();
        OfferCommands();
        m_visibilityCause = VisibilityCause::ProgramHid;
        m_core.Tell([id = m_id](auto& events) { events.Hide(id, static_cast<std::int16_t>(VisibilityCause::ProgramHid)); });
    }
    Finish();
}

void CActor::PerformPlay(const WorkItem& item)
{
    const Animation* animation = m_pose.Find(item.text);
    if (animation == nullptr) {
        Finish(RequestStatus::Failed, engineError::NoSuchAnimation);
        return;
    }
    m_pose.Leave(animation->name, Then([this, animation] { m_pose.Play(*animation, Then([this] { Finish(); })); }));
}

void CActor::PerformMove(const WorkItem& item)
{
    if (m_mouse.Dragging()) {
        Finish(RequestStatus::Failed, engineError::MoveWhileDragging);
        return;
    }
    const std::int32_t right = item.x - m_placement.Place().left;
    const std::int32_t down = item.y - m_placement.Place().top;
    if (item.milliseconds == 0 || (right == 0 && down == 0)) {
        m_placement.MoveTo({item.x, item.y}, MoveCause::Program);
        Finish();
        return;
    }
    // The character's own left is the viewer's right.
    const char* sideways = right > 0 ? "MOVINGLEFT" : "MOVINGRIGHT";
    const char* upright = down > 0 ? "MOVINGDOWN" : "MOVINGUP";
    const Animation* moving = m_pose.Pick(std::abs(right) >= std::abs(down) ? sideways : upright);
    const auto slide = Then([this, &item] { Slide(item); });
    if (moving == nullptr)
        slide();
    else
        m_pose.Leave(moving->name, Then([this, moving, slide] { m_pose.Play(*moving, slide); }));
}

void CActor::Slide(const WorkItem& item)
{
    m_placement.SlideTo({item.x, item.y}, item.milliseconds, Then([this] { Finish(); }));
}

void CActor::PerformSpeak(WorkItem& item)
{
    m_nextSpeech = item.prepared ? std::move(item.prepared) : Prepare(item);
    if (m_nextSpeech->modeId != ModeId() || m_nextSpeech->speedPercent != m_core.user->Now().speedPercent)
        OrderVoice(*m_nextSpeech);
    m_nextSound.reset();
    if (m_nextSpeech->spoken.error != 0) {
        Finish(RequestStatus::Failed, m_nextSpeech->spoken.error);
        return;
    }
    try {
        if (!m_nextSpeech->statement.soundFile.empty())
            m_nextSound = LoadSoundFile(m_nextSpeech->statement.soundFile);
    } catch (const platform::CFailure& failure) {
        Finish(RequestStatus::Failed, failure.Number());
        return;
    }
    m_lastStatement = m_nextSpeech->statement;
    TakeSpeakingPose();
}

void CActor::TakeSpeakingPose()
{
    const auto start = Then([this] { m_pose.Sounds().WhenSilent(Then([this] { StartSpeech(); })); });
    if (m_pose.CanSpeak()) {
        start();
        return;
    }
    const Animation* speaking = m_pose.Pick("SPEAKING");
    m_pose.Leave(speaking != nullptr ? speaking->name : "", Then([this, speaking, start] {
                     if (speaking != nullptr && !m_pose.CanSpeak())
                         m_pose.Assume(*speaking, start);
                     else
                         start();
                 }));
}

void CActor::StartSpeech()
{
    if (m_balloon)
        m_balloon->Begin(m_nextSpeech->spoken.shown, m_nextSpeech->spoken.words);
    const std::int32_t pace = ReadingPace();
    if (m_nextSound)
        m_speech.PlaySound(std::move(m_nextSpeech), *m_nextSound, pace);
    else
        m_speech.Play(std::move(m_nextSpeech), pace);
    m_nextSound.reset();
}

void CActor::SpeechEnded()
{
    if (m_balloon)
        m_balloon->Finish();
    Finish();
}

void CActor::WordsBegun(std::size_t count)
{
    if (m_balloon)
        m_balloon->ShowWords(count);
}

void CActor::BookmarkReached(std::int32_t number)
{
    m_core.Tell([number](auto& events) { events.Bookmark(number); });
}

void CActor::Interrupt(WorkItem& item)
{
    ++m_turn;
    m_nextSpeech.reset();
    m_nextSound.reset();
    m_pose.Sounds().ForgetWaiting();
    if (item.kind == WorkKind::Show) {
        m_pose.CutToLastFrame();
        return;
    }
    if (m_speech.Speaking()) {
        m_speech.Stop();
        m_stage.SetMouth(std::nullopt);
        if (m_balloon)
            m_balloon->Finish();
    }
    m_placement.StopSlide();
    m_pose.Interrupt();
    // What hiding left of the character would stand there for good.
    const Animation* neutral = item.kind == WorkKind::Hide && m_stage.Visible() ? m_pose.Pick("SPEAKING") : nullptr;
    if (neutral != nullptr)
        m_pose.Assume(*neutral, nullptr);
}

}
