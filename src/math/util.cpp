// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "math/util.h"

#include "platform/base/Random.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <cstdint>
#include <utility>

namespace
{

constexpr double kRandScale = 4.656612873077393e-10; // 2^-31

} // namespace

float FltClamp(float value, float min, float max)
{
    if (min > value)
    {
        return min;
    }
    return max < value ? max : value;
}

float clamp(float value, float lo, float hi)
{
    if (lo > value)
    {
        return lo;
    }
    return hi < value ? hi : value;
}

void IntSwap(int& a, int& b)
{
    std::swap(a, b);
}

void FltSwap(float& a, float& b)
{
    std::swap(a, b);
}

bool FltIsCloseTo(float a, float b)
{
    return std::fabs(static_cast<double>(a - b)) < 0.01;
}

float Rand()
{
    return static_cast<float>(platform::Random31() * kRandScale);
}

float RandRange(float lo, float hi)
{
    return static_cast<float>(platform::Random31() * kRandScale * (hi - lo) + lo);
}

int RandRange(int lo, int hi)
{
    float const scaled = Rand() * static_cast<float>(hi - lo + 1);
    return static_cast<int>(std::floor(static_cast<double>(scaled) + lo));
}

float Dist(int x1, int y1, int z1, int x2, int y2, int z2)
{
    auto const square = [](int a, int b)
    {
        std::uint32_t const difference = static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b);
        return difference * difference;
    };
    auto const sum = static_cast<std::int32_t>(square(x1, x2) + square(y1, y2) + square(z1, z2));
    return std::sqrt(static_cast<float>(sum));
}

unsigned Power2Ceiling(unsigned n)
{
    assert(n <= 0x80000000U);
    unsigned power = 1;
    while (power < n)
    {
        power *= 2;
    }
    return power;
}
