// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "support/window/EventFactory.h"

#include "core/GameEventNSEvent.h"

using platform::Event;
using platform::EventType;

namespace
{

Event keyEvent(EventType type, std::u16string const& characters)
{
    Event event;
    event.type = type;
    event.charactersIgnoringModifiers = characters;
    return event;
}

Event mouseEvent(EventType type, float x, float y)
{
    Event event;
    event.type = type;
    event.locationInWindow = {x, y};
    return event;
}

} // namespace

namespace events
{

Event KeyDown(std::u16string const& characters)
{
    return keyEvent(EventType::KeyDown, characters);
}

Event KeyUp(std::u16string const& characters)
{
    return keyEvent(EventType::KeyUp, characters);
}

Event MouseMoved(float x, float y)
{
    return mouseEvent(EventType::MouseMoved, x, y);
}

Event MouseDragged(EventType type, float x, float y, int dx, int dy)
{
    Event event = mouseEvent(type, x, y);
    event.mouseDeltaX = dx;
    event.mouseDeltaY = dy;
    return event;
}

Event LeftUp(float x, float y)
{
    return mouseEvent(EventType::LeftMouseUp, x, y);
}

Event RightUp(float x, float y)
{
    return mouseEvent(EventType::RightMouseUp, x, y);
}

Event Wheel(float dx, float dy, float dz)
{
    Event event;
    event.type = EventType::ScrollWheel;
    event.deltaX = dx;
    event.deltaY = dy;
    event.deltaZ = dz;
    return event;
}

GameEvent Wrapped(Event const& event)
{
    return GameEvent(new GameEventNSEvent(event));
}

} // namespace events
