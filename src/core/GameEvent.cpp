// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "core/GameEvent.h"

#include "core/GameEventNSEvent.h"

GameEvent::GameEvent(GameEventNSEvent* adapter) : m_adapter(adapter)
{
}

GameEvent::~GameEvent() = default;

bool GameEvent::IsKey() const
{
    return m_adapter->IsKey();
}

bool GameEvent::IsKeyDown() const
{
    return m_adapter->IsKeyDown();
}

bool GameEvent::IsKeyUp() const
{
    return m_adapter->IsKeyUp();
}

bool GameEvent::IsKey(char c) const
{
    return m_adapter->IsKey(c);
}

bool GameEvent::IsKey(unsigned short u) const
{
    return m_adapter->IsKey(u);
}

unsigned short GameEvent::GetUniChar() const
{
    return m_adapter->GetUniChar();
}

bool GameEvent::IsMouseMove(int& dx, int& dy, int& x, int& y) const
{
    return m_adapter->IsMouseMove(dx, dy, x, y);
}

bool GameEvent::IsMouseUp(int& x, int& y) const
{
    int button = -1;
    return m_adapter->IsMouseUp(x, y, button);
}

bool GameEvent::IsScrollWheel(bool& up) const
{
    return m_adapter->IsScrollWheel(up);
}
