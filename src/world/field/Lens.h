// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The projection of the scene: what sets it and what reckons with it use the same numbers.
#pragma once

namespace lens
{

constexpr double kFieldOfViewDegrees = 45.0; // vertical
constexpr float kFieldOfView = 0.7853982F;   // the same in radians
constexpr float kHalfTangent = 0.41421357F;  // of half of it
constexpr double kNear = 0.1;                // world units
constexpr double kFar = 100.0;

} // namespace lens
