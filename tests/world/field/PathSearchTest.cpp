// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The search for what a path hits, held against a plain test of every cell in the path's box.
#include "world/field/PathSearch.h"

#include "math/util.h"
#include "support/Rounds.h"
#include "support/Stage.h"
#include "support/Worlds.h"
#include "world/field/AsteroidField.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <sstream>
#include <string>

namespace
{

using test::Rounds;

constexpr float kShipRadius = 0.1F;
constexpr float kTolerance = 0.001F; // of a hit's place, world units

std::string Text(SearchedPath const& path)
{
    std::ostringstream text;
    text << std::hexfloat << path.start.x << ' ' << path.start.y << ' ' << path.start.z << " to "
         << path.end.x << ' ' << path.end.y << ' ' << path.end.z;
    return text.str();
}

// Keeps the nearer of the hit so far and the one in that cell.
void TestCell(AsteroidField const& field, SearchedPath const& path, Roid& probe, int const (&cell)[3],
              PathHit& nearest)
{
    Roid const* const roid = field.RoidAt(cell[0], cell[1], cell[2]);
    if (roid == nullptr)
    {
        return;
    }
    probe.SetSize(roid->GetRadius());
    probe.MoveTo(static_cast<float>(cell[0]), static_cast<float>(cell[1]), static_cast<float>(cell[2]));
    TQ3Vector3D point;
    float distance = 0.0F;
    if (probe.ComputePathIntersection(path.start, path.end, path.radius, &point, &distance) &&
        DistSquared(path.start, point) < nearest.squaredDistance)
    {
        nearest = {DistSquared(path.start, point), point};
    }
}

// Every cell of the box, x outermost, z innermost.
PathHit PlainAnswer(AsteroidField const& field, SearchedPath const& path)
{
    float const starts[3] = {path.start.x, path.start.y, path.start.z};
    float const ends[3] = {path.end.x, path.end.y, path.end.z};
    int low[3];
    int high[3];
    for (int axis = 0; axis < 3; ++axis)
    {
        low[axis] = static_cast<int>(std::floor(starts[axis] - path.margin));
        high[axis] = static_cast<int>(std::ceil(ends[axis] + path.margin));
        if (high[axis] < low[axis])
        {
            std::swap(low[axis], high[axis]);
        }
    }
    Roid probe(nullptr);
    PathHit nearest;
    int cell[3];
    for (cell[0] = low[0]; cell[0] <= high[0]; ++cell[0])
    {
        for (cell[1] = low[1]; cell[1] <= high[1]; ++cell[1])
        {
            for (cell[2] = low[2]; cell[2] <= high[2]; ++cell[2])
            {
                TestCell(field, path, probe, cell, nearest);
            }
        }
    }
    return nearest;
}

// Paths of all directions up to a length of 25, and longer ones close to an axis, whose box is small enough
// for the plain test. Every other one runs from and to corners and centres of the lattice, where several
// asteroids are hit at once.
class PathSource
{
public:
    explicit PathSource(float margin) : m_margin(margin) {}

    SearchedPath Next()
    {
        ++m_count;
        float const longest = m_count % 100 == 0 ? 14400.0F : 600.0F; // an hour's frame, at full speed
        return m_count % 4 == 0 ? AlongAnAxis(Between(25.0F, longest)) : InAnyDirection();
    }

private:
    SearchedPath InAnyDirection()
    {
        TQ3Vector3D step = Vector(-1.0F, 1.0F);
        Vector3D_Normalize(&step, &step);
        float const length = Between(0.0F, 1.0F);
        Vector3D_Scale(&step, 25.0F * length * length, &step);
        return From(Vector(-5.0F, 150.0F), step);
    }

    SearchedPath AlongAnAxis(float length)
    {
        TQ3Vector3D step = Vector(-6.0F, 6.0F);
        float* const components[] = {&step.x, &step.y, &step.z};
        *components[m_random() % 3] = m_random() % 2 == 0 ? length : -length;
        return From(Vector(-5.0F, 150.0F), step);
    }

    SearchedPath From(TQ3Vector3D const& start, TQ3Vector3D const& step)
    {
        TQ3Vector3D const end{start.x + step.x, start.y + step.y, start.z + step.z};
        return m_count % 2 == 0 ? SearchedPath{start, end, kShipRadius, m_margin}
                                : SearchedPath{OnGrid(start), OnGrid(end), kShipRadius, m_margin};
    }

    static TQ3Vector3D OnGrid(TQ3Vector3D const& p)
    {
        return {std::round(2.0F * p.x) / 2.0F, std::round(2.0F * p.y) / 2.0F, std::round(2.0F * p.z) / 2.0F};
    }

