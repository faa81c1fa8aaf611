// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Vectors and quaternions in expectations.
#pragma once

#include "math/qmath.h"

#include <gmock/gmock.h>

#include <cmath>
#include <ostream>

inline void PrintTo(TQ3Vector3D const& v, std::ostream* stream)
{
    *stream << '(' << v.x << ", " << v.y << ", " << v.z << ')';
}

inline void PrintTo(TQ3Quaternion const& q, std::ostream* stream)
{
    *stream << '(' << q.w << "; " << q.x << ", " << q.y << ", " << q.z << ')';
}

namespace test
{

MATCHER_P3(IsExactly, x, y, z, "")
{
    return arg.x == x && arg.y == y && arg.z == z;
}

MATCHER_P4(IsNear, x, y, z, tolerance, "")
{
    return std::fabs(arg.x - x) <= tolerance && std::fabs(arg.y - y) <= tolerance &&
           std::fabs(arg.z - z) <= tolerance;
}

MATCHER_P4(IsQuaternion, w, x, y, z, "")
{
    return arg.w == w && arg.x == x && arg.y == y && arg.z == z;
}

MATCHER_P5(IsQuaternionNear, w, x, y, z, tolerance, "")
{
    return std::fabs(arg.w - w) <= tolerance && std::fabs(arg.x - x) <= tolerance &&
           std::fabs(arg.y - y) <= tolerance && std::fabs(arg.z - z) <= tolerance;
}

} // namespace test
