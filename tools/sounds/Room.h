// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A room around a sound.
#pragma once

#include "sounds/Signal.h"

namespace maker
{

struct RoomSize
{
    double seconds;    // until an echo has fallen by 60 dB
    double scale;      // 1: a small hall; 0.3: a cockpit
    double brightness; // cutoff of the walls in Hz
};

// Adds the room's answer to the sound, at a gain; the tail is cut at the sound's end.
void AddRoom(Stereo& sound, RoomSize const& room, double gain);

} // namespace maker
