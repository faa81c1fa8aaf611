// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "world/field/PathSearch.h"

#include "gfx/Roid.h"
#include "math/util.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <utility>

namespace
{

constexpr double kMostCellsTestedAll = 512.0; // a path of a second and less at the usual speed
constexpr double kUnitRoundoff = 0x1p-24;     // of single precision
constexpr double kShortDirection = 0.5;       // a unit vector is far longer, one that failed far shorter

// The cells that a path may touch along one axis. A path towards smaller coordinates is covered by swapping
// the ends; its padding then lies on the inner side of each, deliberately.
struct CellRange
{
    CellRange(float start, float end, float margin)
        : low(FloorToInt(start - margin)),
          high(CeilToInt(end + margin))
    {
        if (high < low)
        {
            std::swap(low, high);
        }
        low = std::max(low, 0); // space with a negative coordinate is empty
    }

    double Count() const { return std::max(0.0, static_cast<double>(high) - low + 1.0); }

    void NarrowTo(double lowest, double highest)
    {
        low = static_cast<int>(std::clamp(std::ceil(lowest), low + 0.0, high + 1.0));
        high = static_cast<int>(std::clamp(std::floor(highest), low - 1.0, high + 0.0));
    }

    int low;
    int high; // included
};

using CellBox = std::array<CellRange, 3>;

CellBox BoxOf(SearchedPath const& path)
{
    return {CellRange(path.start.x, path.end.x, path.margin),
            CellRange(path.start.y, path.end.y, path.margin),
            CellRange(path.start.z, path.end.z, path.margin)};
}

// Tests cells, in any order, and keeps the nearest hit.
class HitFinder
{
public:
    HitFinder(Universe const& universe, SearchedPath const& path, TQ3Vector3D* hitPoint)
        : m_universe(universe),
          m_path(path),
          m_hitPoint(hitPoint)
    {
    }

    float Nearest() const { return m_nearest; }

    void TestCell(FieldCell const& cell)
    {
        Roid* const roid = m_universe.RoidAtCell(cell[0], cell[1], cell[2]);
        if (roid == nullptr)
        {
            return;
        }
        roid->MoveTo(static_cast<float>(cell[0]), static_cast<float>(cell[1]), static_cast<float>(cell[2]));
        TQ3Vector3D point;
        float distance = 0.0F;
        if (roid->ComputePathIntersection(m_path.start, m_path.end, m_path.radius, &point, &distance))
        {
            Keep(cell, point);
        }
    }

    void TestAll(CellBox const& box)
    {
        for (int x = box[0].low; x <= box[0].high; ++x)
        {
            for (int y = box[1].low; y <= box[1].high; ++y)
            {
                for (int z = box[2].low; z <= box[2].high; ++z)
                {
                    TestCell({x, y, z});
                }
            }
        }
    }

private:
    void Keep(FieldCell const& cell, TQ3Vector3D const& point)
    {
        float const squared = DistSquared(m_path.start, point);
        if (squared < m_nearest || (squared == m_nearest && cell < m_cell))
        {
            m_nearest = squared;
            m_cell = cell;
            *m_hitPoint = point;
        }
    }

    Universe const& m_universe;
    SearchedPath const& m_path;
    TQ3Vector3D* m_hitPoint;
    float m_nearest = std::numeric_limits<float>::infinity();
    FieldCell m_cell{-1, -1, -1};
};

// The path's line as the test of an asteroid sees it.
struct Line
{
    explicit Line(SearchedPath const& path) : start{path.start.x, path.start.y, path.start.z}
    {
        TQ3Vector3D unit;
        Vector3D_Subtract(&path.end, &path.start, &unit);
        Vector3D_Normalize(&unit, &unit);
        direction = {unit.x, unit.y, unit.z};
        squaredLength =
            direction[0] * direction[0] + direction[1] * direction[1] + direction[2] * direction[2];
    }

    bool IsKnown() const { return std::isfinite(squaredLength); }

    std::array<double, 3> start;
    std::array<double, 3> direction{}; // nearly of length 1, unless the path has hardly a length or too much
    double squaredLength = 0.0;        // of the direction
};

// How far from the line a touching asteroid's centre may lie.
//
// The test takes the difference of two squares, each as large as the squared distance s * s from the start,
// and neither exact: what it finds is a hit within sqrt(reach * reach + k * s * s) of the line. Rounding adds
// up to no more than twelve units in the last place; a direction a little too long adds its excess.
class Reach
{
public:
    Reach(Line const& line, double greatestReach)
        : m_reach(greatestReach),
          m_growth(std::max(0.0, 12.0 * kUnitRoundoff + line.squaredLength - 1.0)),
          m_startsAt(std::max({std::fabs(line.start[0]), std::fabs(line.start[1]), std::fabs(line.start[2])}))
    {
    }

    // along: from the start to the line's point next to the cells.
    double At(double along) const
    {
        double const farthest = FarthestCell(along);
        return std::sqrt(m_reach * m_reach + m_growth * farthest * farthest) + Blur(along);
    }

    // Coordinates are rounded too: of the cells, of the differences to them, of the hit.
    double Blur(double along) const
    {
        return 1e-3 + 4.0 * kUnitRoundoff * (m_startsAt + FarthestCell(along));
    }

private:
    double FarthestCell(double along) const { return 1.01 * (along + 2.0 * m_reach + 1.0); }

