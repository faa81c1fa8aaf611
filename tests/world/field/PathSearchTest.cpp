// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The search for what a path hits, held against a plain test of every cell in the path's box.
#include "gfx/Roid.h"
#include "math/util.h"
#include "support/Rounds.h"
#include "support/Stage.h"
#include "support/TestSettings.h"
#include "support/Worlds.h"
#include "world/Universe.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace
{

using test::Rounds;
using test::ScopedSetting;

constexpr float kShipRadius = 0.1F;

struct Answer
{
    bool hit = false;
    TQ3Vector3D point{-7.0F, -7.0F, -7.0F};
    float fraction = -1.0F;
};

bool operator==(Answer const& a, Answer const& b)
{
    return a.hit == b.hit && a.point.x == b.point.x && a.point.y == b.point.y && a.point.z == b.point.z &&
           a.fraction == b.fraction;
}

struct Path
{
    TQ3Vector3D start;
    TQ3Vector3D end;
};

std::ostream& operator<<(std::ostream& out, Path const& path)
{
    return out << std::hexfloat << path.start.x << ' ' << path.start.y << ' ' << path.start.z << " to "
               << path.end.x << ' ' << path.end.y << ' ' << path.end.z;
}

// Every cell of the box, x outermost, z innermost.
Answer TestOfEveryCell(Universe const& world, Path const& path, float margin)
{
    auto const range = [margin](float start, float end, int& low, int& high)
    {
        low = static_cast<int>(std::floor(start - margin));
        high = static_cast<int>(std::ceil(end + margin));
        if (high < low)
        {
            std::swap(low, high);
        }
    };
    int low[3];
    int high[3];
    range(path.start.x, path.end.x, low[0], high[0]);
    range(path.start.y, path.end.y, low[1], high[1]);
    range(path.start.z, path.end.z, low[2], high[2]);
    Answer answer;
    float best = std::numeric_limits<float>::infinity();
    for (int x = low[0]; x <= high[0]; ++x)
    {
        for (int y = low[1]; y <= high[1]; ++y)
        {
            for (int z = low[2]; z <= high[2]; ++z)
            {
                Roid* const roid = world.RoidAtCell(x, y, z);
                if (roid == nullptr)
                {
                    continue;
                }
                roid->MoveTo(static_cast<float>(x), static_cast<float>(y), static_cast<float>(z));
                TQ3Vector3D point;
                float distance = 0.0F;
                if (roid->ComputePathIntersection(path.start, path.end, kShipRadius, &point, &distance) &&
                    DistSquared(path.start, point) < best)
                {
                    best = DistSquared(path.start, point);
                    answer.point = point;
                }
            }
        }
    }
    answer.hit = best <= std::numeric_limits<float>::max() && best < DistSquared(path.end, path.start);
    if (answer.hit)
    {
        answer.fraction = 0.0F;
    }
    return answer;
}

Answer AnswerOf(Universe const& world, Path const& path)
{
    Answer answer;
    answer.hit = world.WillPathCollide(path.start, path.end, kShipRadius, &answer.point, &answer.fraction);
    return answer;
}

// Paths of one kind after the other. A box holds at most some 100,000 cells, most far fewer: the plain test
// looks at each.
class PathSource
{
public:
    Path Next()
    {
        switch (m_kind++ % 6)
        {
        case 0:
            return From(Anywhere(), Towards(Reach(0.0F, 1.0F)));
        case 1:
            return From(Anywhere(), Towards(Reach(5.0F, 25.0F)));
        case 2:
            return AlongAxis(Reach(10.0F, 600.0F));
        case 3:
            return From(NearOrigin(), Towards(Reach(5.0F, 20.0F))); // in and out of negative space
        case 4:
            return AlongAxisWithSlant(Reach(20.0F, 300.0F));
        default:
            return OnGrid();
        }
    }

    Path AlongAxis(float length)
    {
        TQ3Vector3D step;
        Component(step) = Sign() * length;
        return From(Coin() ? Anywhere() : Rounded(Anywhere()), step);
    }

    Path AlongAxisWithSlant(float length)
    {
        TQ3Vector3D step{Reach(-6.0F, 6.0F), Reach(-6.0F, 6.0F), Reach(-6.0F, 6.0F)};
        Component(step) = Sign() * length;
        return From(Anywhere(), step);
    }

    float Reach(float low, float high) { return std::uniform_real_distribution<float>(low, high)(m_random); }

private:
    static Path From(TQ3Vector3D const& start, TQ3Vector3D const& step)
    {
        return {start, {start.x + step.x, start.y + step.y, start.z + step.z}};
    }

    // A place on both sides of all borders of levels, at 16, 32 and so on to 112.
    TQ3Vector3D Anywhere() { return {Reach(-4.0F, 150.0F), Reach(-4.0F, 150.0F), Reach(-4.0F, 150.0F)}; }
    TQ3Vector3D NearOrigin() { return {Reach(-12.0F, 12.0F), Reach(-12.0F, 12.0F), Reach(-12.0F, 12.0F)}; }

    static TQ3Vector3D Rounded(TQ3Vector3D const& p)
    {
        return {std::round(2.0F * p.x) / 2.0F, std::round(2.0F * p.y) / 2.0F, std::round(2.0F * p.z) / 2.0F};
    }

    TQ3Vector3D Towards(float length)
    {
        TQ3Vector3D direction{Reach(-1.0F, 1.0F), Reach(-1.0F, 1.0F), Reach(-1.0F, 1.0F)};
        Vector3D_Normalize(&direction, &direction);
        Vector3D_Scale(&direction, length, &direction);
        return direction;
    }

    // Between corners and centres of the lattice, where several asteroids are hit at once.
    Path OnGrid()
    {
        Path const path = From(Anywhere(), Towards(Reach(2.0F, 20.0F)));
        return {Rounded(path.start), Rounded(path.end)};
    }

    float& Component(TQ3Vector3D& v)
    {
        switch (m_random() % 3)
        {
        case 0:
            return v.x;
        case 1:
            return v.y;
        default:
            return v.z;
        }
    }

    bool Coin() { return m_random() % 2 == 0; }
    float Sign() { return Coin() ? 1.0F : -1.0F; }

    std::mt19937 m_random{20261121};
    unsigned m_kind = 0;
};

class PathSearchTest : public Stage
{
protected:
    static void ExpectPlainAnswers(Universe const& world, float margin, int count)
    {
        PathSource paths;
        int hits = 0;
        for (int i = 0; i < count; ++i)
        {
            Path const path = paths.Next();
            Answer const expected = TestOfEveryCell(world, path, margin);
            ASSERT_EQ(AnswerOf(world, path), expected) << path << ", number " << i;
            hits += expected.hit ? 1 : 0;
        }
        EXPECT_GT(hits, count / 20); // both answers occur
        EXPECT_LT(hits, count - count / 20);
    }

    // The longest boxes that a plain test can still cover: thousands of units, where rounding decides what
    // is hit.
    static void ExpectPlainAnswersFarOut(Universe const& world, float margin, int count)
    {
        PathSource paths;
        for (int i = 0; i < count; ++i)
        {
            float const length = paths.Reach(1000.0F, 14400.0F);
            Path const path = i % 2 == 0 ? paths.AlongAxis(length) : paths.AlongAxisWithSlant(length);
            ASSERT_EQ(AnswerOf(world, path), TestOfEveryCell(world, path, margin)) << path;
        }
    }
};

TEST_F(PathSearchTest, AnswersLikeATestOfEveryCell)
{
    ExpectPlainAnswers(*test::SeededWorld(11), 0.6F - kShipRadius, Rounds(60000));
}

TEST_F(PathSearchTest, AnswersLikeATestOfEveryCellAmongSmallAsteroids)
{
    ExpectPlainAnswers(*test::FullWorld(0.15F), 0.15F - kShipRadius, Rounds(20000));
}

// Every radius is above the margin here: the smallest wins over the greatest.
TEST_F(PathSearchTest, AnswersLikeATestOfEveryCellAmongAsteroidsLargerThanTheMargin)
{
    ScopedSetting const edge(setting::kAsteroidsDensityEdge, 0.02F);
    ScopedSetting const centre(setting::kAsteroidsDensityCenter, 0.1F);
    ScopedSetting const minR(setting::kAsteroidsMinR, 0.9F);
    ScopedSetting const maxR(setting::kAsteroidsMaxR, 0.3F);
    ExpectPlainAnswers(*test::SeededWorld(12), 0.3F - kShipRadius, Rounds(20000));
}

// The points of hits that round to one distance may differ in the last place: here two do on each path, and
// the walk comes to the one that counts last.
TEST_F(PathSearchTest, AnswersLikeATestOfEveryCellAmongAsteroidsEquallyNear)
{
    ScopedSetting const edge(setting::kAsteroidsDensityEdge, 0.15F);
    ScopedSetting const centre(setting::kAsteroidsDensityCenter, 0.15F);
    ScopedSetting const minR(setting::kAsteroidsMinR, 0.9F);
    ScopedSetting const maxR(setting::kAsteroidsMaxR, 0.9F);
    auto const world = test::SeededWorld(16);
    Path const diagonals[] = {{{99.0F, 0.0F, 80.0F}, {79.0F, 20.0F, 60.0F}},
                              {{127.0F, 4.0F, 123.0F}, {107.0F, -16.0F, 103.0F}}};
    for (Path const& path : diagonals)
    {
        EXPECT_EQ(AnswerOf(*world, path), TestOfEveryCell(*world, path, 0.9F - kShipRadius)) << path;
    }
}

TEST_F(PathSearchTest, AnswersLikeATestOfEveryCellOnLongPaths)
{
    ScopedSetting const edge(setting::kAsteroidsDensityEdge, 0.0005F);
    ScopedSetting const centre(setting::kAsteroidsDensityCenter, 0.002F);
    ExpectPlainAnswersFarOut(*test::SeededWorld(13), 0.6F - kShipRadius, Rounds(2000));
}

TEST_F(PathSearchTest, AnswersLikeATestOfEveryCellOnLongPathsThroughTheUsualField)
{
    ExpectPlainAnswersFarOut(*test::SeededWorld(14), 0.6F - kShipRadius, Rounds(2000));
}

TEST_F(PathSearchTest, AnswersLikeATestOfEveryCellWhereCoordinatesAreCoarse)
{
    ScopedSetting const edge(setting::kAsteroidsDensityEdge, 0.002F);
    ScopedSetting const centre(setting::kAsteroidsDensityCenter, 0.002F);
    auto const world = test::SeededWorld(15);
    PathSource paths;
    for (int i = 0; i < Rounds(2000); ++i)
    {
        Path path = i % 2 == 0 ? paths.AlongAxis(500.0F) : paths.AlongAxisWithSlant(500.0F);
        for (TQ3Vector3D* const end : {&path.start, &path.end})
        {
            float const offset = i % 4 < 2 ? 30000000.0F : 1000000.0F; // two units, a sixteenth to a step
            *end = {end->x + offset, end->y + offset, end->z + offset};
        }
        ASSERT_EQ(AnswerOf(*world, path), TestOfEveryCell(*world, path, 0.6F - kShipRadius)) << path;
    }
}

// Both lie 14,400 units ahead of their box's other end in all three axes: a plain test would take days.
TEST_F(PathSearchTest, HourLongFrameStopsAtTheFieldsFirstAsteroid)
{
    auto const world = test::FullWorld(0.2F);
    Answer const answer = AnswerOf(*world, {{-10.0F, -10.0F, -10.0F}, {8304.0F, 8304.0F, 8304.0F}});
    EXPECT_TRUE(answer.hit);
    EXPECT_NEAR(answer.point.x, -0.3F / std::sqrt(3.0F), 1e-4F);
    EXPECT_EQ(answer.fraction, 0.0F);
}

TEST_F(PathSearchTest, HourLongFrameAwayFromTheFieldIsFree)
{
    auto const world = test::FullWorld(0.2F);
    EXPECT_FALSE(AnswerOf(*world, {{-10.0F, -10.0F, -10.0F}, {-8324.0F, -8324.0F, -8324.0F}}).hit);
    EXPECT_FALSE(AnswerOf(*world, {{-10.0F, 5.0F, 5.0F}, {-8324.0F, 8319.0F, 8319.0F}}).hit);
}

TEST_F(PathSearchTest, CoordinatesBeyondEveryCellAreAnswered)
{
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
    auto const world = test::FullWorld(0.2F);
    for (float const far : {kInfinity, -kInfinity, kNaN, 3e38F, -3e38F, 1e20F, -1e20F, 2e9F, -2e9F})
    {
        AnswerOf(*world, {{5.5F, 5.5F, 5.5F}, {far, far, far}});
        AnswerOf(*world, {{far, far, far}, {far, far, far}});
        AnswerOf(*world, {{5.5F, 5.5F, far}, {6.5F, 6.5F, far}});
    }
    SUCCEED();
}

} // namespace