    TQ3Vector3D Vector(float low, float high)
    {
        return {Between(low, high), Between(low, high), Between(low, high)};
    }

    float Between(float low, float high)
    {
        return std::uniform_real_distribution<float>(low, high)(m_random);
    }

    std::mt19937 m_random{20261121};
    unsigned m_count = 0;
    float m_margin;
};

class PathSearchTest : public Stage
{
protected:
    void Fill(float edge, float centre, float minR, float maxR)
    {
        m_field = test::SeededField(edge, centre, minR, maxR);
        m_margin = maxR - kShipRadius;
    }

    PathHit Hit(TQ3Vector3D const& start, TQ3Vector3D const& end) const
    {
        return NearestHit(*m_field, {start, end, kShipRadius, m_margin});
    }

    void ExpectPlainAnswers(int count) const
    {
        PathSource paths(m_margin);
        int hits = 0;
        for (int i = 0; i < count; ++i)
        {
            SearchedPath const path = paths.Next();
            float const length = DistSquared(path.end, path.start);
            PathHit const expected = PlainAnswer(*m_field, path);
            PathHit const actual = NearestHit(*m_field, path);
            bool const isHit = expected.squaredDistance < length;
            ASSERT_EQ(actual.squaredDistance < length, isHit) << Text(path);
            if (isHit)
            {
                ASSERT_LT(DistSquared(actual.point, expected.point), kTolerance * kTolerance) << Text(path);
                ++hits;
            }
        }
        EXPECT_GT(hits, count / 20); // both answers occur
        EXPECT_LT(hits, count - count / 20);
    }

    std::unique_ptr<AsteroidField> m_field;
    float m_margin = 0.0F;
};

TEST_F(PathSearchTest, AnswersLikeATestOfEveryCell)
{
    Fill(0.01F, 0.5F, 0.1F, 0.6F);
    ExpectPlainAnswers(Rounds(40000));
}

TEST_F(PathSearchTest, AnswersLikeATestOfEveryCellInAThinField)
{
    Fill(0.002F, 0.02F, 0.1F, 0.6F);
    ExpectPlainAnswers(Rounds(20000));
}

TEST_F(PathSearchTest, AnswersLikeATestOfEveryCellAmongSmallAsteroids)
{
    Fill(1.0F, 1.0F, 0.15F, 0.15F);
    ExpectPlainAnswers(Rounds(20000));
}

// Every radius is above the margin here: the smallest wins over the greatest.
TEST_F(PathSearchTest, AnswersLikeATestOfEveryCellAmongAsteroidsLargerThanTheMargin)
{
    Fill(0.02F, 0.1F, 0.9F, 0.3F);
    ExpectPlainAnswers(Rounds(20000));
}

// The box of each holds 14,400 cells in all three axes: a plain test would take days.
TEST_F(PathSearchTest, HourLongFrameStopsAtTheFieldsFirstAsteroid)
{
    Fill(1.0F, 1.0F, 0.2F, 0.2F);
    PathHit const hit = Hit({-10.0F, -10.0F, -10.0F}, {8304.0F, 8304.0F, 8304.0F});
    EXPECT_NEAR(hit.point.x, -0.3F / std::sqrt(3.0F), kTolerance);
    EXPECT_NEAR(hit.squaredDistance, 3.0F * (10.0F + hit.point.x) * (10.0F + hit.point.x), kTolerance);
}

TEST_F(PathSearchTest, HourLongFrameAwayFromTheFieldIsFree)
{
    Fill(1.0F, 1.0F, 0.2F, 0.2F);
    constexpr float kNoHit = std::numeric_limits<float>::infinity();
    EXPECT_EQ(Hit({-10.0F, -10.0F, -10.0F}, {-8324.0F, -8324.0F, -8324.0F}).squaredDistance, kNoHit);
    EXPECT_EQ(Hit({-10.0F, 5.0F, 5.0F}, {-8324.0F, 8319.0F, 8319.0F}).squaredDistance, kNoHit);
}

TEST_F(PathSearchTest, CoordinatesBeyondEveryCellAreAnswered)
{
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
    Fill(1.0F, 1.0F, 0.2F, 0.2F);
    for (float const far : {kInfinity, -kInfinity, kNaN, 3e38F, -3e38F, 1e20F, -1e20F, 2e9F, -2e9F})
    {
        Hit({5.5F, 5.5F, 5.5F}, {far, far, far});
        Hit({far, far, far}, {far, far, far});
        Hit({5.5F, 5.5F, far}, {6.5F, 6.5F, far});
        Hit({far, 5.5F, 5.5F}, {5.5F, 5.5F, 5.5F});
    }
    SUCCEED();
}

} // namespace
