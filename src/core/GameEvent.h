// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// One input event as game and menus see it: they ask what it is. It lives for one dispatch: keep no pointer.
// Positions are window pixels with their origin at the bottom left.
#pragma once

#include "core/GameEventNSEvent.h"

#include <memory>

class GameEvent
{
public:
    explicit GameEvent(GameEventNSEvent* adapter) : m_adapter(adapter) {} // takes ownership

    bool IsKey() const { return m_adapter->IsKey(); } // down or up
    bool IsKeyDown() const { return m_adapter->IsKeyDown(); }
    bool IsKeyUp() const { return m_adapter->IsKeyUp(); }

    // A key event with that byte anywhere among its characters.
    bool IsKey(char c) const { return m_adapter->IsKey(c); }

    // A key event whose characters are exactly that UTF-16 unit. Case matters; modifiers but Shift do not.
    bool IsKey(unsigned short u) const { return m_adapter->IsKey(u); }

    // The first UTF-16 unit of the event's characters, 0 when it has none.
    unsigned short GetUniChar() const { return m_adapter->GetUniChar(); }

    // Moved or dragged. dx, dy: the pointer's last movement; 0 for another event, which leaves x and y alone.
    bool IsMouseMove(int& dx, int& dy, int& x, int& y) const { return m_adapter->IsMouseMove(dx, dy, x, y); }

    // A left or right button was released. x, y: 0 for another event.
    bool IsMouseUp(int& x, int& y) const
    {
        int button = -1;
        return m_adapter->IsMouseUp(x, y, button);
    }

    // up: any movement to the right, away from the user, or about a third axis forwards. Untouched for
    // another event.
    bool IsScrollWheel(bool& up) const { return m_adapter->IsScrollWheel(up); }

private:
    std::unique_ptr<GameEventNSEvent> m_adapter;
};
