#include "engine/session/Placement.h"
#include "engine/base/Constants.h"
#include <algorithm>

namespace engine {

namespace {

std::int16_t Short(std::int32_t value)
{
    return static_cast<std::int16_t>(std::clamp<std::int32_t>(value, INT16_MIN, INT16_MAX));
}

Point ShortPoint(Point point) { return {Short(point.x), Short(point.y)}; }

std::int32_t Between(std::int32_t from, std::int32_t to, std::int64_t done, std::int64_t whole)
{
    return from + static_cast<std::int32_t>((to - from) * done / whole);
}

}

CPlacement::CPlacement(Core& core, std::string id, CStage& stage, CWordBalloon* balloon)
    : m_core(core), m_id(std::move(id)), m_stage(stage), m_balloon(balloon), m_timer(core.host.Timers())
{
    if (m_balloon != nullptr)
        m_balloon->SetCharacterPlace(stage.Place());
}

void CPlacement::Put(const Rect& place)
{
    m_stage.SetPlace(place);
    if (m_balloon != nullptr)
        m_balloon->SetCharacterPlace(place);
}

void CPlacement::TellMove(MoveCause cause)
{
    m_cause = cause;
    const Rect& place = Place();
    m_core.Tell([id = m_id, x = Short(place.left), y = Short(place.top), cause](auto& events) {
        events.Move(id, x, y, static_cast<std::int16_t>(cause));
    });
}

void CPlacement::MoveTo(Point to, MoveCause cause)
{
    const Rect before = Place();
    Follow(to);
    if (!(Place() == before))
        TellMove(cause);
}

void CPlacement::Follow(Point to)
{
    const Point target = ShortPoint(to);
    Put({target.x, target.y, Place().width, Place().height});
}

void CPlacement::Drop() { TellMove(MoveCause::User); }

void CPlacement::Resize(Size size)
{
    if (Size{Place().width, Place().height} == size)
        return;
    Put({Place().left, Place().top, size.width, size.height});
    m_core.Tell([id = m_id, width = Short(size.width), height = Short(size.height)](auto& events) {
        events.Size(id, width, height);
    });
}

void CPlacement::SlideTo(Point to, std::int32_t milliseconds, std::function<void()> arrived)
{
    m_from = {Place().left, Place().top};
    m_to = ShortPoint(to);
    m_begun = m_core.host.Timers().NowMilliseconds();
    m_duration = std::max(1, milliseconds);
    m_arrived = std::move(arrived);
    m_timer.Start(std::min(constants::SlideTick, m_duration), [this] { SlideStep(); });
}

void CPlacement::SlideStep()
{
    const std::int64_t done = m_core.host.Timers().NowMilliseconds() - m_begun;
    if (done < m_duration) {
        Follow({Between(m_from.x, m_to.x, done, m_duration), Between(m_from.y, m_to.y, done, m_duration)});
        m_timer.Start(constants::SlideTick, [this] { SlideStep(); });
        return;
    }
    Follow(m_to);
    TellMove(MoveCause::Program);
    const std::function<void()> arrived = std::exchange(m_arrived, nullptr);
    arrived();
}

void CPlacement::StopSlide()
{
    if (!m_timer.Running())
        return;
    m_timer.Stop();
    m_arrived = nullptr;
    TellMove(MoveCause::Program);
}

Point CPlacement::InsideWorkArea(Point corner) const
{
    const Rect place{corner.x, corner.y, Place().width, Place().height};
    const Rect area = m_core.host.Desktop().WorkArea({place.left + place.width / 2, place.top + place.height / 2});
    const std::int32_t width = std::min(place.Right(), area.Right()) - std::max(place.left, area.left);
    const std::int32_t height = std::min(place.Bottom(), area.Bottom()) - std::max(place.top, area.top);
    if (width >= place.width / 2 && height >= place.height / 2)
        return corner;
    return {std::max(area.left, std::min(place.left, area.Right() - place.width)),
            std::max(area.top, std::min(place.top, area.Bottom() - place.height))};
}

void CPlacement::BackOnScreen()
{
    if (m_timer.Running()) {
        m_to = InsideWorkArea(m_to);
        return;
    }
    MoveTo(InsideWorkArea({Place().left, Place().top}), MoveCause::System);
}

void CPlacement::TakeOver(const CPlacement& other)
{
    Put(other.Place());
    m_cause = other.m_cause;
}

}
