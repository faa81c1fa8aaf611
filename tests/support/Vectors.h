// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The game's vector routines by value, for tests that calculate a lot.
#pragma once

#include "math/qmath.h"

#include <algorithm>
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

// a at t = 0, b at t = 1.
inline TQ3Vector3D Between(TQ3Vector3D const& a, TQ3Vector3D const& b, float t)
{
    return Sum(a, Scaled(Difference(b, a), t));
}

inline TQ3Vector3D NearestOnSegment(TQ3Vector3D const& point, TQ3Vector3D const& from, TQ3Vector3D const& to)
{
    TQ3Vector3D const along = Difference(to, from);
    TQ3Vector3D const offset = Difference(point, from);
    float const squared = Vector3D_GetLengthSquared(&along);
    float const t = squared > 0.0F ? Vector3D_Dot(&offset, &along) / squared : 0.0F;
    return Between(from, to, std::clamp(t, 0.0F, 1.0F));
}

// Radians, 0 to pi, between two unit vectors.
inline float AngleBetween(TQ3Vector3D const& a, TQ3Vector3D const& b)
{
    TQ3Vector3D cross;
    Vector3D_Cross(&a, &b, &cross);
    return std::atan2(Length(cross), Vector3D_Dot(&a, &b));
}

} // namespace test
