// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The search from cube to cube behind a flight plan: A* over the centres of lattice cubes, through faces,
// edges and corners that leave enough room.
#pragma once

#include "math/qmath.h"

#include <vector>

class FieldMap;

// The cube centres from one to another, both included, such that each straight step keeps the margin from
// every asteroid. Empty when there is no such way.
std::vector<TQ3Vector3D> FindGates(FieldMap const& map, TQ3Vector3D const& from, TQ3Vector3D const& to,
                                   float margin);
