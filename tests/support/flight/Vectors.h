// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The game's vector routines by value, for tests that calculate a lot.
#pragma once

#include "math/qmath.h"

#include <cmath>

namespace test
{

inline TQ3Vector3D Sum(TQ3Vector3D const& a, TQ3Vector3D const& b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

inline TQ3Vector3D Difference(TQ3Vector3D const& a, TQ3Vector3D const& b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

inline TQ3Vector3D Scaled(TQ3Vector3D const& a, float s)
{
    return {a.x * s, a.y * s, a.z * s};
}

inline float Length(TQ3Vector3D const& a)
{
    return std::sqrt(Vector3D_GetLengthSquared(&a));
}

inline TQ3Vector3D Normalized(TQ3Vector3D a)
{
    Vector3D_Normalize(&a, &a);
    return a;
}

} // namespace test
