// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/window/MouseTranslation.h"

#include "platform/window/Window.h"

#include <cmath>

namespace platform
{

namespace
{

EventType MotionType(Uint32 buttons)
{
    if (buttons == 0)
    {
        return EventType::MouseMoved;
    }
    if ((buttons & SDL_BUTTON_LMASK) != 0)
    {
        return EventType::LeftMouseDragged;
    }
    return (buttons & SDL_BUTTON_RMASK) != 0 ? EventType::RightMouseDragged : EventType::OtherMouseDragged;
}

} // namespace

Event TranslateMouseMotion(SDL_MouseMotionEvent const& motion, Window const& window)
{
    Point const origin = window.pixelsFromWindow(0, 0);
    Point const step = window.pixelsFromWindow(motion.xrel, motion.yrel);
    Event event;
    event.type = MotionType(motion.state);
    event.locationInWindow = window.pixelsFromWindow(motion.x, motion.y);
    event.mouseDeltaX = static_cast<int>(std::lround(step.x - origin.x));
    event.mouseDeltaY = static_cast<int>(std::lround(origin.y - step.y));
    return event;
}

std::optional<Event> TranslateMouseUp(SDL_MouseButtonEvent const& button, Window const& window)
{
    if (button.button != SDL_BUTTON_LEFT && button.button != SDL_BUTTON_RIGHT)
    {
        return std::nullopt;
    }
    Event event;
    event.type = button.button == SDL_BUTTON_LEFT ? EventType::LeftMouseUp : EventType::RightMouseUp;
    event.locationInWindow = window.pixelsFromWindow(button.x, button.y);
    return event;
}

std::optional<Event> TranslateMouseWheel(SDL_MouseWheelEvent const& wheel, Window const& window)
{
    if (wheel.x == 0 && wheel.y == 0)
    {
        return std::nullopt;
    }
    Event event;
    event.type = EventType::ScrollWheel;
    event.locationInWindow = window.pixelsFromWindow(wheel.mouseX, wheel.mouseY);
    // "Natural" scrolling turns the notches round; the game goes by the hand.
    float const sign = wheel.direction == SDL_MOUSEWHEEL_FLIPPED ? -1.0F : 1.0F;
    event.deltaX = sign * static_cast<float>(wheel.x);
    event.deltaY = sign * static_cast<float>(wheel.y);
    return event;
}

} // namespace platform
