// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Seconds, decibels and semitones as the synthesiser counts: in frames, factors and Hz.
#pragma once

#include "common/Maths.h"

#include <cstddef>

namespace maker
{

inline constexpr double kSampleRate = 44100.0;

inline std::size_t Frames(double seconds)
{
    return static_cast<std::size_t>(seconds * kSampleRate + 0.5);
}

inline double Gain(double decibels)
{
    return Exp2(decibels * 0.16609640474436812);
}

// Frequency of a pitch in semitones, where 69 is the A of 440 Hz.
inline double Hertz(double pitch)
{
    return 440.0 * Exp2((pitch - 69.0) / 12.0);
}

// The factor that, applied once a sample, lets a value fall by 60 dB in that many seconds.
inline double DecayPerSample(double seconds)
{
    return Exp2(-9.965784284662087 / (seconds * kSampleRate));
}

} // namespace maker
