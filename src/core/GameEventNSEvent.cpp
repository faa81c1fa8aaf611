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

// In the lossy 8-bit reading of the characters every unit that is not ASCII is a question mark, and a 0 ends
// them.
bool GameEventNSEvent::IsKey(char c) const
{
    if (!IsKey())
    {
        return false;
    }
    for (char16_t const unit : m_event.charactersIgnoringModifiers)
    {
        if (unit == 0)
        {
            return false;
        }
        if (c == (unit < 0x80 ? static_cast<char>(unit) : '?'))
        {
            return true;
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
    bool const moved = m_event.type == EventType::MouseMoved || m_event.type == EventType::LeftMouseDragged ||
                       m_event.type == EventType::RightMouseDragged ||
                       m_event.type == EventType::OtherMouseDragged;
    if (!moved)
    {
        dx = 0;
        dy = 0;
        return false;
    }
    dx = m_event.mouseDeltaX;
    dy = m_event.mouseDeltaY;
    x = static_cast<int>(m_event.locationInWindow.x);
    y = static_cast<int>(m_event.locationInWindow.y);
    return true;
}

bool GameEventNSEvent::IsMouseUp(int& x, int& y, int& button) const
{
    x = 0;
    y = 0;
    button = -1;
    if (m_event.type == EventType::LeftMouseUp)
    {
        button = 1;
    }
    else if (m_event.type == EventType::RightMouseUp)
    {
        button = 2;
    }
    else
    {
        return false;
    }
    x = static_cast<int>(m_event.locationInWindow.x);
    y = static_cast<int>(m_event.locationInWindow.y);
    return true;
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
