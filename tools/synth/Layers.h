// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The layers that effects are built from, one channel each. Times are in seconds, pitches in Hz, levels
// about 1.
#pragma once

#include "synth/Signal.h"

#include <cstdint>
#include <span>

namespace maker
{

// Rises from 0 to 1 and then falls by 60 dB.
double Struck(double time, double rise, double fall);

// Rises to 1, stays there until the length is over, and falls to 0.
double Held(double time, double length, double rise, double release);

Signal WhiteNoise(double seconds, std::uint64_t seed);

// One way in which a struck body rings.
struct Mode
{
    double pitch;
    double level;
    double fall; // until 60 dB down
};

// A struck body: its modes together, each from its own phase.
Signal Ring(std::span<Mode const> modes, double seconds, double rise);

// A sine whose pitch glides from one to another, exponentially, the way a struck skin settles.
Signal Thump(double seconds, double from, double to, double glide, double fall);

// A bell by frequency modulation: ratio and depth of the modulator, both fading into a plain tone.
Signal Bell(double pitch, double ratio, double depth, double seconds, double fall);

struct BrassNote
{
    double pitch;   // in semitones, where 69 is the A of 440 Hz
    double length;  // until the release
    double bite;    // 0 (soft) to 1 (blaring): how far its harmonics open
    double vibrato; // in cents, late in the note
};

// A brass player: harmonics that open with the breath, a scooped start, a little breath noise.
Signal Brass(BrassNote const& note, std::uint64_t seed);

} // namespace maker
