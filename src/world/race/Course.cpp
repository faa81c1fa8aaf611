// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "world/race/Course.h"

#include "math/util.h"

namespace
{

constexpr int kLast = Course::kWaypointCount - 1;
constexpr TQ3Vector3D kFirstWaypoint{-3.5F, -3.5F, -5.5F};      // just outside the field, near the start
constexpr TQ3Vector3D kDeepestWaypoint{108.5F, 108.5F, 108.5F}; // the last but one
constexpr TQ3Vector3D kFinish{14.5F, 14.5F, 14.5F};             // near the edge
constexpr TQ3Vector3D kParkedMarker{100.5F, 100.5F, 100.5F};    // once the race is over
constexpr int kDepthStep = 18;                                  // units from one waypoint to the next

// A place at that depth, off the diagonal to one of three sides, at the centre of a lattice cube: the halves
// keep it clear of the asteroids.
TQ3Vector3D WaypointOffSide(int side, int depth)
{
    float const full = static_cast<float>(depth) + 0.5F;
    int const halfDepth = depth / 2;
    float const half = static_cast<float>(halfDepth) + 0.5F;
    TQ3Vector3D const places[] = {{full, full, half}, {half, full, full}, {full, half, full}};
    return places[side];
}

} // namespace

Course::Course()
{
    Randomize();
    m_marker = m_waypoints.front();
}

void Course::Randomize()
{
    m_waypoints.front() = kFirstWaypoint;
    m_waypoints[kLast - 1] = kDeepestWaypoint;
    m_waypoints[kLast] = kFinish;

    int side = RandRange(0, 2);
    for (int k = 1; k < kLast - 1; ++k)
    {
        side = (side + RandRange(1, 2)) % 3; // never the same side twice running
        m_waypoints[static_cast<std::size_t>(k)] = WaypointOffSide(side, kDepthStep * k);
    }
}

void Course::GoTo(int n)
{
    if (m_current < kLast)
    {
        m_current = n;
        m_marker = GetWaypoint(n);
    }
}

bool Course::Advance()
{
    if (m_current == kLast)
    {
        m_marker = kParkedMarker;
        return false;
    }
    GoTo(m_current + 1);
    return true;
}
