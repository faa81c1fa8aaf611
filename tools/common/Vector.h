// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A vector of three numbers: a direction or a point on the rock, or a colour's red, green and blue in linear
// light.
#pragma once

#include <cmath>

namespace maker
{

struct Vector
{
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

inline Vector operator+(Vector const& a, Vector const& b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

inline Vector operator-(Vector const& a, Vector const& b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

inline Vector operator*(Vector const& a, double s)
{
    return {a.x * s, a.y * s, a.z * s};
}

// Part by part: a light of one colour through a filter of another.
inline Vector operator*(Vector const& a, Vector const& b)
{
    return {a.x * b.x, a.y * b.y, a.z * b.z};
}

inline double Dot(Vector const& a, Vector const& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

inline Vector Cross(Vector const& a, Vector const& b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

inline Vector Normalized(Vector const& a)
{
    return a * (1.0 / std::sqrt(Dot(a, a)));
}

inline Vector Mixed(Vector const& a, Vector const& b, double share)
{
    return a + (b - a) * share;
}

} // namespace maker
