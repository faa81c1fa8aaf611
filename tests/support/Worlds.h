// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Worlds whose contents are known, and a ship placed in them.
#pragma once

#include "math/qmath.h"

#include <memory>

class AsteroidField;
class Camera;
class Universe;

namespace test
{

// A field alone, always from the same seed. Densities: the share of filled cells at the edge and in the
// depths.
std::unique_ptr<AsteroidField> SeededField(float edge, float centre, float minR, float maxR);

std::unique_ptr<Universe> EmptyWorld();

// An asteroid of that radius in every cell.
std::unique_ptr<Universe> FullWorld(float asteroidRadius);

std::unique_ptr<Universe> SeededWorld(unsigned seed);

// The ship at that place, unturned: facing (0, 0, -1) with y up. Speed range, throttle and turn as new.
void LayShip(Camera& ship, TQ3Vector3D const& position);

} // namespace test
