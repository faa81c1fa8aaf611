// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "world/field/AsteroidField.h"

#include "platform/base/Random.h"
#include "support/Stage.h"
#include "support/VectorMatchers.h"
#include "support/Worlds.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <utility>
#include <vector>

namespace
{

using testing::ElementsAre;

constexpr int kCellsOfLevel = 16 * 16 * 16;

// What the draws of a seed fill each cell variant with: the size class, or -1. In the order of the draws.
std::vector<int> ExpectedClasses(unsigned seed)
{
    constexpr float kEdge = 0.01F;
    constexpr float kCentre = 0.5F;
    std::vector<int> classes;
    std::srand(seed);
    for (int level = 0; level < 8; ++level)
    {
        float const threshold = kEdge + static_cast<float>(level) * (kCentre - kEdge) / 7.0F;
        for (int cell = 0; cell < kCellsOfLevel; ++cell)
        {
            auto const draw = static_cast<float>(std::rand() * (1.0 / 2147483648.0));
            classes.push_back(threshold >= draw ? std::rand() % 4 : -1);
        }
    }
    return classes;
}

// The cell variants of a level, x outermost, z innermost; null where empty. The cells are moved in by whole
// repetitions of the field until they are of that level.
std::vector<Roid const*> Level(AsteroidField const& field, int level)
{
    int const depth = 16 * level;
    std::vector<Roid const*> roids;
    for (int cell = 0; cell < kCellsOfLevel; ++cell)
    {
        roids.push_back(field.RoidAt(cell / 256 + depth, cell / 16 % 16 + depth, cell % 16 + depth));
    }
    return roids;
}

auto CountFilled(AsteroidField const& field, int level)
{
    std::vector<Roid const*> const roids = Level(field, level);
    return kCellsOfLevel - std::count(roids.begin(), roids.end(), nullptr);
}

using Found = std::vector<std::pair<int, int>>; // z, size class

Found Walk(AsteroidField const& field, int x, int y, int first, int last)
{
    Found found;
    field.ForEachIn(x, y, first, last,
                    [&found](int z, int sizeClass, Roid const&) { found.emplace_back(z, sizeClass); });
    return found;
}

class AsteroidFieldTest : public Stage
{
protected:
    std::unique_ptr<AsteroidField> m_full = test::SeededField(1.0F, 1.0F, 0.2F, 0.2F);
    std::unique_ptr<AsteroidField> m_usual = test::SeededField(0.01F, 0.5F, 0.1F, 0.6F);
};

TEST_F(AsteroidFieldTest, SeedFillsTheLevelsOneAfterTheOtherWithZInnermost)
{
    std::vector<int> const expected = ExpectedClasses(1234);
    platform::SeedRandom(1234);
    AsteroidField const field(nullptr);
    std::size_t draw = 0;
    for (int level = 0; level < 8; ++level)
    {
        for (Roid const* const roid : Level(field, level))
        {
            ASSERT_EQ(roid == nullptr ? -1 : roid->GetSizeClass(), expected[draw]) << "draw " << draw;
            ++draw;
        }
    }
}

TEST_F(AsteroidFieldTest, SizeClassDecidesTheRadius)
{
    constexpr float kRadii[] = {0.1F, 0.26666667F, 0.43333334F, 0.6F};
    int counts[4] = {};
    for (Roid const* const roid : Level(*m_usual, 7))
    {
        if (roid != nullptr)
        {
            ASSERT_FLOAT_EQ(roid->GetRadius(), kRadii[roid->GetSizeClass()]);
            ++counts[roid->GetSizeClass()];
        }
    }
    for (int const count : counts)
    {
        EXPECT_NEAR(count, 512, 110); // about five standard deviations
    }
}

TEST_F(AsteroidFieldTest, AsteroidStandsInTheFirstOfItsCells)
{
    EXPECT_THAT(m_full->RoidAt(3, 4, 5)->GetPosition(), test::IsExactly(3.0F, 4.0F, 5.0F));
    EXPECT_THAT(m_full->RoidAt(19, 4, 5)->GetPosition(), test::IsExactly(3.0F, 4.0F, 5.0F));
}

TEST_F(AsteroidFieldTest, DensityOfZeroLeavesTheFieldEmpty)
{
    auto const empty = test::SeededField(0.0F, 0.0F, 0.1F, 0.6F);
    for (int level = 0; level < 8; ++level)
    {
        EXPECT_EQ(CountFilled(*empty, level), 0);
    }
    EXPECT_TRUE(Walk(*empty, 3, 4, 0, 300).empty());
}

TEST_F(AsteroidFieldTest, DensityOfOneFillsEverySlot)
{
    for (int level = 0; level < 8; ++level)
    {
        EXPECT_EQ(CountFilled(*m_full, level), kCellsOfLevel);
    }
}

// Edge 0.01 and centre 0.5 in seven equal steps; 4096 draws deviate by less than 0.04.
TEST_F(AsteroidFieldTest, DensityGrowsFromTheEdgeToTheCentre)
{
    for (int level = 0; level < 8; ++level)
    {
        double const density = static_cast<double>(CountFilled(*m_usual, level)) / kCellsOfLevel;
        EXPECT_NEAR(density, 0.01 + level * 0.07, 0.04) << "level " << level;
    }
}

TEST_F(AsteroidFieldTest, CoordinateGivesALevelForEverySixteenUnits)
{
    EXPECT_EQ(AsteroidField::CoordToDensity(0), 0);
    EXPECT_EQ(AsteroidField::CoordToDensity(15), 0);
    EXPECT_EQ(AsteroidField::CoordToDensity(16), 1);
    EXPECT_EQ(AsteroidField::CoordToDensity(111), 6);
    EXPECT_EQ(AsteroidField::CoordToDensity(112), 7);
    EXPECT_EQ(AsteroidField::CoordToDensity(1000), 7);
    EXPECT_EQ(AsteroidField::CoordToDensity(-15), 0);
}

TEST_F(AsteroidFieldTest, SmallestCoordinateIsTheDepth)
{
    EXPECT_EQ(m_full->RoidAt(16, 0, 0), m_full->RoidAt(0, 0, 0));
    EXPECT_EQ(m_full->RoidAt(1000, 1000, 15), m_full->RoidAt(8, 8, 15));
    EXPECT_NE(m_full->RoidAt(16, 16, 16), m_full->RoidAt(0, 0, 0));
    EXPECT_EQ(m_full->RoidAt(32, 16, 48), m_full->RoidAt(16, 16, 16));
    EXPECT_NE(m_full->RoidAt(112, 112, 112), m_full->RoidAt(96, 96, 96));
    EXPECT_EQ(m_full->RoidAt(128, 128, 128), m_full->RoidAt(112, 112, 112));
}

TEST_F(AsteroidFieldTest, NegativeSpaceIsEmpty)
{
    EXPECT_EQ(m_full->RoidAt(-1, 5, 5), nullptr);
    EXPECT_EQ(m_full->RoidAt(5, -1, 5), nullptr);
    EXPECT_EQ(m_full->RoidAt(5, 5, -16), nullptr);
}

TEST_F(AsteroidFieldTest, BothEndsOfAStretchAreIncluded)
{
    EXPECT_THAT(Walk(*m_full, 1, 2, 14, 17),
                ElementsAre(std::pair(14, 0), std::pair(15, 0), std::pair(16, 0), std::pair(17, 0)));
    EXPECT_THAT(Walk(*m_full, 1, 2, 15, 15), ElementsAre(std::pair(15, 0)));
}

TEST_F(AsteroidFieldTest, StretchThatEndsBeforeItBeginsHoldsNothing)
{
    EXPECT_TRUE(Walk(*m_full, 0, 0, 9, 8).empty());
    EXPECT_TRUE(Walk(*m_full, 0, 0, 1 << 30, -(1 << 30)).empty());
}

TEST_F(AsteroidFieldTest, StretchHoldsTheAsteroidsOfItsCellsInOrder)
{
    for (auto const& [x, y] : {std::pair{0, 0}, {5, 70}, {40, 33}, {130, 47}, {200, 190}, {127, 128}})
    {
        Found expected;
        for (int z = 3; z <= 250; ++z)
        {
            if (Roid const* const roid = m_usual->RoidAt(x, y, z))
            {
                expected.emplace_back(z, roid->GetSizeClass());
            }
        }
        EXPECT_EQ(Walk(*m_usual, x, y, 3, 250), expected) << "row " << x << ", " << y;
    }
}

} // namespace
