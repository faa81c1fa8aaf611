// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "world/field/FieldRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <utility>
#include <vector>

namespace
{

using Found = std::vector<std::pair<int, int>>; // z, size class

Found Walk(FieldRows const& field, int x, int y, int first, int last)
{
    Found found;
    field.ForEachIn(x, y, first, last, [&found](int z, int sizeClass) { found.emplace_back(z, sizeClass); });
    return found;
}

// Some cells of every variant, and the same noted plainly: -1 where there is none.
struct ScatteredField
{
    ScatteredField()
    {
        std::mt19937 dice(7);
        for (int i = 0; i < 16 * 16 * 16 * 8; ++i)
        {
            bool const isFilled = dice() % 3 == 0;
            sizeClass.push_back(isFilled ? static_cast<int>(dice() % 4) : -1);
            if (isFilled)
            {
                rows.Add(i / 16 / 16 / 8, i / 16 / 8 % 16, i / 8 % 16, i % 8, sizeClass.back());
            }
        }
    }

    int At(int x, int y, int z) const
    {
        int const level = std::min(std::min({x, y, z}) / 16, 7);
        return sizeClass[static_cast<std::size_t>(((x % 16 * 16 + y % 16) * 16 + z % 16) * 8 + level)];
    }

    FieldRows rows;
    std::vector<int> sizeClass;
};

TEST(FieldRows, NewFieldIsEmpty)
{
    EXPECT_TRUE(Walk(FieldRows(), 3, 4, 0, 300).empty());
}

TEST(FieldRows, CellRepeatsEverySixteenUnits)
{
    FieldRows field;
    field.Add(1, 2, 3, 0, 2);
    EXPECT_THAT(Walk(field, 1, 2, 0, 60),
                testing::ElementsAre(std::pair(3, 2), std::pair(19, 2), std::pair(35, 2), std::pair(51, 2)));
    EXPECT_EQ(Walk(field, 17, 2, 0, 15).size(), 1U);
}

TEST(FieldRows, BothEndsAreIncluded)
{
    FieldRows field;
    field.Add(0, 0, 5, 0, 1);
    field.Add(0, 0, 9, 0, 1);
    EXPECT_EQ(Walk(field, 0, 0, 5, 9).size(), 2U);
    EXPECT_EQ(Walk(field, 0, 0, 6, 8).size(), 0U);
    EXPECT_EQ(Walk(field, 0, 0, 6, 9).size(), 1U);
}

TEST(FieldRows, StretchThatEndsBeforeItBeginsHoldsNothing)
{
    FieldRows field;
    for (int z = 0; z < 16; ++z)
    {
        field.Add(0, 0, z, 0, 0);
    }
    EXPECT_TRUE(Walk(field, 0, 0, 9, 8).empty());
    EXPECT_TRUE(Walk(field, 0, 0, 1 << 30, -(1 << 30)).empty());
}

// The smallest coordinate decides which variant a cell is of.
TEST(FieldRows, RowsRunThroughTheLevelsOfTheirDepth)
{
    ScatteredField const field;
    for (auto const& [x, y] : {std::pair{0, 0}, {5, 70}, {40, 33}, {130, 47}, {200, 190}, {127, 128}})
    {
        Found expected;
        for (int z = 3; z <= 250; ++z)
        {
            if (field.At(x, y, z) >= 0)
            {
                expected.emplace_back(z, field.At(x, y, z));
            }
        }
        EXPECT_EQ(Walk(field.rows, x, y, 3, 250), expected) << "row " << x << ", " << y;
    }
}

} // namespace
