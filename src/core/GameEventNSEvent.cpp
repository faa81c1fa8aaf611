// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "core/GameEventNSEvent.h"

#include <utility>

using platform::EventType;

GameEventNSEvent::GameEventNSEvent(platform::Event event) : m_event(std::move(event))
{
}

bool GameEventNSEvent::IsKey() const
{
    return IsKeyDown() || IsKeyUp();
}

bool GameEventNSEvent::IsKeyDown() const
{
    return m_event.type == EventType::KeyDown;
}

bool GameEventNSEvent::IsKeyUp() const
{
    return m_event.type == EventType::KeyUp;
}

// The characters are read as a C string in 8 bits: a 0 ends them, and a unit that is not ASCII is a question
// mark.
bool GameEventNSEvent::IsKey(char c) const
{
    for (char16_t const unit : m_event.charactersIgnoringModifiers)
    {
        if (unit == 0)
        {
            break;
        }
        if (c == (unit < 0x80 ? static_cast<char>(unit) : '?'))
        {
            return IsKey();
        }
    }
    return false;
}

bool GameEventNSEvent::IsKey(unsigned short u) const
{
    return IsKey() && m_event.charactersIgnoringModifiers == std::u16string(1, static_cast<char16_t>(u));
}

unsigned short GameEventNSEvent::GetUniChar() const
{
    std::u16string const& characters = m_event.charactersIgnoringModifiers;
    return characters.empty() ? 0 : characters.front();
}

bool GameEventNSEvent::IsMouseMove(int& dx, int& dy, int& x, int& y) const
{
    switch (m_event.type)
    {
    case EventType::MouseMoved:
    case EventType::LeftMouseDragged:
    case EventType::RightMouseDragged:
    case EventType::OtherMouseDragged:
        dx = m_event.mouseDeltaX;
        dy = m_event.mouseDeltaY;
        x = static_cast<int>(m_event.locationInWindow.x);
        y = static_cast<int>(m_event.locationInWindow.y);
        return true;
    default:
        dx = 0;
        dy = 0;
        return false;
    }
}

bool GameEventNSEvent::IsMouseUp(int& x, int& y, int& button) const
{
    bool const isLeft = m_event.type == EventType::LeftMouseUp;
    bool const isUp = isLeft || m_event.type == EventType::RightMouseUp;
    x = isUp ? static_cast<int>(m_event.locationInWindow.x) : 0;
    y = isUp ? static_cast<int>(m_event.locationInWindow.y) : 0;
    button = isUp ? (isLeft ? 1 : 2) : -1;
    return isUp;
}

// An event without any movement counts as down.
bool GameEventNSEvent::IsScrollWheel(bool& up) const
{
    if (m_event.type != EventType::ScrollWheel)
    {
        return false;
    }
    up = m_event.deltaX > 0.0F || m_event.deltaY > 0.0F || m_event.deltaZ > 0.0F;
    return true;
}
