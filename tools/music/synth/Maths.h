// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// What the synthesiser needs beyond common/Maths.h, made as that is: a track comes out the same, byte for
// byte, on all CPUs.
#pragma once

#include "common/Maths.h"

#include <cmath>
#include <cstddef>

namespace music
{

using maker::kPi;
using maker::Sine;

inline constexpr double kSampleRate = 44100.0;

// Two to the power of x.
inline double Exp2(double x)
{
    double const whole = std::floor(x);
    double const f = (x - whole) * 0.69314718055994530942;
    double term = 1.0;
    double sum = 1.0;
    for (int n = 1; n < 12; ++n)
    {
        term *= f / n;
        sum += term;
    }
    return std::ldexp(sum, static_cast<int>(whole));
}

// Tangent of an angle in turns, below a quarter turn.
inline double Tangent(double turns)
{
    return Sine(turns) / Sine(turns + 0.25);
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

// Soft clipping to -1..1, with a slope of 1 at zero.
inline double Saturate(double x)
{
    if (x > 3.0)
        return 1.0;
    if (x < -3.0)
        return -1.0;
    return x * (27.0 + x * x) / (27.0 + 9.0 * x * x);
}

inline std::size_t Frames(double seconds)
{
    return static_cast<std::size_t>(seconds * kSampleRate + 0.5);
}

} // namespace music
