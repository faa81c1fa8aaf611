// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/window/KeyboardWatch.h"

#include "platform/base/Clock.h"

#include <SDL.h>

namespace platform
{

namespace
{

// Seconds. On the way to full screen and back the keyboard goes from one of the game's windows to the other,
// and between them none has it.
constexpr double kLongestGap = 0.1;

} // namespace

bool KeyboardWatch::hasLostKeyboard()
{
    if (SDL_GetKeyboardFocus() != nullptr)
    {
        m_hadKeyboard = true;
        m_lostAt.reset();
        return false;
    }
    std::uint64_t const now = UpTime();
    m_lostAt = m_lostAt.value_or(now);
    bool const isGap = SecondsBetween(*m_lostAt, now) < kLongestGap;
    bool const isLoss = m_hadKeyboard && !isGap;
    m_hadKeyboard = m_hadKeyboard && isGap;
    return isLoss;
}

} // namespace platform
