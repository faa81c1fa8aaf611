// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Functions made of + - * / and the square root alone. The last bit of the C library's sine or power differs
// between CPUs, and a resource must come out the same, byte for byte, on all of them.
#pragma once

#include <algorithm>
#include <cmath>

namespace maker
{

inline constexpr double kPi = 3.14159265358979323846;
inline constexpr double kLn2 = 0.69314718055994530942;

// Sine of an angle in turns (1 is a full circle); accurate to about 1e-8.
inline double Sine(double turns)
{
    double x = turns - std::floor(turns + 0.5);
    if (x > 0.25)
    {
        x = 0.5 - x;
    }
    else if (x < -0.25)
    {
        x = -0.5 - x;
    }
    double const a = x * (2.0 * kPi);
    double const s = a * a;
    return a *
           (1.0 + s * (-1.0 / 6 + s * (1.0 / 120 + s * (-1.0 / 5040 + s * (1.0 / 362880 - s / 39916800)))));
}

inline double Cosine(double turns)
{
    return Sine(turns + 0.25);
}

// Tangent of an angle in turns, below a quarter turn.
inline double Tangent(double turns)
{
    return Sine(turns) / Cosine(turns);
}

// Two to the power of x; with 12 terms accurate to about 1e-10.
inline double Exp2(double x, int terms = 12)
{
    double const whole = std::floor(x);
    double const f = (x - whole) * kLn2;
    double term = 1.0;
    double sum = 1.0;
    for (int n = 1; n < terms; ++n)
    {
        term *= f / n;
        sum += term;
    }
    return std::ldexp(sum, static_cast<int>(whole));
}

inline double Exp(double x)
{
    return x < -700.0 ? 0.0 : Exp2(x / kLn2);
}

// Logarithm to base 2 of x > 0, by the series of the inverse hyperbolic tangent.
inline double Log2(double x)
{
    int exponent = 0;
    double const m = std::frexp(x, &exponent);
    double const z = (m - 0.70710678118654752) / (m + 0.70710678118654752);
    double const z2 = z * z;
    double sum = 0.0;
    double power = z;
    for (int n = 1; n < 26; n += 2)
    {
        sum += power / n;
        power *= z2;
    }
    return 2.0 * sum / kLn2 + exponent - 0.5;
}

// x to the power of y; 0 for x <= 0.
inline double Power(double x, double y)
{
    return x <= 0.0 ? 0.0 : Exp2(y * Log2(x));
}

inline double Mix(double a, double b, double share)
{
    return a + (b - a) * share;
}

// 0 below from, 1 above to, an S in between; falls where to < from.
inline double SmoothStep(double from, double to, double x)
{
    double const t = std::clamp((x - from) / (to - from), 0.0, 1.0);
    return t * t * (3.0 - 2.0 * t);
}

// A smoother S from 0 to 1, for t from 0 to 1: its bend is 0 at both ends, too.
inline double Fade(double t)
{
    return t * t * t * (t * (t * 6.0 - 15.0) + 10.0);
}

// Follows x near 0 and approaches -1 and 1 far away from it.
inline double SoftClip(double x)
{
    return x / std::sqrt(1.0 + x * x);
}

// Follows x near 0, more closely than SoftClip, and reaches -1 and 1 at -3 and 3.
inline double Saturate(double x)
{
    double const limited = std::clamp(x, -3.0, 3.0);
    double const square = limited * limited;
    return limited * (27.0 + square) / (27.0 + 9.0 * square);
}

} // namespace maker
