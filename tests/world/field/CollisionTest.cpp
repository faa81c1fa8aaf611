// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Which paths hit an asteroid, and where.
#include "support/Stage.h"
#include "support/VectorMatchers.h"
#include "support/Worlds.h"
#include "world/Universe.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using test::IsNear;

class CollisionTest : public Stage
{
protected:
    bool Collides(TQ3Vector3D const& start, TQ3Vector3D const& end)
    {
        m_fraction = -1.0F;
        return m_world->WillPathCollide(start, end, 0.1F, &m_point, &m_fraction);
    }

    // Asteroids and ship touch at 0.3; cells are searched 0.1 beyond a path's ends.
    std::unique_ptr<Universe> m_world = test::FullWorld(0.2F);
    TQ3Vector3D m_point;
    float m_fraction = -1.0F;
};

TEST_F(CollisionTest, PathIntoAnAsteroidHitsWhereTheSpheresTouch)
{
    EXPECT_TRUE(Collides({-1.0F, 0.0F, 0.0F}, {-0.1F, 0.0F, 0.0F}));
    EXPECT_THAT(m_point, IsNear(-0.3F, 0.0F, 0.0F, 1e-6F));
    EXPECT_EQ(m_fraction, 0.0F);
}

TEST_F(CollisionTest, HitBeyondTheEndIsIgnored)
{
    EXPECT_FALSE(Collides({-1.0F, 0.0F, 0.0F}, {-0.31F, 0.0F, 0.0F}));
    EXPECT_EQ(m_fraction, -1.0F);
}

TEST_F(CollisionTest, PathThroughTheMiddleOfTheCubesIsFree)
{
    EXPECT_FALSE(Collides({0.5F, 0.5F, -2.0F}, {0.5F, 0.5F, 9.0F}));
}

TEST_F(CollisionTest, NegativeSpaceIsFree)
{
    EXPECT_FALSE(Collides({-9.0F, -3.0F, -9.0F}, {-1.0F, -3.0F, -1.0F}));
}

TEST_F(CollisionTest, NearestOfSeveralHitsIsReported)
{
    EXPECT_TRUE(Collides({3.5F, 4.0F, 4.0F}, {6.5F, 4.0F, 4.0F}));
    EXPECT_THAT(m_point, IsNear(3.7F, 4.0F, 4.0F, 1e-5F));
}

TEST_F(CollisionTest, NearestOfSeveralHitsIsReportedOnTheWayBackToo)
{
    // The swapped range holds cells 4 to 6.
    EXPECT_TRUE(Collides({6.5F, 4.0F, 4.0F}, {3.5F, 4.0F, 4.0F}));
    EXPECT_THAT(m_point, IsNear(6.3F, 4.0F, 4.0F, 1e-5F));
}

// Asteroids and ship touch at 1.1 here, and cells are searched 0.9 beside the path: it runs at y = -1.05, and
// the field begins at 0.
TEST_F(CollisionTest, AscendingPathIsSearchedBesideItAsFarAsTheGreatestAsteroidReaches)
{
    m_world = test::FullWorld(1.0F);
    EXPECT_TRUE(Collides({-3.0F, -1.05F, 0.0F}, {3.0F, -1.05F, 0.0F}));
    EXPECT_THAT(m_point, IsNear(-0.3279F, -1.05F, 0.0F, 1e-3F));
}

// From 6.5 down to 4 the range is floor(6.4) = 6 to ceil(4.1) = 5, swapped: the asteroid at 4, right on the
// path's end, is not looked at.
TEST_F(CollisionTest, PaddingLiesOnTheInnerSideOfADescendingPath)
{
    EXPECT_FALSE(Collides({6.5F, 0.75F, 0.75F}, {4.0F, 0.0F, 0.0F}));
    // Half a unit on, the range ends at ceil(3.6) = 4.
    EXPECT_TRUE(Collides({6.5F, 0.75F, 0.75F}, {3.5F, -0.15F, -0.15F}));
}

TEST_F(CollisionTest, AsteroidIsFoundInEveryRepetitionOfItsCell)
{
    EXPECT_TRUE(Collides({47.5F, 32.0F, 32.0F}, {48.5F, 32.0F, 32.0F}));
    EXPECT_THAT(m_point, IsNear(47.7F, 32.0F, 32.0F, 1e-4F));
    EXPECT_TRUE(Collides({15.5F, 0.0F, 0.0F}, {16.5F, 0.0F, 0.0F}));
    EXPECT_THAT(m_point, IsNear(15.7F, 0.0F, 0.0F, 1e-5F));
    EXPECT_THAT(m_world->RoidAtCell(16, 0, 0)->GetPosition(), test::IsExactly(0.0F, 0.0F, 0.0F))
        << "a question moves nothing";
}

TEST_F(CollisionTest, PathOutOfAnAsteroidHitsAtItsFarSide)
{
    EXPECT_TRUE(Collides({4.0F, 4.0F, 4.0F}, {4.0F, 4.0F, 4.35F}));
    EXPECT_THAT(m_point, IsNear(4.0F, 4.0F, 4.3F, 1e-5F));
    EXPECT_FALSE(Collides({4.0F, 4.0F, 4.0F}, {4.0F, 4.0F, 4.25F}));
}

TEST_F(CollisionTest, EmptyFieldIsFree)
{
    m_world = test::EmptyWorld();
    EXPECT_FALSE(Collides({0.0F, 0.0F, -5.0F}, {0.0F, 0.0F, 50.0F}));
}

} // namespace
