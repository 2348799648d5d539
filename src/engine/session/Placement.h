#pragma once
#include "engine/animation/Stage.h"
#include "engine/balloon/WordBalloon.h"
#include "engine/session/Core.h"

namespace engine {

enum class MoveCause : std::int16_t { Never = 0, User = 1, Program = 2, System = 4 };

// Where the character's frame is: at once, sliding, or dragged. The balloon goes along.
class CPlacement {
public:
    CPlacement(Core& core, std::string id, CStage& stage, CWordBalloon* balloon);

    const Rect& Place() const { return m_stage.Place(); }
    MoveCause Cause() const { return m_cause; }
    void MoveTo(Point to, MoveCause cause);  // Tells it when the place is another one.
    void Resize(Size size);                  // Tells it; both sides 1 or more.
    void SlideTo(Point to, std::int32_t milliseconds, std::function<void()> arrived);
    void StopSlide();       // Where it is.
    void Follow(Point to);  // While dragged: tells nothing yet.
    void Drop();            // Tells where the user has left it.
    // Moves a frame of which less than half is inside the work area; a slide under way ends inside.
    void BackOnScreen();
    void TakeOver(const CPlacement& other);  // Stands where the other one stood, as large, and tells nothing.

private:
    void Put(const Rect& place);
    void TellMove(MoveCause cause);
    void SlideStep();
    Point InsideWorkArea(Point corner) const;  // The nearest place, unless it is good enough already.

    Core& m_core;
    const std::string m_id;
    CStage& m_stage;
    CWordBalloon* m_balloon;
    MoveCause m_cause = MoveCause::Never;
    CTimer m_timer;
    Point m_from;
    Point m_to;
    std::int64_t m_begun = 0;
    std::int32_t m_duration = 1;
    std::function<void()> m_arrived;
};

}
