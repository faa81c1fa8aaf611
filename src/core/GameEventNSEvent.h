// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Adapter between GameEvent and the platform's event: answers each question from the event it holds.
#pragma once

#include "platform/input/Event.h"

class GameEventNSEvent
{
public:
    explicit GameEventNSEvent(platform::Event event);

    bool IsKey() const;
    bool IsKeyDown() const;
    bool IsKeyUp() const;
    bool IsKey(char c) const;
    bool IsKey(unsigned short u) const;
    unsigned short GetUniChar() const;
    bool IsMouseMove(int& dx, int& dy, int& x, int& y) const;
    bool IsMouseUp(int& x, int& y, int& button) const; // button: 1 left, 2 right, -1 for another event
    bool IsScrollWheel(bool& up) const;

private:
    platform::Event m_event;
};
