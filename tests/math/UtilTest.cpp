// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "math/util.h"

#include "platform/base/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>

namespace
{

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

TEST(UtilTest, FltClampHoldsAValueInItsRange)
{
    EXPECT_EQ(FltClamp(0.5F, -1.0F, 1.0F), 0.5F);
    EXPECT_EQ(FltClamp(-2.0F, -1.0F, 1.0F), -1.0F);
    EXPECT_EQ(FltClamp(2.0F, -1.0F, 1.0F), 1.0F);
}

TEST(UtilTest, FltClampTestsTheMinimumFirst)
{
    EXPECT_EQ(FltClamp(0.0F, 3.0F, 1.0F), 3.0F);
}

TEST(UtilTest, ClampHoldsAValueInItsRange)
{
    EXPECT_EQ(clamp(0.5F, -1.0F, 1.0F), 0.5F);
    EXPECT_EQ(clamp(-2.0F, -1.0F, 1.0F), -1.0F);
    EXPECT_EQ(clamp(2.0F, -1.0F, 1.0F), 1.0F);
    EXPECT_EQ(clamp(0.0F, 3.0F, 1.0F), 3.0F);
}

TEST(UtilTest, SwapsExchange)
{
    int i = 1;
    int j = 2;
    IntSwap(i, j);
    EXPECT_EQ(i, 2);
    EXPECT_EQ(j, 1);

    float a = 1.5F;
    float b = 2.5F;
    FltSwap(a, b);
    EXPECT_EQ(a, 2.5F);
    EXPECT_EQ(b, 1.5F);
}

TEST(UtilTest, CloseMeansAbsolutelyNearerThanAHundredth)
{
    EXPECT_TRUE(FltIsCloseTo(0.0F, 0.0099F));
    EXPECT_TRUE(FltIsCloseTo(1000.0F, 1000.0F));
    EXPECT_FALSE(FltIsCloseTo(0.0F, 0.0101F));
    EXPECT_FALSE(FltIsCloseTo(1000.0F, 1000.0625F));
    EXPECT_FALSE(FltIsCloseTo(-0.005F, 0.0055F));
    // The float nearest to 0.01 is a little below 0.01.
    EXPECT_TRUE(FltIsCloseTo(0.01F, 0.0F));
}

// The C library's own sequence, scaled by two to the power of -31.
TEST(UtilTest, RandIsTheLibrarysSequenceScaled)
{
    std::srand(42);
    float expected[100];
    for (float& value : expected)
    {
        value = static_cast<float>(std::rand() * (1.0 / 2147483648.0));
    }
    platform::SeedRandom(42);
    for (float const value : expected)
    {
        EXPECT_EQ(Rand(), value);
    }
}

TEST(UtilTest, RandStaysInItsRange)
{
    platform::SeedRandom(1);
    for (int i = 0; i < 100000; ++i)
    {
        float const value = Rand();
        ASSERT_GE(value, 0.0F);
        ASSERT_LE(value, 1.0F); // 1 by rounding only
    }
}

TEST(UtilTest, FloatRangeScalesInDoublePrecision)
{
    std::srand(7);
    double const scaled = std::rand() * (1.0 / 2147483648.0);
    platform::SeedRandom(7);
    EXPECT_EQ(RandRange(-3.0F, 5.0F), static_cast<float>(scaled * 8.0 - 3.0));
}

TEST(UtilTest, IntRangeReachesBothEndsAndNothingElse)
{
    platform::SeedRandom(3);
    int counts[3] = {};
    for (int i = 0; i < 3000; ++i)
    {
        int const value = RandRange(-1, 1);
        ASSERT_GE(value, -1);
        ASSERT_LE(value, 1);
        ++counts[value + 1];
    }
    for (int const count : counts)
    {
        EXPECT_NEAR(count, 1000, 150); // more than five standard deviations
    }
}

TEST(UtilTest, IntRangeFloorsTheScaledNumber)
{
    int negative = 0;
    for (unsigned seed = 1; seed <= 30; ++seed)
    {
        std::srand(seed);
        auto const f = static_cast<float>(std::rand() * (1.0 / 2147483648.0));
        double const scaled = static_cast<double>(f * 10.0F) - 4.0;
        platform::SeedRandom(seed);
        EXPECT_EQ(RandRange(-4, 5), static_cast<int>(std::floor(scaled))) << scaled;
        negative += scaled < 0.0 ? 1 : 0;
    }
    EXPECT_GT(negative, 5);
}

// This seed's first draw is within 2^-25 of the greatest, so that its float is 1.
TEST(UtilTest, GreatestDrawOvershootsTheRange)
{
    constexpr unsigned kSeed = 22100322;
    std::srand(kSeed);
    ASSERT_EQ(std::rand(), 2147483636) << "another C library";
    platform::SeedRandom(kSeed);
    EXPECT_EQ(RandRange(3, 3), 4);
    platform::SeedRandom(kSeed);
    EXPECT_EQ(RandRange(-4, 5), 6);
    platform::SeedRandom(kSeed);
    EXPECT_EQ(RandRange(0.0F, 1.0F), 1.0F);
    platform::SeedRandom(kSeed);
    EXPECT_EQ(Rand(), 1.0F);
}

TEST(UtilTest, IntRangeOfOneNumberIsThatNumber)
{
    platform::SeedRandom(5);
    for (int i = 0; i < 1000; ++i)
    {
        ASSERT_EQ(RandRange(3, 3), 3);
    }
}

TEST(UtilTest, DistSquaredSumsTheSquaredDifferences)
{
    EXPECT_EQ(DistSquared({1.0F, 2.0F, 3.0F}, {-1.0F, 5.0F, 9.0F}), 49.0F);
}

TEST(UtilTest, DistIsTheSquareRootOfAnIntegerSum)
{
    EXPECT_EQ(Dist(0, 0, 0, 2, 3, 6), 7.0F);
    EXPECT_EQ(Dist(-1, 0, 0, 1, 1, 0), std::sqrt(5.0F));
}

// 65536 squared is 2^32, which 32 bits do not hold.
TEST(UtilTest, DistWrapsAroundForLargeCoordinates)
{
    EXPECT_EQ(Dist(65536, 3, 0, 0, 0, 0), 3.0F);
}

TEST(UtilTest, Power2CeilingDoublesFromOne)
{
    EXPECT_EQ(Power2Ceiling(0), 1U);
    EXPECT_EQ(Power2Ceiling(1), 1U);
    EXPECT_EQ(Power2Ceiling(2), 2U);
    EXPECT_EQ(Power2Ceiling(3), 4U);
    EXPECT_EQ(Power2Ceiling(1024), 1024U);
    EXPECT_EQ(Power2Ceiling(1025), 2048U);
    EXPECT_EQ(Power2Ceiling(0x80000000U), 0x80000000U);
}

TEST(UtilTest, FloorAndCeilingGoToTheIntegersBesides)
{
    EXPECT_EQ(FloorToInt(2.5F), 2);
    EXPECT_EQ(FloorToInt(-2.5F), -3);
    EXPECT_EQ(CeilToInt(2.5F), 3);
    EXPECT_EQ(CeilToInt(-2.5F), -2);
    EXPECT_EQ(FloorToInt(4.0F), 4);
    EXPECT_EQ(CeilToInt(4.0F), 4);
}

TEST(UtilTest, FloorAndCeilingStayWithinWhatACellRangeCanHold)
{
    EXPECT_EQ(FloorToInt(kInfinity), 1073741824);
    EXPECT_EQ(CeilToInt(-kInfinity), -1073741824);
    EXPECT_EQ(FloorToInt(1e20F), 1073741824);
    EXPECT_EQ(FloorToInt(kNaN), 0);
    EXPECT_EQ(CeilToInt(kNaN), 0);
}

} // namespace
