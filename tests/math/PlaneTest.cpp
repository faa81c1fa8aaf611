// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "math/Plane.h"

#include "support/VectorMatchers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using test::IsNear;

constexpr float kRightAngle = 1.5707964F;
constexpr float kRounding = 1e-6F;
constexpr TQ3Vector3D kOrigin{0.0F, 0.0F, 0.0F};
constexpr TQ3Vector3D kForwards{0.0F, 0.0F, -1.0F};
constexpr TQ3Vector3D kUp{0.0F, 1.0F, 0.0F};

// From the origin along -z, 90 degrees wide and high, one unit deep. At the far plane that is 1 unit to each
// side; widened, 2 units up and down and 3 to the left and right.
Frustum DownTheZAxis()
{
    return Frustum(kRightAngle, 1.0F, &kOrigin, &kForwards, &kUp, 1.0F);
}

// (p - q) x (r - q) of (2, 0, 5), (0, 0, 5) and (0, 3, 5) is (0, 0, 6).
TEST(PlaneTest, NormalIsTheCrossProductOfItsEdges)
{
    Plane const plane({2.0F, 0.0F, 5.0F}, {0.0F, 0.0F, 5.0F}, {0.0F, 3.0F, 5.0F});
    EXPECT_EQ(plane.a, 0.0F);
    EXPECT_EQ(plane.b, 0.0F);
    EXPECT_EQ(plane.c, 1.0F);
    EXPECT_EQ(plane.d, -5.0F);
}

TEST(PlaneTest, InitReturnsZero)
{
    Plane plane;
    EXPECT_EQ(plane.Init({1.0F, 0.0F, 0.0F}, {0.0F, 0.0F, 0.0F}, {0.0F, 1.0F, 0.0F}), 0);
}

TEST(PlaneTest, NormalizeDividesAllFourByTheLengthOfTheNormal)
{
    Plane plane;
    plane.a = 0.0F;
    plane.b = 3.0F;
    plane.c = 4.0F;
    plane.d = 10.0F;
    EXPECT_EQ(&plane.Normalize(), &plane);
    EXPECT_FLOAT_EQ(plane.b, 0.6F);
    EXPECT_FLOAT_EQ(plane.c, 0.8F);
    EXPECT_FLOAT_EQ(plane.d, 2.0F);
}

TEST(PlaneTest, DistanceIsPositiveOnTheSideOfTheNormal)
{
    Plane const plane({2.0F, 0.0F, 5.0F}, {0.0F, 0.0F, 5.0F}, {0.0F, 3.0F, 5.0F});
    EXPECT_EQ(plane.Distance({7.0F, 8.0F, 9.0F}), 4.0F);
    EXPECT_EQ(plane.Distance({7.0F, 8.0F, 3.0F}), -2.0F);
}

TEST(FrustumTest, FarCornersAreWidenedOnceInHeightAndTwiceInWidth)
{
    Frustum const frustum = DownTheZAxis();
    EXPECT_THAT(frustum.GetCorner(0), IsNear(-3.0F, 2.0F, -1.0F, kRounding));
    EXPECT_THAT(frustum.GetCorner(1), IsNear(-3.0F, -2.0F, -1.0F, kRounding));
    EXPECT_THAT(frustum.GetCorner(2), IsNear(3.0F, 2.0F, -1.0F, kRounding));
    EXPECT_THAT(frustum.GetCorner(3), IsNear(3.0F, -2.0F, -1.0F, kRounding));
    EXPECT_THAT(frustum.GetApex(), IsNear(0.0F, 0.0F, 0.0F, 0.0F));
}

// The aspect multiplies the height that is widened already: (1 + 1) * 2 + 1.
TEST(FrustumTest, AspectAppliesToTheWidenedHeight)
{
    Frustum const frustum(kRightAngle, 2.0F, &kOrigin, &kForwards, &kUp, 1.0F);
    EXPECT_THAT(frustum.GetCorner(2), IsNear(5.0F, 2.0F, -1.0F, kRounding));
}

TEST(FrustumTest, ContainsWhatLiesAheadWithinItsDepth)
{
    Frustum const frustum = DownTheZAxis();
    EXPECT_TRUE(frustum.IsPointInside({0.0F, 0.0F, -0.5F}));
    EXPECT_FALSE(frustum.IsPointInside({0.0F, 0.0F, -1.5F}));
    EXPECT_FALSE(frustum.IsPointInside({0.0F, 0.0F, 0.5F}));
}

TEST(FrustumTest, ContainsWhatOnlyTheWideningReaches)
{
    EXPECT_TRUE(DownTheZAxis().IsPointInside({2.9F, 0.0F, -1.0F}));
    EXPECT_FALSE(DownTheZAxis().IsPointInside({3.1F, 0.0F, -1.0F}));
    EXPECT_TRUE(DownTheZAxis().IsPointInside({0.0F, -1.9F, -1.0F}));
    EXPECT_FALSE(DownTheZAxis().IsPointInside({0.0F, -2.1F, -1.0F}));
    EXPECT_FALSE(DownTheZAxis().IsPointInside({0.0F, 2.1F, -1.0F}));
    EXPECT_FALSE(DownTheZAxis().IsPointInside({-3.1F, 0.0F, -1.0F}));
}

TEST(FrustumTest, ContainsTheEyeAndWhatTouchesThePlanes)
{
    Frustum const frustum = DownTheZAxis();
    EXPECT_TRUE(frustum.IsPointInside(kOrigin));
    EXPECT_TRUE(frustum.IsPointInside({0.0F, 0.0F, -1.0F}));
}

TEST(FrustumTest, HasNoNearPlane)
{
    EXPECT_TRUE(DownTheZAxis().IsPointInside({0.0F, 0.0F, -0.0001F}));
}

TEST(FrustumTest, BoundingBoxHoldsEyeAndFarCorners)
{
    float x[2];
    float y[2];
    float z[2];
    DownTheZAxis().GetBoundingBox(&x[0], &x[1], &y[0], &y[1], &z[0], &z[1]);
    EXPECT_NEAR(x[0], -3.0F, kRounding);
    EXPECT_NEAR(x[1], 3.0F, kRounding);
    EXPECT_NEAR(y[0], -2.0F, kRounding);
    EXPECT_NEAR(y[1], 2.0F, kRounding);
    EXPECT_NEAR(z[0], -1.0F, kRounding);
    EXPECT_EQ(z[1], 0.0F);
}

TEST(FrustumTest, StandsWhereTheEyeIsAndLooksWhereItFaces)
{
    TQ3Vector3D const eye{10.0F, 20.0F, 30.0F};
    TQ3Vector3D const right{1.0F, 0.0F, 0.0F};
    Frustum const frustum(kRightAngle, 1.0F, &eye, &right, &kUp, 4.0F);
    // Facing +x with y up, the right hand is +z: 4 + 1 high, 5 + 1 wide.
    EXPECT_THAT(frustum.GetCorner(2), IsNear(14.0F, 25.0F, 36.0F, 1e-5F));
    EXPECT_TRUE(frustum.IsPointInside({13.0F, 20.0F, 30.0F}));
    EXPECT_FALSE(frustum.IsPointInside({9.0F, 20.0F, 30.0F}));
}

TEST(FrustumTest, DebuggerHookHasNoEffect)
{
    Frustum::InternalTest();
}

} // namespace
