// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Where the way of a sphere meets one asteroid.
#include "gfx/Roid.h"
#include "support/Stage.h"
#include "support/VectorMatchers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using test::IsNear;

class RoidPathTest : public Stage
{
protected:
    RoidPathTest()
    {
        m_roid.SetSize(0.5F);
        m_roid.MoveTo(10.0F, 0.0F, 0.0F);
    }

    // A sphere of radius 0.5, so that the two touch at a distance of 1.
    bool Hits(TQ3Vector3D const& start, TQ3Vector3D const& end)
    {
        return m_roid.ComputePathIntersection(start, end, 0.5F, &m_point, &m_distance);
    }

    Roid m_roid{nullptr};
    TQ3Vector3D m_point;
    float m_distance = -1.0F;
};

TEST_F(RoidPathTest, StraightHitIsWhereTheSpheresTouch)
{
    EXPECT_TRUE(Hits({0.0F, 0.0F, 0.0F}, {20.0F, 0.0F, 0.0F}));
    EXPECT_FLOAT_EQ(m_distance, 9.0F);
    EXPECT_THAT(m_point, IsNear(9.0F, 0.0F, 0.0F, 1e-5F));
}

TEST_F(RoidPathTest, EndGivesTheDirectionOnly)
{
    EXPECT_TRUE(Hits({0.0F, 0.0F, 0.0F}, {1.0F, 0.0F, 0.0F}));
    EXPECT_FLOAT_EQ(m_distance, 9.0F);
}

// 0.6 off the centre the chord through the unit sphere is 1.6 long.
TEST_F(RoidPathTest, GlancingHitIsWhereThePathEntersTheSphere)
{
    EXPECT_TRUE(Hits({0.0F, 0.6F, 0.0F}, {1.0F, 0.6F, 0.0F}));
    EXPECT_NEAR(m_distance, 9.2F, 1e-5F);
    EXPECT_THAT(m_point, IsNear(9.2F, 0.6F, 0.0F, 1e-5F));
}

TEST_F(RoidPathTest, PathThatPassesMisses)
{
    EXPECT_FALSE(Hits({0.0F, 1.01F, 0.0F}, {20.0F, 1.01F, 0.0F}));
    EXPECT_EQ(m_distance, -1.0F);
}

TEST_F(RoidPathTest, PathThatLeadsAwayMisses)
{
    EXPECT_FALSE(Hits({12.0F, 0.0F, 0.0F}, {13.0F, 0.0F, 0.0F}));
}

TEST_F(RoidPathTest, PathFromInsideHitsAtItsExit)
{
    EXPECT_TRUE(Hits({10.0F, 0.0F, 0.0F}, {10.0F, 5.0F, 0.0F}));
    EXPECT_FLOAT_EQ(m_distance, 1.0F);
    EXPECT_THAT(m_point, IsNear(10.0F, 1.0F, 0.0F, 1e-5F));
}

TEST_F(RoidPathTest, PathFromInsideThatLeadsAwayFromTheCentreHitsAtItsExitToo)
{
    EXPECT_TRUE(Hits({10.5F, 0.0F, 0.0F}, {11.5F, 0.0F, 0.0F}));
    EXPECT_FLOAT_EQ(m_distance, 0.5F);
    EXPECT_THAT(m_point, IsNear(11.0F, 0.0F, 0.0F, 1e-5F));
}

// One asteroid serves all the repetitions of its cell and stays where it is.
TEST_F(RoidPathTest, AnotherPlaceIsTestedWithoutAMove)
{
    EXPECT_TRUE(m_roid.ComputePathIntersectionAt({26.0F, 0.0F, 0.0F}, {0.0F, 0.0F, 0.0F}, {40.0F, 0.0F, 0.0F},
                                                 0.5F, &m_point, &m_distance));
    EXPECT_THAT(m_point, IsNear(25.0F, 0.0F, 0.0F, 1e-5F));
    EXPECT_THAT(m_roid.GetPosition(), test::IsExactly(10.0F, 0.0F, 0.0F));
}

TEST_F(RoidPathTest, PathWithoutLengthFromOutsideMisses)
{
    EXPECT_FALSE(Hits({8.0F, 0.0F, 0.0F}, {8.0F, 0.0F, 0.0F}));
}

} // namespace
