// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Finds the asteroid that a moving sphere hits first. Universe::WillPathCollide asks it once a frame.
//
// The answer is that of a test of every cell in the box around the path. The box of a long frame, after the
// computer slept, would hold as many cells as the cube of its length: such a path is walked cell by cell
// instead, no farther from it than an asteroid can be found to touch it in single precision.
#pragma once

#include "world/field/FilledCells.h"

struct SearchedPath
{
    TQ3Vector3D start;
    TQ3Vector3D end;
    float radius = 0.0F; // of the moving sphere
    float margin = 0.0F; // the box reaches this far beyond a path towards greater coordinates
};

class PathSearch
{
public:
    // The universe is kept; its field is read now and must not change.
    explicit PathSearch(Universe const& universe);

    // The squared distance from the start to the nearest hit of the path or of its continuation, infinity
    // without one; hitPoint is set where one was found. Of hits equally near, that of the cell with the
    // smallest coordinates counts, x before y before z.
    float NearestHit(SearchedPath const& path, TQ3Vector3D* hitPoint) const;

private:
    Universe const& m_universe;
    FilledCells m_filled;
};
