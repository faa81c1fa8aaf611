// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "world/race/Course.h"

#include "platform/base/Random.h"
#include "support/VectorMatchers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <set>

namespace
{

using test::IsExactly;

int Draw(int lowest, int highest)
{
    auto const f = static_cast<float>(std::rand() * (1.0 / 2147483648.0));
    return static_cast<int>(f * static_cast<float>(highest - lowest + 1)) + lowest;
}

// How many of the three coordinates have that value.
int Count(TQ3Vector3D const& p, float value)
{
    return (p.x == value ? 1 : 0) + (p.y == value ? 1 : 0) + (p.z == value ? 1 : 0);
}

TEST(Course, BeginsOutsideTheFieldAndEndsNearItsEdge)
{
    Course const course;
    EXPECT_THAT(course.GetWaypoint(0), IsExactly(-3.5F, -3.5F, -5.5F));
    EXPECT_THAT(course.GetWaypoint(6), IsExactly(108.5F, 108.5F, 108.5F));
    EXPECT_THAT(course.GetWaypoint(7), IsExactly(14.5F, 14.5F, 14.5F));
}

TEST(Course, DrawsASideForEachWaypointBetween)
{
    platform::SeedRandom(77);
    Course const course;
    std::srand(77);
    int side = Draw(0, 2);
    for (int k = 1; k <= 5; ++k)
    {
        side = (side + Draw(1, 2)) % 3;
        float const full = 18.0F * static_cast<float>(k) + 0.5F;
        float const half = 9.0F * static_cast<float>(k) + 0.5F;
        TQ3Vector3D const places[] = {{full, full, half}, {half, full, full}, {full, half, full}};
        TQ3Vector3D const& expected = places[side];
        EXPECT_THAT(course.GetWaypoint(k), IsExactly(expected.x, expected.y, expected.z));
    }
}

TEST(Course, GoesDeeperStepByStepAndNeverTwiceOffTheSameSide)
{
    std::set<int> sidesSeen;
    Course course;
    for (int layout = 0; layout < 50; ++layout)
    {
        course.Randomize();
        int previousSide = -1;
        for (int k = 1; k <= 5; ++k)
        {
            TQ3Vector3D const& p = course.GetWaypoint(k);
            float const half = 9.0F * static_cast<float>(k) + 0.5F;
            ASSERT_EQ(Count(p, half), 1);
            ASSERT_EQ(Count(p, 18.0F * static_cast<float>(k) + 0.5F), 2);
            int const side = p.z == half ? 0 : p.x == half ? 1 : 2;
            ASSERT_NE(side, previousSide);
            previousSide = side;
            sidesSeen.insert(side);
        }
    }
    EXPECT_EQ(sidesSeen.size(), 3U);
}

TEST(Course, MarkerGoesFromWaypointToWaypointAndOutOfTheWayInTheEnd)
{
    Course course;
    for (int i = 0; i < 7; ++i)
    {
        EXPECT_EQ(course.GetCurrent(), i);
        TQ3Vector3D const& p = course.GetWaypoint(i);
        EXPECT_THAT(course.GetMarker(), IsExactly(p.x, p.y, p.z));
        EXPECT_TRUE(course.Advance());
    }
    EXPECT_THAT(course.GetMarker(), IsExactly(14.5F, 14.5F, 14.5F));
    EXPECT_FALSE(course.Advance());
    EXPECT_EQ(course.GetCurrent(), 7);
    EXPECT_THAT(course.GetMarker(), IsExactly(100.5F, 100.5F, 100.5F));
}

TEST(Course, NothingLeadsAwayFromTheLastWaypoint)
{
    Course course;
    course.GoTo(7);
    course.GoTo(2);
    EXPECT_EQ(course.GetCurrent(), 7);
    EXPECT_THAT(course.GetMarker(), IsExactly(14.5F, 14.5F, 14.5F));
}

TEST(Course, NewLayoutLeavesTheMarkerWhereItIs)
{
    Course course;
    course.GoTo(6);
    course.Randomize();
    EXPECT_EQ(course.GetCurrent(), 6);
    EXPECT_THAT(course.GetMarker(), IsExactly(108.5F, 108.5F, 108.5F));
}

} // namespace
