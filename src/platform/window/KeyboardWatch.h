// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Notices that another program gets the keyboard.
#pragma once

#include <cstdint>
#include <optional>

namespace platform
{

class KeyboardWatch
{
public:
    // To be asked in each pass of the run loop. True once for each loss: a window of the game had the
    // keyboard, and now none has had it for a tenth of a second.
    bool hasLostKeyboard();

private:
    bool m_hadKeyboard = false;
    std::optional<std::uint64_t> m_lostAt; // nanoseconds of UpTime()
};

} // namespace platform
