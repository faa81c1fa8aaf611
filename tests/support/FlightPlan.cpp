// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "support/FlightPlan.h"

#include "math/util.h"
#include "support/FieldMap.h"
#include "support/GateSearch.h"
#include "support/Vectors.h"

#include <algorithm>

namespace
{

// What a plan keeps from the asteroids, the widest first. Gates of the last kind are always open.
constexpr float kMargins[] = {0.15F, 0.08F, 0.003F};

constexpr std::size_t kLongestShortCut = 40; // places that one straight line may replace

// Where to enter the lattice of cube centres: the ship itself may be anywhere in its cube.
TQ3Vector3D NearestCentre(TQ3Vector3D const& p)
{
    return {static_cast<float>(FloorToInt(p.x)) + 0.5F, static_cast<float>(FloorToInt(p.y)) + 0.5F,
            static_cast<float>(FloorToInt(p.z)) + 0.5F};
}

// The farthest place that a straight line from places[from] reaches with that margin; at least the next one.
std::size_t FarthestInSight(FieldMap const& map, std::vector<TQ3Vector3D> const& places, std::size_t from,
                            float margin)
{
    std::size_t const last = std::min(places.size() - 1, from + kLongestShortCut);
    for (std::size_t to = last; to > from + 1; --to)
    {
        if (map.Clearance(places[from], places[to]) >= margin)
        {
            return to;
        }
    }
    return from + 1;
}

void AppendLeg(FieldMap const& map, TQ3Vector3D const& from, TQ3Vector3D const& to, std::size_t waypoint,
               std::vector<Leg>& legs)
{
    TQ3Vector3D const along = test::Difference(to, from);
    if (float const length = test::Length(along); length > 0.001F)
    {
        legs.push_back({from, to, test::Normalized(along), length, map.Clearance(from, to), waypoint});
    }
}

void AppendWay(FieldMap const& map, TQ3Vector3D const& from, TQ3Vector3D const& to, std::size_t waypoint,
               std::vector<Leg>& legs)
{
    std::vector<TQ3Vector3D> places{from};
    float usedMargin = 0.0F;
    for (float const margin : kMargins)
    {
        std::vector<TQ3Vector3D> const centres = FindGates(map, NearestCentre(from), to, margin);
        if (!centres.empty())
        {
            places.insert(places.end(), centres.begin(), centres.end());
            usedMargin = margin;
            break;
        }
    }
    for (std::size_t i = 0; i + 1 < places.size();)
    {
        std::size_t const next = FarthestInSight(map, places, i, usedMargin);
        AppendLeg(map, places[i], places[next], waypoint, legs);
        i = next;
    }
}

} // namespace

std::vector<Leg> PlanFlight(FieldMap const& map, TQ3Vector3D const& from,
                            std::vector<TQ3Vector3D> const& waypoints)
{
    std::vector<Leg> legs;
    TQ3Vector3D start = from;
    for (std::size_t i = 0; i < waypoints.size(); ++i)
    {
        AppendWay(map, start, waypoints[i], i, legs);
        start = waypoints[i];
    }
    return legs;
}
