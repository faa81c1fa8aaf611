// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "support/FieldMap.h"

#include "gfx/Roid.h"
#include "math/util.h"
#include "support/Vectors.h"
#include "world/Camera.h"
#include "world/Universe.h"

#include <algorithm>
#include <cmath>

namespace
{

// Within a layer of the lattice across the line's longest axis, an asteroid that comes within its greatest
// reach (0.7) and kOpen of the line lies at most that distance times the square root of 3 from where the line
// crosses the layer.
constexpr float kLayerReach = 1.74F;

float Component(TQ3Vector3D const& v, int axis)
{
    return axis == 0 ? v.x : axis == 1 ? v.y : v.z;
}

int LongestAxis(TQ3Vector3D const& v)
{
    float const x = std::fabs(v.x);
    float const y = std::fabs(v.y);
    float const z = std::fabs(v.z);
    if (x >= y && x >= z)
    {
        return 0;
    }
    return y >= z ? 1 : 2;
}

float DistanceToSegment(TQ3Vector3D const& point, TQ3Vector3D const& from, TQ3Vector3D const& to)
{
    return std::sqrt(DistSquared(point, test::NearestOnSegment(point, from, to)));
}

} // namespace

FieldMap::FieldMap(Universe const& universe)
    : m_universe(universe),
      m_shipRadius(universe.GetCamera()->GetRadius())
{
}

float FieldMap::Reach(int x, int y, int z) const
{
    Roid const* const roid = m_universe.RoidAtCell(x, y, z);
    return roid == nullptr ? 0.0F : roid->GetRadius() + m_shipRadius;
}

float FieldMap::Clearance(TQ3Vector3D const& from, TQ3Vector3D const& to) const
{
    int const axis = LongestAxis(test::Difference(to, from));
    float const a = Component(from, axis);
    float const b = Component(to, axis);
    int const last = CeilToInt(std::max(a, b)) + 1;
    float clearance = kOpen;
    for (int layer = FloorToInt(std::min(a, b)) - 1; layer <= last && clearance >= 0.0F; ++layer)
    {
        clearance = std::min(clearance, ClearanceInLayer(layer, axis, from, to));
    }
    return clearance;
}

float FieldMap::ClearanceInLayer(int layer, int axis, TQ3Vector3D const& from, TQ3Vector3D const& to) const
{
    float const length = Component(to, axis) - Component(from, axis);
    float const t = length == 0.0F ? 0.0F : (static_cast<float>(layer) - Component(from, axis)) / length;
    TQ3Vector3D const crossing = test::Between(from, to, std::clamp(t, 0.0F, 1.0F));
    float const u = Component(crossing, (axis + 1) % 3);
    float const v = Component(crossing, (axis + 2) % 3);

    float clearance = kOpen;
    for (int i = CeilToInt(u - kLayerReach); i <= FloorToInt(u + kLayerReach); ++i)
    {
        for (int j = CeilToInt(v - kLayerReach); j <= FloorToInt(v + kLayerReach); ++j)
        {
            int cell[3];
            cell[axis] = layer;
            cell[(axis + 1) % 3] = i;
            cell[(axis + 2) % 3] = j;
            float const reach = Reach(cell[0], cell[1], cell[2]);
            if (reach > 0.0F)
            {
                TQ3Vector3D const centre{static_cast<float>(cell[0]), static_cast<float>(cell[1]),
                                         static_cast<float>(cell[2])};
                clearance = std::min(clearance, DistanceToSegment(centre, from, to) - reach);
            }
        }
    }
    return clearance;
}
