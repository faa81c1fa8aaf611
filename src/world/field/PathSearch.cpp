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

constexpr double kMostCellsAtOnce = 512.0; // a path of a second and less at the usual speed
constexpr double kPieceLength = 8.0;       // of the first; far out the pieces are wider, and longer too
constexpr double kPieceGrowth = 1.001;
constexpr double kPlaceSlack = 0.01; // for the rounding of coordinates

// The test of an asteroid takes the difference of two squares, each as large as the squared distance from the
// start. Rounding puts the difference off by up to 12 * 2^-24 of that: this is the square root.
constexpr double kRounding = 0.00085;

// Here the search ends: asteroids 14 units beside the path are taken for hits.
constexpr double kFarthest = 16384.0;

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

PathHit NearestIn(Box const& box, AsteroidField const& field, SearchedPath const& path)
{
    PathHit nearest;
    for (int x = box[0].low; x <= box[0].high; ++x)
    {
        for (int y = box[1].low; y <= box[1].high; ++y)
        {
            auto const test = [&](int z, int)
            {
                TQ3Vector3D const place{static_cast<float>(x), static_cast<float>(y), static_cast<float>(z)};
                PathHit hit;
                float distance = 0.0F;
                if (field.RoidAt(x, y, z)->ComputePathIntersectionAt(place, path.start, path.end, path.radius,
                                                                     &hit.point, &distance))
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

// The line that a path follows.
struct Line
{
    explicit Line(SearchedPath const& path)
        : start{path.start.x, path.start.y, path.start.z},
          direction{path.end.x - start[0], path.end.y - start[1], path.end.z - start[2]},
          length(std::hypot(direction[0], direction[1], direction[2]))
    {
        for (double& component : direction)
        {
            component /= length;
        }
    }

    std::array<double, 3> start;
    std::array<double, 3> direction;
    double length;
};

// The cells of the box that the stretch of the line between two distances from its start may touch.
Box Around(Line const& line, double begin, double end, double reach, Box box)
{
    for (std::size_t axis = 0; axis < 3; ++axis)
    {
        double const a = line.start[axis] + line.direction[axis] * begin;
        double const b = line.start[axis] + line.direction[axis] * end;
        Range& range = box[axis];
        double const lowest = range.low;
        double const highest = range.high;
        range.low = static_cast<int>(std::clamp(std::ceil(std::min(a, b) - reach), lowest, highest + 1.0));
        range.high = static_cast<int>(std::clamp(std::floor(std::max(a, b) + reach), lowest - 1.0, highest));
    }
    return box;
}

PathHit NearestByPieces(Box const& box, AsteroidField const& field, SearchedPath const& path)
{
    if (!std::isfinite(DistSquared(path.end, path.start)))
    {
        return {}; // the test of an asteroid finds no direction in such a path
    }
    Line const line(path);
    double const touching = std::fabs(double{path.radius}) + field.GetGreatestRadius();
    double begin = 0.0;
    while (begin < std::min(line.length, kFarthest))
    {
        double const end = begin * kPieceGrowth + kPieceLength;
        double const reach = std::hypot(touching, kRounding * end) + kPlaceSlack;
        PathHit const hit = NearestIn(Around(line, begin, end, reach, box), field, path);
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
    return isShort ? NearestIn(box, field, path) : NearestByPieces(box, field, path);
}
