// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Scalar and random helpers.
#pragma once

#include "math/qmath.h"

#include <algorithm>

// min if min > value, else max if max < value, else value.
float FltClamp(float value, float min, float max);

// lo if lo > value, else the smaller of hi and value.
float clamp(float value, float lo, float hi);

void IntSwap(int& a, int& b);
void FltSwap(float& a, float& b);

// True within an absolute distance of 0.01, whatever the size of the numbers.
bool FltIsCloseTo(float a, float b);

// The next number of the platform's 31-bit random sequence, scaled by 2^-31: in [0, 1). One draw in some 30
// million is rounded to 1.
float Rand();

// In [lo, hi); rounding to float may give hi itself.
float RandRange(float lo, float hi);

// lo to hi, both included. About once in 30 million draws the scaled number rounds up to 1 and the result is
// hi + 1.
int RandRange(int lo, int hi);

inline float DistSquared(TQ3Vector3D const& a, TQ3Vector3D const& b)
{
    float const dx = a.x - b.x;
    float const dy = a.y - b.y;
    float const dz = a.z - b.z;
    return dx * dx + dy * dy + dz * dz;
}

// The squares are summed in 32-bit arithmetic, which wraps around for large coordinates.
float Dist(int x1, int y1, int z1, int x2, int y2, int z2);

// The smallest power of two that is not below n; 1 for 0. n is at most 2^31.
unsigned Power2Ceiling(unsigned n);

// The value held within +-2^30, so that cell ranges never overflow; 0 for NaN.
inline float WithinCellLimits(float value)
{
    constexpr float kLimit = 1073741824.0F; // 2^30
    return value != value ? 0.0F : std::clamp(value, -kLimit, kLimit);
}

// The integer below (floor) or above (ceiling), within the cell limits. Cheaper than the library's roundings.
inline int FloorToInt(float value)
{
    float const held = WithinCellLimits(value);
    auto const whole = static_cast<int>(held);
    return static_cast<float>(whole) > held ? whole - 1 : whole;
}

inline int CeilToInt(float value)
{
    float const held = WithinCellLimits(value);
    auto const whole = static_cast<int>(held);
    return static_cast<float>(whole) < held ? whole + 1 : whole;
}
