// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The course of a race: eight waypoints, which of them is next, and where its marker stands. It leads from
// just outside the field into its depths, and back to near its edge.
#pragma once

#include "math/qmath.h"

#include <array>

class Course
{
public:
    static constexpr int kWaypointCount = 8;

    // Drawn from the random sequence.
    Course();

    // Lays out new waypoints; the current one and the marker stay.
    void Randomize();

    // Waypoint n becomes the current one and gets the marker, unless the last one is current already.
    void GoTo(int n);

    // The current waypoint was touched: on to the next, true. After the last there is none: false, and the
    // marker is put out of the way.
    bool Advance();

    int GetCurrent() const { return m_current; }
    TQ3Vector3D const& GetMarker() const { return m_marker; }
    TQ3Vector3D const& GetWaypoint(int index) const { return m_waypoints[static_cast<std::size_t>(index)]; }

private:
    std::array<TQ3Vector3D, kWaypointCount> m_waypoints;
    TQ3Vector3D m_marker;
    int m_current = 0;
};
