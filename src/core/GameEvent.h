// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// One input event as game and menus see it: they ask what it is. It lives for one dispatch; nobody keeps it.
// Positions are window pixels with their origin at the bottom left.
#pragma once

#include <memory>

class GameEventNSEvent;

class GameEvent
{
public:
    explicit GameEvent(GameEventNSEvent* adapter); // takes ownership
    ~GameEvent();
    GameEvent(GameEvent const&) = delete;
    GameEvent& operator=(GameEvent const&) = delete;

    bool IsKey() const; // down or up
    bool IsKeyDown() const;
    bool IsKeyUp() const;

    // A key event with that byte anywhere among its characters.
    bool IsKey(char c) const;

    // A key event whose characters are exactly that UTF-16 unit. Case matters; modifiers but Shift do not.
    bool IsKey(unsigned short u) const;

    // The first UTF-16 unit of the event's characters, 0 when it has none.
    unsigned short GetUniChar() const;

    // Moved or dragged. dx, dy: the pointer's last movement; 0 for another event, which leaves x and y alone.
    bool IsMouseMove(int& dx, int& dy, int& x, int& y) const;

    // A left or right button was released. x, y: 0 for another event.
    bool IsMouseUp(int& x, int& y) const;

    // up: any movement to the right, away from the user, or about a third axis forwards. Untouched for
    // another event.
    bool IsScrollWheel(bool& up) const;

private:
    std::unique_ptr<GameEventNSEvent> m_adapter;
};
