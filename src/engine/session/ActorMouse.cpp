#include "engine/session/Actor.h"

// What a character does when the user touches it.
namespace engine {

using platform::ICharacterEngineEvents;

namespace {

constexpr int RightButton = 2;

}

// A right click belongs to the engine's own menu unless the program takes it over.
bool CActor::Acts(const MouseAction& action) const { return action.button != RightButton || !autoPopupMenu; }

void CActor::LeaveBalloonAlone()
{
    if (m_balloon && !m_speech.Speaking())
        m_balloon->Hide();
}

void CActor::TellMouse(MouseEvent event, const MouseAction& action)
{
    m_core.Tell([id = m_id, event, action](ICharacterEngineEvents& events) {
        (events.*event)(id, static_cast<std::int16_t>(action.button), static_cast<std::int16_t>(action.shift),
                        static_cast<std::int16_t>(action.at.x), static_cast<std::int16_t>(action.at.y));
    });
}

void CActor::Clicked(const MouseAction& action)
{
    m_stage.Raise();
    LeaveBalloonAlone();
    if (Acts(action))
        TellMouse(&ICharacterEngineEvents::Click, action);
}

void CActor::DoubleClicked(const MouseAction& action)
{
    if (Acts(action))
        TellMouse(&ICharacterEngineEvents::DblClick, action);
}

void CActor::DragBegan(const MouseAction& action)
{
    m_stage.Raise();
    LeaveBalloonAlone();
    m_dragOrigin = {m_placement.Place().left, m_placement.Place().top};
    TellMouse(&ICharacterEngineEvents::DragStart, action);
    const WorkItem* running = m_queue.Running();
    if (running == nullptr || running->kind != WorkKind::MoveTo)
        return;
    ++m_turn;
    m_placement.StopSlide();
    m_pose.Interrupt();
    Finish(platform::RequestStatus::Failed, platform::engineError::MoveWhileDragging);
}

void CActor::DraggedBy(Point distance) { m_placement.Follow({m_dragOrigin.x + distance.x, m_dragOrigin.y + distance.y}); }

void CActor::DragEnded(const MouseAction& action)
{
    m_placement.Drop();
    TellMouse(&ICharacterEngineEvents::DragComplete, action);
}

}
