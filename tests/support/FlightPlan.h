// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The way that the pilot means to fly: a line of straight legs through the field, past every waypoint that is
// left.
//
// Centres of lattice cubes are the places to be: a line from one to the next through the face between them
// always keeps clear of the asteroids, if only by 0.007 units where a corner of the face holds one of the
// largest. The plan looks for wider gates first and cuts corners wherever a straight line leaves enough room.
#pragma once

#include "math/qmath.h"

#include <cstddef>
#include <vector>

class FieldMap;

struct Leg
{
    TQ3Vector3D from;
    TQ3Vector3D to;
    TQ3Vector3D direction; // unit
    float length;          // units
    float clearance;       // what the leg keeps from every asteroid, units
    std::size_t waypoint;  // leads there: the index in the list that the plan was made for
};

// The legs from the ship's place past all the waypoints, in order. There is always a way.
std::vector<Leg> PlanFlight(FieldMap const& map, TQ3Vector3D const& from,
                            std::vector<TQ3Vector3D> const& waypoints);
