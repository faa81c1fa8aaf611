// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A sound device whose time stands still: what starts to play goes on playing until the test silences it,
// however slow the machine. So a sound that was played since then is still playing.
#pragma once

namespace frozen
{

// Puts the device in place; nothing plays on it. Called again, it silences everything.
void Silence();

// True when a sound of the game by that file name plays.
bool Plays(char const* fileName);

} // namespace frozen
