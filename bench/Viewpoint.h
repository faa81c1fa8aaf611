// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The places and directions from which the benchmarks look at the field: from outside it to its depths, along
// the diagonal, where the view holds the fewest cells, and close to the x axis, where it holds the most.
#pragma once

#include "math/qmath.h"

#include <string>
#include <vector>

class Camera;

struct Viewpoint
{
    float place; // all three coordinates, world units
    TQ3Vector3D direction;
    char const* directionName;
};

std::vector<Viewpoint> const& Viewpoints();

// "8/diagonal"
std::string Name(Viewpoint const& viewpoint);

// Puts a ship that still faces as its world was made there, facing that way.
void LookFrom(Viewpoint const& viewpoint, Camera& camera);
