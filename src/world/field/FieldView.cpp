// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "world/field/FieldView.h"

#include "gfx/Roid.h"
#include "math/Plane.h"
#include "math/util.h"
#include "world/field/AsteroidField.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace
{

constexpr std::size_t kBuckets = 256;
constexpr float kBucketsPerUnit = 4.0F;

std::size_t BucketOf(FieldView::Rock const& rock)
{
    return static_cast<std::size_t>(std::clamp(rock.seen.ahead * kBucketsPerUnit, 0.0F, kBuckets - 1.0F));
}

} // namespace

std::vector<FieldView::Rock> const& FieldView::Choose(AsteroidField const& field, Frustum const& frustum,
                                                      Eye const& eye, int width, int height)
{
    m_covered.Start(eye, width, height);
    Collect(field, frustum);
    SortNearestFirst();
    MarkShown();
    return m_rocks;
}

// Walks the frustum's box, whose upper ends are excluded, row by row along z. Most cells of the box lie
// outside the view, which is a pyramid in it: those of a row are skipped at one go.
void FieldView::Collect(AsteroidField const& field, Frustum const& frustum)
{
    float low[3];
    float high[3];
    frustum.GetBoundingBox(&low[0], &high[0], &low[1], &high[1], &low[2], &high[2]);
    int const beginY = FloorToInt(std::max(low[1], 0.0F));
    int const endX = CeilToInt(high[0]);
    int const endY = CeilToInt(high[1]);
    auto const beginZ = static_cast<float>(FloorToInt(std::max(low[2], 0.0F)));
    auto const lastZ = static_cast<float>(CeilToInt(high[2]) - 1);
    m_rocks.clear();
    for (int x = FloorToInt(std::max(low[0], 0.0F)); x < endX; ++x)
    {
        for (int y = beginY; y < endY; ++y)
        {
            TQ3Vector3D place{static_cast<float>(x), static_cast<float>(y), 0.0F};
            float first = beginZ;
            float last = lastZ;
            frustum.NarrowToView(place.x, place.y, &first, &last);
            field.ForEachIn(x, y, CeilToInt(first), FloorToInt(last),
                            [&](int z, int sizeClass, Roid const&)
                            {
                                place.z = static_cast<float>(z);
                                AddIfInView(place, sizeClass, frustum);
                            });
        }
    }
}

// The size class is handed in: reading it from the asteroid is slow.
inline void FieldView::AddIfInView(TQ3Vector3D const& place, int sizeClass, Frustum const& frustum)
{
    if (auto const level = Roid::LevelInView(place, frustum))
    {
        m_rocks.push_back({place, m_covered.Seen(place, Roid::GetMeshes().radius[sizeClass]),
                           static_cast<std::uint8_t>(sizeClass), static_cast<std::uint8_t>(*level), false});
    }
}

// A counting sort by quarters of a unit ahead: within one the order does not matter.
void FieldView::SortNearestFirst()
{
    std::array<std::uint32_t, kBuckets + 1> begins{};
    for (Rock const& rock : m_rocks)
    {
        ++begins[BucketOf(rock) + 1];
    }
    std::partial_sum(begins.begin(), begins.end(), begins.begin());
    m_nearestFirst.resize(m_rocks.size());
    for (std::uint32_t i = 0; i < m_rocks.size(); ++i)
    {
        m_nearestFirst[begins[BucketOf(m_rocks[i])]++] = i;
    }
}

void FieldView::MarkShown()
{
    for (std::uint32_t const index : m_nearestFirst)
    {
        Rock& rock = m_rocks[index];
        rock.isShown = !m_covered.IsHidden(rock.seen);
        if (rock.isShown)
        {
            CoveredView::Ball solid = rock.seen;
            solid.radius *= Roid::GetMeshes().solidShare[rock.levelOfDetail];
            m_covered.Cover(solid, rock.seen.radius);
        }
    }
}
