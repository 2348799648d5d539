#include "engine/balloon/BalloonPlace.h"
#include "engine/base/Constants.h"
#include <algorithm>

namespace engine {

namespace {

using constants::BalloonTailLength;
using constants::BalloonTailMargin;

// The nearest start of a stretch so that it lies inside; its beginning wins when it is too long.
std::int32_t Inside(std::int32_t start, std::int32_t length, std::int32_t first, std::int32_t end)
{
    return std::max(first, std::min(start, end - length));
}

// Where the tail leaves an edge: towards `wanted`, away from the corners.
std::int32_t TailOnEdge(std::int32_t wanted, std::int32_t length)
{
    const std::int32_t margin = std::min(BalloonTailMargin, length / 2);
    return std::clamp(wanted, margin, std::max(margin, length - margin));
}

BalloonPlace Vertical(const Rect& character, Size body, const Rect& area, bool above)
{
    const std::int32_t centre = character.left + character.width / 2;
    BalloonPlace place;
    place.window.width = body.width;
    place.window.height = body.height + BalloonTailLength;
    place.window.left = Inside(centre - body.width / 2, body.width, area.left, area.Right());
    place.window.top = Inside(above ? character.top - place.window.height : character.Bottom(), place.window.height,
                              area.top, area.Bottom());
    place.body = {0, above ? 0 : BalloonTailLength, body.width, body.height};
    place.tail = {TailOnEdge(centre - place.window.left, body.width), above ? place.window.height - 1 : 0};
    return place;
}

BalloonPlace Beside(const Rect& character, Size body, const Rect& area, bool onLeft)
{
    const std::int32_t head = character.top + character.height / 4;
    BalloonPlace place;
    place.window.width = body.width + BalloonTailLength;
    place.window.height = body.height;
    place.window.left = Inside(onLeft ? character.left - place.window.width : character.Right(), place.window.width,
                               area.left, area.Right());
    place.window.top = Inside(head - body.height / 2, body.height, area.top, area.Bottom());
    place.body = {onLeft ? 0 : BalloonTailLength, 0, body.width, body.height};
    place.tail = {onLeft ? place.window.width - 1 : 0, TailOnEdge(head - place.window.top, body.height)};
    return place;
}

}

BalloonPlace PlaceBalloon(const Rect& character, Size body, const Rect& area)
{
    const std::int32_t tall = body.height + BalloonTailLength;
    const std::int32_t wide = body.width + BalloonTailLength;
    const bool fitsBeside = wide <= area.width;  // A character may stand outside the work area.
    if (character.top - tall >= area.top)
        return Vertical(character, body, area, /*above*/ true);
    if (character.Bottom() + tall <= area.Bottom())
        return Vertical(character, body, area, /*above*/ false);
    if (fitsBeside && character.left - wide >= area.left)
        return Beside(character, body, area, /*onLeft*/ true);
    if (fitsBeside && character.Right() + wide <= area.Right())
        return Beside(character, body, area, /*onLeft*/ false);
    return Vertical(character, body, area, /*above*/ true);
}

}
