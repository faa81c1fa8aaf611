// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Smooth noise in space, for the rock: it is evaluated at points of the sphere, so that the map has no seam
// and no pole where it is squeezed.
#pragma once

#include "common/Vector.h"

#include <cstdint>

namespace maker
{

// About -1 to 1, mean 0, with features about one unit wide.
double SpaceNoise(Vector const& point, std::uint64_t seed);

// Layers of SpaceNoise, each of twice the frequency of the last and of its weight times gain; about -1 to 1.
double LayeredNoise(Vector const& point, int layers, double gain, std::uint64_t seed);

// Thin lines: near 1 where a layered noise passes through 0, falling to 0 within the width.
double LineNoise(Vector const& point, double width, std::uint64_t seed);

} // namespace maker
