// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The asteroid field as a pilot sees it on a chart: how much room a straight line leaves to the asteroids
// around it. FlightPlan looks for its way on it.
#pragma once

#include "math/qmath.h"

class Universe;

class FieldMap
{
public:
    // Lines that keep farther than this from every asteroid all count as equally free.
    static constexpr float kOpen = 0.3F;

    explicit FieldMap(Universe const& universe);

    // The distance below which the ship's centre touches the asteroid of a cell; 0 where the cell is empty.
    float Reach(int x, int y, int z) const;

    // The least distance that the ship keeps from the hull of every asteroid on its way along the line, kOpen
    // at most. Negative: it would hit one.
    float Clearance(TQ3Vector3D const& from, TQ3Vector3D const& to) const;

private:
    float ClearanceInLayer(int layer, int axis, TQ3Vector3D const& from, TQ3Vector3D const& to) const;

    Universe const& m_universe;
    float m_shipRadius;
};
