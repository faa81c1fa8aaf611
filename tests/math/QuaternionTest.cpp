// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "math/qmath.h"
#include "support/VectorMatchers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace
{

using test::IsExactly;
using test::IsNear;
using test::IsQuaternion;
using test::IsQuaternionNear;

constexpr float kHalfTurn = 3.1415927F;
constexpr float kQuarterTurn = 1.5707964F;
constexpr float kRounding = 1e-6F;
constexpr TQ3Vector3D kX{1.0F, 0.0F, 0.0F};
constexpr TQ3Vector3D kY{0.0F, 1.0F, 0.0F};
constexpr TQ3Vector3D kZ{0.0F, 0.0F, 1.0F};
constexpr TQ3Quaternion kIdentity{1.0F, 0.0F, 0.0F, 0.0F};
constexpr TQ3Quaternion kQ{1.0F, 2.0F, 3.0F, 4.0F};
constexpr TQ3Quaternion kR{5.0F, 6.0F, 7.0F, 8.0F};

TQ3Quaternion About(TQ3Vector3D const& axis, float angle)
{
    TQ3Quaternion q;
    Q3Quaternion_SetRotateAboutAxis(&q, &axis, angle);
    return q;
}

TQ3Vector3D Rotated(TQ3Vector3D const& v, TQ3Quaternion const& q)
{
    TQ3Vector3D out;
    Q3Vector3D_TransformQuaternion(&v, &q, &out);
    return out;
}

TQ3Quaternion FromTo(TQ3Vector3D const& from, TQ3Vector3D const& to)
{
    TQ3Quaternion q;
    Q3Quaternion_SetRotateVectorToVector(&q, &from, &to);
    return q;
}

TQ3Quaternion Normalized(TQ3Quaternion const& q)
{
    TQ3Quaternion out;
    EXPECT_EQ(Q3Quaternion_Normalize(&q, &out), &out);
    return out;
}

TQ3Quaternion InterpolatedLinear(TQ3Quaternion const& from, TQ3Quaternion const& to, float t)
{
    TQ3Quaternion out;
    EXPECT_EQ(Q3Quaternion_InterpolateLinear(&from, &to, t, &out), &out);
    return out;
}

TEST(QuaternionTest, IdentityHasScalarPartOne)
{
    TQ3Quaternion q = kQ;
    Q3Quaternion_SetIdentity(&q);
    EXPECT_THAT(q, IsQuaternion(1.0F, 0.0F, 0.0F, 0.0F));
}

TEST(QuaternionTest, InvertConjugatesWithoutDividing)
{
    TQ3Quaternion out;
    Q3Quaternion_Invert(&kQ, &out);
    EXPECT_THAT(out, IsQuaternion(1.0F, -2.0F, -3.0F, -4.0F));
}

TEST(QuaternionTest, DotSumsFourProducts)
{
    EXPECT_EQ(Q3Quaternion_Dot(&kQ, &kR), 70.0F);
}

// The Hamilton product r * q of (1; 2, 3, 4) and (5; 6, 7, 8), by hand.
TEST(QuaternionTest, MultiplyIsTheHamiltonProductOfSecondAndFirst)
{
    TQ3Quaternion out;
    Q3Quaternion_Multiply(&kQ, &kR, &out);
    EXPECT_THAT(out, IsQuaternion(-60.0F, 20.0F, 14.0F, 32.0F));
}

TEST(QuaternionTest, MultiplyTurnsFirstByTheFirst)
{
    TQ3Quaternion const aboutZ = About(kZ, kQuarterTurn);
    TQ3Quaternion const aboutX = About(kX, kQuarterTurn);
    TQ3Quaternion both;
    Q3Quaternion_Multiply(&aboutZ, &aboutX, &both);
    // x turns to y about z, and y to z about x.
    EXPECT_THAT(Rotated(kX, both), IsNear(0.0F, 0.0F, 1.0F, kRounding));
}

TEST(QuaternionTest, MultiplyWorksIntoEitherInput)
{
    TQ3Quaternion q = kQ;
    Q3Quaternion_Multiply(&q, &kR, &q);
    EXPECT_THAT(q, IsQuaternion(-60.0F, 20.0F, 14.0F, 32.0F));

    TQ3Quaternion r = kR;
    Q3Quaternion_Multiply(&kQ, &r, &r);
    EXPECT_THAT(r, IsQuaternion(-60.0F, 20.0F, 14.0F, 32.0F));
}

TEST(QuaternionTest, NormalizeDividesByTheNorm)
{
    EXPECT_THAT(Normalized({2.0F, 0.0F, 0.0F, 0.0F}), IsQuaternion(1.0F, 0.0F, 0.0F, 0.0F));
    EXPECT_THAT(Normalized({1.0F, -1.0F, 1.0F, -1.0F}), IsQuaternion(0.5F, -0.5F, 0.5F, -0.5F));
}

TEST(QuaternionTest, NormalizeLeavesWhatIsNearlyUnitLengthAlone)
{
    EXPECT_THAT(Normalized({1.0F, 0.0F, 0.0F, 1e-4F}), IsQuaternion(1.0F, 0.0F, 0.0F, 1e-4F));
}

// The bounds themselves, squared norms of 1 - 2^-23 and 1 + 2^-23, are not skipped.
TEST(QuaternionTest, NormalizeTakesSquaredNormsOneEpsilonFromOne)
{
    TQ3Quaternion const q{1.0F, 0.00034526698F, 0.0F, 0.0F};
    ASSERT_EQ(Q3Quaternion_Dot(&q, &q), 1.0000001F);
    EXPECT_LT(Normalized(q).w, 1.0F);
}

TEST(QuaternionTest, NormalizePassesZeroThrough)
{
    EXPECT_THAT(Normalized({0.0F, 0.0F, 0.0F, 0.0F}), IsQuaternion(0.0F, 0.0F, 0.0F, 0.0F));
}

TEST(QuaternionTest, NormalizePassesASquaredNormBelowEpsilonThrough)
{
    EXPECT_THAT(Normalized({3e-4F, 0.0F, 0.0F, 0.0F}), IsQuaternion(3e-4F, 0.0F, 0.0F, 0.0F));
}

TEST(QuaternionTest, RotationAboutAnAxisHoldsHalfTheAngle)
{
    TQ3Vector3D const axis{0.0F, 2.0F, 0.0F};
    TQ3Quaternion out;
    EXPECT_EQ(Q3Quaternion_SetRotateAboutAxis(&out, &axis, kHalfTurn / 3.0F), &out);
    // sin(30 degrees) times the axis as given, not normalised.
    EXPECT_THAT(out, IsQuaternionNear(0.8660254F, 0.0F, 1.0F, 0.0F, kRounding));
}

TEST(QuaternionTest, PositiveAngleAboutZTurnsXTowardsY)
{
    EXPECT_THAT(Rotated(kX, About(kZ, kQuarterTurn)), IsNear(0.0F, 1.0F, 0.0F, kRounding));
}

TEST(QuaternionTest, PointIsTurnedLikeAVector)
{
    TQ3Quaternion const q = About(kY, kQuarterTurn);
    TQ3Vector3D const p{1.0F, 2.0F, 3.0F};
    TQ3Vector3D out;
    EXPECT_EQ(Q3Point3D_TransformQuaternion(&p, &q, &out), &out);
    EXPECT_THAT(out, IsNear(3.0F, 2.0F, -1.0F, kRounding * 4.0F));
}

TEST(QuaternionTest, TransformDoesNotNormalizeTheQuaternion)
{
    TQ3Quaternion const twice{2.0F, 0.0F, 0.0F, 0.0F};
    EXPECT_THAT(Rotated(kX, twice), IsExactly(4.0F, 0.0F, 0.0F));
}

TEST(QuaternionTest, TransformWorksInPlace)
{
    TQ3Vector3D v = kX;
    TQ3Quaternion const q = About(kZ, kQuarterTurn);
    Q3Vector3D_TransformQuaternion(&v, &q, &v);
    EXPECT_THAT(v, IsNear(0.0F, 1.0F, 0.0F, kRounding));
}

TEST(QuaternionTest, VectorToItselfIsTheIdentity)
{
    EXPECT_THAT(FromTo(kX, kX), IsQuaternion(1.0F, 0.0F, 0.0F, 0.0F));
}

TEST(QuaternionTest, VectorToVectorIsTheShortestArc)
{
    TQ3Quaternion const q = FromTo(kX, kY);
    EXPECT_THAT(q, IsQuaternionNear(0.70710678F, 0.0F, 0.0F, 0.70710678F, kRounding));
    EXPECT_THAT(Rotated(kX, q), IsNear(0.0F, 1.0F, 0.0F, kRounding));
}

// The smallest component of (-1, 0, 0) is y's: on a tie y comes before z.
TEST(QuaternionTest, OppositeVectorsGiveAHalfTurnAboutAPerpendicularAxis)
{
    TQ3Vector3D const back{-1.0F, 0.0F, 0.0F};
    TQ3Quaternion const q = FromTo(kX, back);
    EXPECT_EQ(q.w, 0.0F);
    EXPECT_EQ(q.x, 0.0F);
    EXPECT_FLOAT_EQ(q.y * q.y + q.z * q.z, 1.0F);
    EXPECT_THAT(Rotated(kX, q), IsNear(-1.0F, 0.0F, 0.0F, kRounding));
}

// h = to * dot(axis, to) - axis, then the vector part is h x to.
TEST(QuaternionTest, HalfTurnTakesTheAxisOfTheLeastComponent)
{
    // Least |x|, |y| above |z| = 0: the z axis. h = (0, 0, -1); h x to = (0.8, -0.6, 0).
    EXPECT_THAT(FromTo({-0.6F, -0.8F, 0.0F}, {0.6F, 0.8F, 0.0F}),
                IsQuaternionNear(0.0F, 0.8F, -0.6F, 0.0F, 1e-6F));
    // |x| above |y|: the y axis. h = (0, -1, 0); h x to = (-0.6, 0, 0.8).
    EXPECT_THAT(FromTo({-0.8F, 0.0F, -0.6F}, {0.8F, 0.0F, 0.6F}),
                IsQuaternionNear(0.0F, -0.6F, 0.0F, 0.8F, 1e-6F));
    // Otherwise the x axis, in a tie too. h = (-1, 0, 0); h x (0, 0, 1) = (0, 1, 0).
    EXPECT_THAT(FromTo({0.0F, 0.0F, -1.0F}, {0.0F, 0.0F, 1.0F}),
                IsQuaternionNear(0.0F, 0.0F, 1.0F, 0.0F, 1e-6F));
}

// Their sum is not zero, but its length is rounded to zero.
TEST(QuaternionTest, VectorsWhoseSumHasNoLengthAreOpposite)
{
    TQ3Quaternion const q = FromTo(kX, {-1.0F, 1e-30F, 0.0F});
    EXPECT_NEAR(Q3Quaternion_Dot(&q, &q), 1.0F, kRounding);
}

TEST(QuaternionTest, InterpolateLinearFollowsTheArc)
{
    // 30 degrees about z.
    EXPECT_THAT(InterpolatedLinear(About(kZ, 0.0F), About(kZ, kQuarterTurn), 1.0F / 3.0F),
                IsQuaternionNear(0.9659258F, 0.0F, 0.0F, 0.2588190F, kRounding));
}

TEST(QuaternionTest, InterpolateLinearOfEqualOnesSnapsToAnEnd)
{
    TQ3Quaternion const q{0.6F, 0.8F, 0.0F, 0.0F};
    EXPECT_THAT(InterpolatedLinear(q, q, 0.3F), IsQuaternion(0.6F, 0.8F, 0.0F, 0.0F));
    EXPECT_THAT(InterpolatedLinear(q, q, 0.7F), IsQuaternion(0.6F, 0.8F, 0.0F, 0.0F));
}

TEST(QuaternionTest, InterpolateLinearOfOppositeOnesSnapsToTheNearerEnd)
{
    TQ3Quaternion const r{-1.0F, 0.0F, 0.0F, 0.0F};
    EXPECT_THAT(InterpolatedLinear(kIdentity, r, 0.5F), IsQuaternion(1.0F, 0.0F, 0.0F, 0.0F));
    EXPECT_THAT(InterpolatedLinear(kIdentity, r, 0.6F), IsQuaternion(-1.0F, 0.0F, 0.0F, 0.0F));
}

TEST(QuaternionTest, InterpolateLinearTakesTheLongWayRound)
{
    TQ3Quaternion const r{-0.5F, 0.8660254F, 0.0F, 0.0F}; // 120 degrees from the other in four dimensions
    EXPECT_THAT(InterpolatedLinear(kIdentity, r, 0.5F),
                IsQuaternionNear(0.5F, 0.8660254F, 0.0F, 0.0F, kRounding));
}

TEST(QuaternionTest, InterpolateFastMixesAndNormalizes)
{
    TQ3Quaternion const r{0.0F, 1.0F, 0.0F, 0.0F};
    TQ3Quaternion out;
    EXPECT_EQ(Q3Quaternion_InterpolateFast(&kIdentity, &r, 0.25F, &out), &out);
    // (0.75, 0.25) over the square root of 0.625.
    EXPECT_THAT(out, IsQuaternionNear(0.9486833F, 0.3162278F, 0.0F, 0.0F, kRounding));
}

TEST(QuaternionTest, InterpolateFastDoesNotFlipToTheShorterArc)
{
    TQ3Quaternion const minus{-1.0F, 0.0F, 0.0F, 0.0F};
    TQ3Quaternion out;
    Q3Quaternion_InterpolateFast(&kIdentity, &minus, 0.5F, &out);
    EXPECT_THAT(out, IsQuaternion(0.0F, 0.0F, 0.0F, 0.0F));
}

TEST(MatrixTest, IdentityHasOnesOnItsDiagonal)
{
    TQ3Matrix4x4 m;
    m.value[2][1] = 7.0F;
    EXPECT_EQ(Q3Matrix4x4_SetIdentity(&m), &m);
    for (int row = 0; row < 4; ++row)
    {
        for (int column = 0; column < 4; ++column)
        {
            EXPECT_EQ(m.value[row][column], row == column ? 1.0F : 0.0F);
        }
    }
}

TEST(MatrixTest, QuaternionFillsRowsOfARotation)
{
    TQ3Quaternion const q{0.5F, 0.1F, 0.2F, 0.3F}; // not of unit length: the formula as it stands
    TQ3Matrix4x4 m;
    Q3Matrix4x4_SetQuaternion(&m, &q);
    float const expected[4][4] = {{0.74F, 0.34F, -0.14F, 0.0F},
                                  {-0.26F, 0.80F, 0.22F, 0.0F},
                                  {0.26F, 0.02F, 0.90F, 0.0F},
                                  {0.0F, 0.0F, 0.0F, 1.0F}};
    for (int row = 0; row < 4; ++row)
    {
        for (int column = 0; column < 4; ++column)
        {
            EXPECT_NEAR(m.value[row][column], expected[row][column], 1e-6F) << row << ", " << column;
        }
    }
}

// A point as a row from the left: its turned x axis is the first row.
TEST(MatrixTest, RowsAreTheTurnedAxes)
{
    TQ3Quaternion const q = About(kZ, kQuarterTurn);
    TQ3Matrix4x4 m;
    Q3Matrix4x4_SetQuaternion(&m, &q);
    EXPECT_NEAR(m.value[0][0], 0.0F, kRounding);
    EXPECT_NEAR(m.value[0][1], 1.0F, kRounding);
    EXPECT_NEAR(m.value[1][0], -1.0F, kRounding);
}

TEST(MatrixTest, DebuggerHookHasNoEffect)
{
    TQ3Test();
}

} // namespace
