// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "support/GateSearch.h"

#include "math/util.h"
#include "support/FieldMap.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <queue>

namespace
{

constexpr int kDetour = 10;         // cubes beyond the box around start and goal that a way may use
constexpr float kHaste = 1.2F;      // more than 1: fewer cubes looked at for a slightly longer way
constexpr float kNarrowness = 2.0F; // how much longer than a free step one through the narrowest gate counts

struct Cube
{
    int x;
    int y;
    int z;

    bool operator==(Cube const&) const = default;
};

Cube CubeAt(TQ3Vector3D const& p)
{
    return {FloorToInt(p.x), FloorToInt(p.y), FloorToInt(p.z)};
}

TQ3Vector3D Centre(Cube const& c)
{
    return {static_cast<float>(c.x) + 0.5F, static_cast<float>(c.y) + 0.5F, static_cast<float>(c.z) + 0.5F};
}

// The lattice points that a step from the cube by d passes closest to, and how closely: the four corners of a
// face, the two ends of an edge, or the corner itself.
float StepClearance(FieldMap const& map, Cube const& c, Cube const& d)
{
    int const axes = std::abs(d.x) + std::abs(d.y) + std::abs(d.z);
    constexpr float kDistances[] = {0.0F, 0.70710678F, 0.5F, 0.0F};
    int const lastX = d.x == 0 ? 1 : 0;
    int const lastY = d.y == 0 ? 1 : 0;
    int const lastZ = d.z == 0 ? 1 : 0;
    float reach = 0.0F;
    for (int x = 0; x <= lastX; ++x)
    {
        for (int y = 0; y <= lastY; ++y)
        {
            for (int z = 0; z <= lastZ; ++z)
            {
                reach = std::max(reach, map.Reach(c.x + std::max(d.x, 0) + x, c.y + std::max(d.y, 0) + y,
                                                  c.z + std::max(d.z, 0) + z));
            }
        }
    }
    return reach == 0.0F ? FieldMap::kOpen : std::min(FieldMap::kOpen, kDistances[axes] - reach);
}

std::array<Cube, 26> Steps()
{
    std::array<Cube, 26> steps{};
    std::size_t count = 0;
    for (int i = 0; i < 27; ++i)
    {
        if (i != 13)
        {
            steps[count++] = {i / 9 - 1, i / 3 % 3 - 1, i % 3 - 1};
        }
    }
    return steps;
}

// One search in a box of cubes.
class Search
{
public:
    Search(FieldMap const& map, Cube const& from, Cube const& to, float margin);

    std::vector<TQ3Vector3D> Run();

private:
    static constexpr std::uint8_t kNoStep = 255;

    struct Open
    {
        float estimate;
        std::size_t index;
        Cube cube;

        // The queue's top is its greatest. Ties go by place, so that every build finds the same way.
        bool operator<(Open const& other) const
        {
            return estimate != other.estimate ? estimate > other.estimate : index > other.index;
        }
    };

    bool IsInBox(Cube const& c) const;
    std::size_t Index(Cube const& c) const;
    float Estimate(Cube const& c) const;
    void Visit(Cube const& c);
    std::vector<TQ3Vector3D> WayBack() const;

    FieldMap const& m_map;
    Cube m_from;
    Cube m_to;
    float m_margin;
    Cube m_low;
    Cube m_size;
    std::array<Cube, 26> m_steps = Steps();
    std::vector<float> m_cost;
    std::vector<std::uint8_t> m_stepTo; // the step that leads to a cube
    std::priority_queue<Open> m_open;
};

Search::Search(FieldMap const& map, Cube const& from, Cube const& to, float margin)
    : m_map(map),
      m_from(from),
      m_to(to),
      m_margin(margin),
      m_low{std::min(from.x, to.x) - kDetour, std::min(from.y, to.y) - kDetour,
            std::min(from.z, to.z) - kDetour},
      m_size{std::abs(from.x - to.x) + 2 * kDetour + 1, std::abs(from.y - to.y) + 2 * kDetour + 1,
             std::abs(from.z - to.z) + 2 * kDetour + 1}
{
    auto const cubes = static_cast<std::size_t>(m_size.x) * static_cast<std::size_t>(m_size.y) *
                       static_cast<std::size_t>(m_size.z);
    m_cost.assign(cubes, std::numeric_limits<float>::infinity());
    m_stepTo.assign(cubes, kNoStep);
}

bool Search::IsInBox(Cube const& c) const
{
    return c.x >= m_low.x && c.y >= m_low.y && c.z >= m_low.z && c.x < m_low.x + m_size.x &&
           c.y < m_low.y + m_size.y && c.z < m_low.z + m_size.z;
}

std::size_t Search::Index(Cube const& c) const
{
    auto const x = static_cast<std::size_t>(c.x - m_low.x);
    auto const y = static_cast<std::size_t>(c.y - m_low.y);
    auto const z = static_cast<std::size_t>(c.z - m_low.z);
    return (x * static_cast<std::size_t>(m_size.y) + y) * static_cast<std::size_t>(m_size.z) + z;
}

float Search::Estimate(Cube const& c) const
{
    return kHaste * std::sqrt(DistSquared(Centre(c), Centre(m_to)));
}

std::vector<TQ3Vector3D> Search::Run()
{
    m_cost[Index(m_from)] = 0.0F;
    m_open.push({Estimate(m_from), Index(m_from), m_from});
    while (!m_open.empty())
    {
        Open const best = m_open.top();
        m_open.pop();
        if (best.cube == m_to)
        {
            return WayBack();
        }
        if (best.estimate <= m_cost[best.index] + Estimate(best.cube))
        {
            Visit(best.cube);
        }
    }
    return {};
}

void Search::Visit(Cube const& c)
{
    float const cost = m_cost[Index(c)];
    for (std::size_t i = 0; i < m_steps.size(); ++i)
    {
        Cube const& d = m_steps[i];
        Cube const next{c.x + d.x, c.y + d.y, c.z + d.z};
        if (!IsInBox(next))
        {
            continue;
        }
        float const clearance = StepClearance(m_map, c, d);
        if (clearance < m_margin)
        {
            continue;
        }
        float const length = std::sqrt(static_cast<float>(d.x * d.x + d.y * d.y + d.z * d.z));
        float const nextCost = cost + length * (1.0F + kNarrowness * (1.0F - clearance / FieldMap::kOpen));
        std::size_t const index = Index(next);
        if (nextCost < m_cost[index])
        {
            m_cost[index] = nextCost;
            m_stepTo[index] = static_cast<std::uint8_t>(i);
            m_open.push({nextCost + Estimate(next), index, next});
        }
    }
}

std::vector<TQ3Vector3D> Search::WayBack() const
{
    std::vector<TQ3Vector3D> way{Centre(m_to)};
    for (Cube c = m_to; !(c == m_from);)
    {
        Cube const& d = m_steps[m_stepTo[Index(c)]];
        c = {c.x - d.x, c.y - d.y, c.z - d.z};
        way.push_back(Centre(c));
    }
    std::reverse(way.begin(), way.end());
    return way;
}

} // namespace

std::vector<TQ3Vector3D> FindGates(FieldMap const& map, TQ3Vector3D const& from, TQ3Vector3D const& to,
                                   float margin)
{
    return Search(map, CubeAt(from), CubeAt(to), margin).Run();
}
