// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "world/field/PathSearch.h"

#include "math/util.h"
#include "world/field/AsteroidField.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace
{

constexpr double kMostCellsAtOnce = 512.0; // enough for a path of a second at the usual speed
constexpr float kPieceLength = 8.0F;       // of the first; each piece is longer than the one before
constexpr float kPieceGrowth = 1.003F;
constexpr float kPlaceSlack = 0.01F; // for the rounding of coordinates

// The test of an asteroid takes the difference of two squares, each as large as the squared distance from the
// start. Rounding errors are up to 12 * 2^-24 of that; this is the square root.
constexpr float kRounding = 0.00085F;

// Here the search ends: rounding already takes asteroids 14 units beside the path for hits.
constexpr float kFarthest = 16384.0F;

// Cells along one axis.
struct Range
{
    double Count() const { return std::max(0.0, static_cast<double>(high) - low + 1.0); }

    int low;
    int high; // included
};

using Box = std::array<Range, 3>;

// The margin widens the range of a path towards greater coordinates. It narrows that of a path towards
// smaller ones, whose ends change places here.
Range CellsBetween(float start, float end, float margin)
{
    int low = FloorToInt(start - margin);
    int high = CeilToInt(end + margin);
    if (high < low)
    {
        std::swap(low, high);
    }
    return {std::max(low, 0), high};
}

// rowsOf(x): those rows of the box's plane x that are tested.
template <typename RowsOf>
PathHit NearestIn(Box const& box, AsteroidField const& field, SearchedPath const& path, RowsOf const& rowsOf)
{
    PathHit nearest;
    for (int x = box[0].low; x <= box[0].high; ++x)
    {
        Range const rows = rowsOf(x);
        for (int y = rows.low; y <= rows.high; ++y)
        {
            auto const test = [&](int z, int, Roid const& roid)
            {
                TQ3Vector3D const place{static_cast<float>(x), static_cast<float>(y), static_cast<float>(z)};
                PathHit hit;
                float distance = 0.0F;
                if (roid.ComputePathIntersectionAt(place, path.start, path.end, path.radius, &hit.point,
                                                   &distance))
                {
                    hit.squaredDistance = DistSquared(path.start, hit.point);
                    nearest = hit.squaredDistance < nearest.squaredDistance ? hit : nearest;
                }
            };
            field.ForEachIn(x, y, box[2].low, box[2].high, test);
        }
    }
    return nearest;
}

// The cells of the range that are no farther than reach from what lies between two coordinates.
Range Near(float a, float b, float reach, Range const& range)
{
    return {std::max(range.low, CeilToInt(std::min(a, b) - reach)),
            std::min(range.high, FloorToInt(std::max(a, b) + reach))};
}

// Those rows of the plane x, of a range, that are no farther than reach from a line, as seen along z.
// direction: of length 1.
Range RowsNear(int x, TQ3Vector3D const& start, TQ3Vector3D const& direction, float reach, Range const& range)
{
    constexpr float kSteepest = 8.0F;
    if (std::fabs(direction.y) > kSteepest * std::fabs(direction.x))
    {
        return range;
    }
    float const slope = direction.x != 0.0F ? direction.y / direction.x : 0.0F;
    float const y = start.y + (static_cast<float>(x) - start.x) * slope;
    return Near(y, y, reach * std::hypot(1.0F, slope), range);
}

PathHit NearestByPieces(Box const& box, AsteroidField const& field, SearchedPath const& path)
{
    TQ3Vector3D const& start = path.start;
    TQ3Vector3D step;
    float length = 0.0F;
    Vector3D_Subtract(&path.end, &start, &step);
    Vector3D_Normalize(&step, &step, &length);
    if (!std::isfinite(length))
    {
        return {};
    }
    float const touching = std::fabs(path.radius) + field.GetGreatestRadius();
    float begin = 0.0F;
    while (begin < std::min(length, kFarthest))
    {
        float const end = begin * kPieceGrowth + kPieceLength;
        float const reach = std::hypot(touching, kRounding * end) + kPlaceSlack;
        Box const piece{Near(start.x + step.x * begin, start.x + step.x * end, reach, box[0]),
                        Near(start.y + step.y * begin, start.y + step.y * end, reach, box[1]),
                        Near(start.z + step.z * begin, start.z + step.z * end, reach, box[2])};
        PathHit const hit =
            NearestIn(piece, field, path, [&](int x) { return RowsNear(x, start, step, reach, piece[1]); });
        if (hit.squaredDistance <= end * end)
        {
            return hit;
        }
        begin = end;
    }
    return {};
}

} // namespace

PathHit NearestHit(AsteroidField const& field, SearchedPath const& path)
{
    Box const box{CellsBetween(path.start.x, path.end.x, path.margin),
                  CellsBetween(path.start.y, path.end.y, path.margin),
                  CellsBetween(path.start.z, path.end.z, path.margin)};
    bool const isShort = box[0].Count() * box[1].Count() * box[2].Count() <= kMostCellsAtOnce;
    return isShort ? NearestIn(box, field, path, [&box](int) { return box[1]; })
                   : NearestByPieces(box, field, path);
}
