// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "math/qmath.h"
#include "support/VectorMatchers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using test::IsExactly;
using test::IsNear;

constexpr TQ3Vector3D kA{1.0F, 2.0F, 3.0F};
constexpr TQ3Vector3D kB{4.0F, -5.0F, 6.0F};

TEST(VectorTest, AddsAndReturnsTheResult)
{
    TQ3Vector3D out;
    EXPECT_EQ(Vector3D_Add(&kA, &kB, &out), &out);
    EXPECT_THAT(out, IsExactly(5.0F, -3.0F, 9.0F));
}

TEST(VectorTest, SubtractsTheSecondFromTheFirst)
{
    TQ3Vector3D out;
    Vector3D_Subtract(&kA, &kB, &out);
    EXPECT_THAT(out, IsExactly(-3.0F, 7.0F, -3.0F));
}

TEST(VectorTest, ScalesEachComponent)
{
    TQ3Vector3D out;
    Vector3D_Scale(&kA, -2.5F, &out);
    EXPECT_THAT(out, IsExactly(-2.5F, -5.0F, -7.5F));
}

TEST(VectorTest, DotSumsTheProducts)
{
    EXPECT_EQ(Vector3D_Dot(&kA, &kB), 12.0F);
}

TEST(VectorTest, CrossOfXAndYIsZ)
{
    TQ3Vector3D const x{1.0F, 0.0F, 0.0F};
    TQ3Vector3D const y{0.0F, 1.0F, 0.0F};
    TQ3Vector3D out;
    EXPECT_EQ(Vector3D_Cross(&x, &y, &out), &out);
    EXPECT_THAT(out, IsExactly(0.0F, 0.0F, 1.0F));
}

TEST(VectorTest, CrossFollowsItsFormula)
{
    TQ3Vector3D out;
    Vector3D_Cross(&kA, &kB, &out);
    EXPECT_THAT(out, IsExactly(27.0F, 6.0F, -13.0F));
}

TEST(VectorTest, CrossIntoEitherInputGivesTheSame)
{
    TQ3Vector3D intoA = kA;
    Vector3D_Cross(&intoA, &kB, &intoA);
    EXPECT_THAT(intoA, IsExactly(27.0F, 6.0F, -13.0F));

    TQ3Vector3D intoB = kB;
    Vector3D_Cross(&kA, &intoB, &intoB);
    EXPECT_THAT(intoB, IsExactly(27.0F, 6.0F, -13.0F));
}

TEST(VectorTest, LengthSquaredSumsTheSquares)
{
    EXPECT_EQ(Vector3D_GetLengthSquared(&kB), 77.0F);
}

TEST(VectorTest, NormalizeGivesUnitLengthAndTheOldLength)
{
    TQ3Vector3D const v{0.0F, 3.0F, -4.0F};
    TQ3Vector3D out;
    float length = -1.0F;
    EXPECT_EQ(Vector3D_Normalize(&v, &out, &length), &out);
    EXPECT_THAT(out, IsNear(0.0F, 0.6F, -0.8F, 1e-7F));
    EXPECT_EQ(length, 5.0F);
}

TEST(VectorTest, NormalizeMultipliesByOneReciprocal)
{
    TQ3Vector3D const v{7.0F, 0.0F, 0.0F};
    TQ3Vector3D out;
    Vector3D_Normalize(&v, &out);
    EXPECT_EQ(out.x, 7.0F * (1.0F / 7.0F));
}

TEST(VectorTest, NormalizePassesZeroThrough)
{
    TQ3Vector3D const zero{};
    TQ3Vector3D out{9.0F, 9.0F, 9.0F};
    float length = -1.0F;
    Vector3D_Normalize(&zero, &out, &length);
    EXPECT_THAT(out, IsExactly(0.0F, 0.0F, 0.0F));
    EXPECT_EQ(length, 0.0F);

    out = {9.0F, 9.0F, 9.0F};
    Vector3D_Normalize(&zero, &out);
    EXPECT_THAT(out, IsExactly(0.0F, 0.0F, 0.0F));
}

TEST(VectorTest, NormalizePassesATinyVectorThroughWithLengthZero)
{
    TQ3Vector3D const tiny{1e-8F, 0.0F, 0.0F};
    TQ3Vector3D out;
    float length = -1.0F;
    Vector3D_Normalize(&tiny, &out, &length);
    EXPECT_THAT(out, IsExactly(1e-8F, 0.0F, 0.0F));
    EXPECT_EQ(length, 0.0F);
}

TEST(VectorTest, NormalizeTakesALengthOfExactlyEpsilon)
{
    TQ3Vector3D const v{0.0F, 1.1920929e-07F, 0.0F};
    TQ3Vector3D out;
    Vector3D_Normalize(&v, &out);
    EXPECT_THAT(out, IsExactly(0.0F, 1.0F, 0.0F));
}

TEST(VectorTest, NormalizeWorksInPlace)
{
    TQ3Vector3D v{0.0F, 0.0F, 8.0F};
    Vector3D_Normalize(&v, &v);
    EXPECT_THAT(v, IsExactly(0.0F, 0.0F, 1.0F));
}

TEST(VectorTest, ModKeepsTheSignOfEachComponent)
{
    TQ3Vector3D const v{-7.0F, 7.0F, 2.5F};
    TQ3Vector3D out;
    EXPECT_EQ(Vector3D_Mod(&v, 5, &out), &out);
    EXPECT_THAT(out, IsExactly(-2.0F, 2.0F, 2.5F));
}

} // namespace
