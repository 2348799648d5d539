#pragma once
#include "engine/animation/Idler.h"
#include "engine/balloon/WordBalloon.h"
#include "engine/requests/RequestQueue.h"
#include "engine/session/CharacterNames.h"
#include "engine/session/CommandList.h"
#include "engine/session/Core.h"
#include "engine/session/Mouse.h"
#include "engine/session/Placement.h"
#include "engine/speech/SpeechPlayer.h"
#include <set>

namespace engine {

enum class VisibilityCause : std::int16_t { Never = 0, ProgramHid = 3, ProgramShowed = 4 };

// One loaded character: performs its requests one after another.
class CActor final : private IWorker, private IRequestEvents, private ISpeechListener, private IMouseListener {
public:
    CActor(Core& core, std::string id, CharacterRef character, bool isDefault);
    ~CActor() override;
    CActor(const CActor&) = delete;
    CActor& operator=(const CActor&) = delete;

    const Character& Data() const { return *m_character; }
    bool IsDefault() const { return m_isDefault; }
    const std::string& Name() const { return m_name; }
    void SetName(const std::string& name) { m_name = name; }
    CPlacement& Placement() { return m_placement; }
    CIdler& Idler() { return m_idler; }
    CPose& Pose() { return m_pose; }
    CWordBalloon* Balloon() { return m_balloon.get(); }  // Null when the character has none.
    const CommandList& Commands() const { return m_commands; }
    void SetCommands(CommandList commands);
    bool Visible() const { return m_stage.Visible(); }
    VisibilityCause LastVisibilityCause() const { return m_visibilityCause; }
    bool autoPopupMenu = true;

    std::string ModeId() const;                 // Of the voice that would speak now; "" for none.
    void SetModeId(const std::string& modeId);  // Throws SpeechEngineNotFound, and chooses by itself from then on.
    // Words a minute of the balloon without a voice.
    std::int32_t ReadingPace() const
    {
        return m_core.settings.readingWordsPerMinute * m_core.user->Now().speedPercent / 100;
    }
    bool HasVoice() const { return !ModeId().empty(); }

    platform::RequestRef Add(WorkItem item);
    void Stop(const platform::RequestRef& request);  // Null: everything but a running Show or Hide.
    void StopKinds(const std::set<WorkKind>& kinds);
    // A step of what it does has thrown: the running request fails, and the next one is taken up.
    void StepFailed(std::int32_t number) { m_queue.Fail(number); }
    void WorkAreaChanged();
    void UserSettingsChanged();
    // Takes the place of another character before anybody has seen this one: what the program has set, and the sight.
    void Replace(CActor& other);
    bool OtherClientsHaveIt() const { return m_core.host.LoadedCharacters().OthersHave(m_guid); }

private:
    void Perform(WorkItem& item) override;
    void Interrupt(WorkItem& item) override;
    void RanOut() override;
    void Started(std::weak_ptr<CRequest> request) override;
    void Completed(std::weak_ptr<CRequest> request) override;
    void WordsBegun(std::size_t count) override;
    void BookmarkReached(std::int32_t number) override;
    void MouthTurned(std::optional<Mouth> mouth) override { m_stage.SetMouth(mouth); }
    void SpeechEnded() override;
    void Clicked(const MouseAction& action) override;
    void DoubleClicked(const MouseAction& action) override;
    void DragBegan(const MouseAction& action) override;
    void DraggedBy(Point distance) override;
    void DragEnded(const MouseAction& action) override;

    void PerformHidden(const WorkItem& item);
    void PerformShow(const WorkItem& item);
    void PerformHide(const WorkItem& item);
    void HideNow();
    void PerformPlay(const WorkItem& item);
    void PerformMove(const WorkItem& item);
    void Slide(const WorkItem& item);
    void PerformSpeak(WorkItem& item);
    void TakeSpeakingPose();
    void StartSpeech();
    void Finish(platform::RequestStatus status = platform::RequestStatus::Completed, std::int32_t number = 0);
    // `step`, unless the present request has been interrupted by then.
    std::function<void()> Then(std::function<void()> step);

    std::unique_ptr<PreparedSpeech> Prepare(const WorkItem& item);
    void OrderVoice(PreparedSpeech& speech);
    void PrefetchNext();
    const std::vector<Voice>& Voices() const;
    SpeechDefaults VoiceDefaults() const;
    bool Acts(const MouseAction& action) const;
    void LeaveBalloonAlone();
    void OfferCommands();
    void Heard(const std::vector<HeardCommand>& matches);
    using MouseEvent = void (platform::ICharacterEngineEvents::*)(const std::string&, std::int16_t, std::int16_t,
                                                                  std::int16_t, std::int16_t);
    void TellMouse(MouseEvent event, const MouseAction& action);

    Core& m_core;
    const std::string m_id;
    const CharacterRef m_character;
    const std::string m_guid;
    const bool m_isDefault;
    std::string m_name;
    std::string m_modeId;  // Set by the program.
    mutable std::vector<Voice> m_voices;
    CommandList m_commands;
    VisibilityCause m_visibilityCause = VisibilityCause::Never;
    CMouse m_mouse;
    CStage m_stage;
    CPose m_pose;
    CIdler m_idler;
    std::unique_ptr<CWordBalloon> m_balloon;
    CPlacement m_placement;
    Point m_dragOrigin;
    CSpeechPlayer m_speech;
    // Of the Speak request that runs, until its speech starts.
    std::unique_ptr<PreparedSpeech> m_nextSpeech;
    std::optional<WaveSound> m_nextSound;
    Statement m_lastStatement;
    std::uint64_t m_turn = 0;
    CRequestQueue m_queue;
};

}
