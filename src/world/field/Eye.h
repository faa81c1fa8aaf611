// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Where the scene is seen from, and in which projection. OpenGL's projection is set from these constants, and
// what is in view and what is hidden is worked out with the same ones.
#pragma once

#include "math/qmath.h"

struct Eye
{
    static constexpr double kFieldOfViewDegrees = 45.0; // vertical
    static constexpr float kFieldOfView = 0.7853982F;   // the same in radians
    static constexpr float kHalfTangent = 0.41421357F;  // tangent of half of it
    static constexpr double kNear = 0.1;                // world units
    static constexpr double kFar = 100.0;

    TQ3Vector3D position;
    TQ3Vector3D facing; // unit vector
    TQ3Vector3D up;     // unit vector
};
