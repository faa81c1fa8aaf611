// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/input/MouseTranslation.h"

namespace platform
{

namespace
{

Event Moved(SDL_MouseMotionEvent const& motion, PixelsFromWindow const& pixels)
{
    Point const here = pixels(motion.x, motion.y);
    Point const before = pixels(motion.x - motion.xrel, motion.y - motion.yrel);
    Event event;
    event.type = EventType::MouseMoved;
    event.locationInWindow = here;
    event.mouseDeltaX = static_cast<int>(here.x - before.x);
    event.mouseDeltaY = static_cast<int>(before.y - here.y);
    return event;
}

Event Released(SDL_MouseButtonEvent const& button, PixelsFromWindow const& pixels)
{
    Event event;
    event.type = EventType::LeftMouseUp;
    event.locationInWindow = pixels(button.x, button.y);
    return event;
}

Event Turned(SDL_MouseWheelEvent const& wheel, PixelsFromWindow const& pixels)
{
    Event event;
    event.type = EventType::ScrollWheel;
    event.locationInWindow = pixels(wheel.mouseX, wheel.mouseY);
    // Natural scrolling reports the opposite sign; undo it, so that pushing the wheel away is always a
    // throttle step up.
    float const sign = wheel.direction == SDL_MOUSEWHEEL_FLIPPED ? -1.0F : 1.0F;
    event.deltaX = sign * static_cast<float>(wheel.x);
    event.deltaY = sign * static_cast<float>(wheel.y);
    return event;
}

} // namespace

std::optional<Event> TranslateMouse(SDL_Event const& event, PixelsFromWindow const& pixels)
{
    if (event.type == SDL_MOUSEMOTION && event.motion.state == 0) // no button is down
    {
        return Moved(event.motion, pixels);
    }
    if (event.type == SDL_MOUSEBUTTONUP && event.button.button == SDL_BUTTON_LEFT)
    {
        return Released(event.button, pixels);
    }
    // A finely graded wheel reports (0, 0) between two notches.
    if (event.type == SDL_MOUSEWHEEL && (event.wheel.x != 0 || event.wheel.y != 0))
    {
        return Turned(event.wheel, pixels);
    }
    return std::nullopt;
}

} // namespace platform
