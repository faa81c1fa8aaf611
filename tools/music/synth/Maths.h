// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The few functions that the synthesiser needs, made of additions and multiplications only: the last bit of
// the C library's sine differs between CPUs, and a track must come out the same, byte for byte, on all of
// them.
#pragma once

#include <cmath>
#include <cstddef>

namespace music
{

inline constexpr double kSampleRate = 44100.0;
inline constexpr double kPi = 3.14159265358979323846;

// Sine of an angle in turns (1 is a full circle); accurate to about 1e-8.
inline double Sine(double turns)
{
    double x = turns - std::floor(turns + 0.5);
    if (x > 0.25)
        x = 0.5 - x;
    else if (x < -0.25)
        x = -0.5 - x;
    double const a = x * (2.0 * kPi);
    double const s = a * a;
    return a *
           (1.0 + s * (-1.0 / 6 + s * (1.0 / 120 + s * (-1.0 / 5040 + s * (1.0 / 362880 - s / 39916800)))));
}

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