    double m_reach;
    double m_growth;
    double m_startsAt; // greatest coordinate
};

// Walks slab by slab, each one cell thick, along the axis that the path follows most; in a slab row by row,
// through the cells near the line.
class LineWalk
{
public:
    LineWalk(FilledCells const& filled, Line const& line, CellBox const& box, Reach const& reach)
        : m_filled(filled),
          m_line(line),
          m_box(box),
          m_reach(reach)
    {
        auto const length = [&](std::size_t axis) { return std::fabs(line.direction[axis]); };
        m_main = length(1) > length(0) ? 1 : 0;
        m_main = length(2) > length(m_main) ? 2 : m_main;
        m_across = m_main == 0 ? 1 : 0;
        m_along = m_main == 2 ? 1 : 2;
    }

    void Run(HitFinder& finder) const
    {
        CellRange const& slabs = m_box[m_main];
        bool const forward = m_line.direction[m_main] > 0.0;
        int slab = forward ? slabs.low : slabs.high;
        for (double left = slabs.Count(); left > 0.0 && !IsBeyondNearest(slab, finder); left -= 1.0)
        {
            WalkSlab(slab, finder);
            slab += forward ? 1 : -1;
        }
    }

private:
    // Where the line passes a slab: how far from its start, negative behind it.
    double Passage(int slab) const { return (slab - m_line.start[m_main]) / m_line.direction[m_main]; }

    // Nothing in this slab and those behind it is hit nearer than what was found. A slab's cells lie up to
    // 1.42 times their distance from the line before the point of passage, and are hit up to that distance
    // earlier.
    bool IsBeyondNearest(int slab, HitFinder const& finder) const
    {
        double const passage = Passage(slab);
        double const earliest = passage * (1.0 - 1e-5) - 4.0 * m_reach.At(std::fabs(passage));
        return earliest > 0.0 && earliest * earliest > double{finder.Nearest()};
    }

    void WalkSlab(int slab, HitFinder& finder) const
    {
        double const passage = Passage(slab);
        double const reach = m_reach.At(std::fabs(passage));
        CellRange across = Near(m_across, passage, reach);
        CellRange const along = Near(m_along, passage, reach);
        FieldCell cell{};
        cell[m_main] = slab;
        for (cell[m_across] = across.low; cell[m_across] <= across.high; ++cell[m_across])
        {
            WalkRow(cell, along, finder);
        }
    }

    // The cells that far from the line, in a slab that cuts it at a slant.
    CellRange Near(std::size_t axis, double passage, double reach) const
    {
        std::size_t const other = 3 - m_main - axis;
        double const slant =
            std::sqrt(std::max(0.0, 1.0 - m_line.direction[other] * m_line.direction[other]));
        double const half = reach * 1.0001 * slant / std::fabs(m_line.direction[m_main]);
        double const middle = m_line.start[axis] + passage * m_line.direction[axis];
        CellRange range = m_box[axis];
        range.NarrowTo(middle - half, middle + half);
        return range;
    }

    void WalkRow(FieldCell cell, CellRange const& range, HitFinder& finder) const
    {
        constexpr int kSize = Universe::kFieldSize;
        int low = range.low;
        while (low <= range.high)
        {
            int const first = low - low % kSize;
            int const last = std::min(first + kSize - 1, range.high);
            cell[m_along] = low;
            unsigned filled = m_filled.Occupied(static_cast<int>(m_along), cell);
            filled &= ~0U << static_cast<unsigned>(low - first);
            filled &= ~0U >> static_cast<unsigned>(31 - (last - first));
            for (; filled != 0; filled &= filled - 1)
            {
                cell[m_along] = first + std::countr_zero(filled);
                finder.TestCell(cell);
            }
            low = last + 1;
        }
    }

    FilledCells const& m_filled;
    Line const& m_line;
    CellBox const& m_box;
    Reach const& m_reach;
    std::size_t m_main = 0;   // across the slabs
    std::size_t m_across = 1; // from row to row
    std::size_t m_along = 2;  // along the rows
};

} // namespace

PathSearch::PathSearch(Universe const& universe) : m_universe(universe), m_filled(universe)
{
}

float PathSearch::NearestHit(SearchedPath const& path, TQ3Vector3D* hitPoint) const
{
    CellBox box = BoxOf(path);
    HitFinder finder(m_universe, path, hitPoint);
    if (m_filled.IsEmpty())
    {
        return finder.Nearest();
    }
    if (box[0].Count() * box[1].Count() * box[2].Count() <= kMostCellsTestedAll)
    {
        finder.TestAll(box);
        return finder.Nearest();
    }
    Line const line(path);
    if (!line.IsKnown())
    {
        return finder.Nearest(); // every test of an asteroid comes out as no number
    }
    double const greatestReach = std::fabs(double{path.radius}) + m_filled.GreatestRadius();
    Reach const reach(line, greatestReach);
    if (line.squaredLength < kShortDirection)
    {
        // Without a direction only those asteroids can be hit that hold the start.
        for (std::size_t axis = 0; axis < 3; ++axis)
        {
            double const half = 2.0 * greatestReach + reach.Blur(1.0);
            box[axis].NarrowTo(line.start[axis] - half, line.start[axis] + half);
        }
        finder.TestAll(box);
        return finder.Nearest();
    }
    LineWalk(m_filled, line, box, reach).Run(finder);
    return finder.Nearest();
}
