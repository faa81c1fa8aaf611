// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Finds the asteroid that a moving sphere hits first.
//
// All the cells in the box around the path are tested. The box of a long frame, after the computer slept,
// would hold as many cells as the cube of its length: such a path is cut into pieces, each with a box of its
// own, and the first piece with a hit ends the search.
#pragma once

#include "math/qmath.h"

#include <limits>

class AsteroidField;

struct SearchedPath
{
    TQ3Vector3D start;
    TQ3Vector3D end;
    float radius = 0.0F; // of the moving sphere
    float margin = 0.0F; // the box reaches this far beyond the path towards greater coordinates
};

struct PathHit
{
    float squaredDistance = std::numeric_limits<float>::infinity(); // from the start; infinity: no hit
    TQ3Vector3D point;                                              // of the sphere's centre
};

// The nearest hit; it may lie beyond the path's end. Of hits equally near, that of the cell with the smallest
// coordinates counts, x before y before z.
PathHit NearestHit(AsteroidField const& field, SearchedPath const& path);
