// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "world/field/FieldView.h"

#include "math/Plane.h"
#include "support/Stage.h"
#include "support/TestSettings.h"
#include "support/Worlds.h"
#include "world/field/AsteroidField.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <set>
#include <vector>

namespace
{

using Cell = std::array<int, 3>;

class FieldViewTest : public Stage
{
protected:
    FieldViewTest() { LookFrom({40.0F, 40.0F, 39.0F}); }

    // Asteroids of one size, in that share of the cells.
    void Fill(float density, float radius) { m_field = test::SeededField(density, density, radius, radius); }

    // Along -z, or turned by an angle about an axis that leans.
    void LookFrom(TQ3Vector3D const& place, float angle = 0.0F)
    {
        TQ3Vector3D axis{0.3F, 1.0F, 0.2F};
        Vector3D_Normalize(&axis, &axis);
        TQ3Quaternion turn;
        Q3Quaternion_SetRotateAboutAxis(&turn, &axis, angle);
        m_eye = {place, {0.0F, 0.0F, -1.0F}, {0.0F, 1.0F, 0.0F}};
        Q3Vector3D_TransformQuaternion(&m_eye.facing, &turn, &m_eye.facing);
        Q3Vector3D_TransformQuaternion(&m_eye.up, &turn, &m_eye.up);
    }

    // What the eye sees 20 units deep.
    std::vector<FieldView::Rock> const& Look() { return m_view.Choose(*m_field, View(), m_eye, 640, 480); }

    Frustum View() const
    {
        TQ3Vector3D apex;
        Vector3D_Subtract(&m_eye.position, &m_eye.facing, &apex);
        return {0.7853982F, 4.0F / 3.0F, &apex, &m_eye.facing, &m_eye.up, 21.0F};
    }

    std::vector<Cell> CellsInView() const
    {
        Frustum const view = View();
        std::vector<Cell> cells;
        for (int x = 0; x < 80; ++x)
        {
            for (int y = 0; y < 80; ++y)
            {
                for (int z = 0; z < 80; ++z)
                {
                    TQ3Vector3D const place{static_cast<float>(x), static_cast<float>(y),
                                            static_cast<float>(z)};
                    if (m_field->RoidAt(x, y, z) != nullptr && view.IsPointInside(place))
                    {
                        cells.push_back({x, y, z});
                    }
                }
            }
        }
        return cells;
    }

    std::unique_ptr<AsteroidField> m_field;
    FieldView m_view;
    Eye m_eye;
};

Cell CellOf(FieldView::Rock const& rock)
{
    return {static_cast<int>(rock.place.x), static_cast<int>(rock.place.y), static_cast<int>(rock.place.z)};
}

std::vector<Cell> CellsOf(std::vector<FieldView::Rock> const& rocks)
{
    std::vector<Cell> cells;
    std::transform(rocks.begin(), rocks.end(), std::back_inserter(cells), CellOf);
    return cells;
}

std::set<int> LayersOf(std::vector<FieldView::Rock> const& rocks)
{
    std::set<int> layers;
    for (FieldView::Rock const& rock : rocks)
    {
        layers.insert(CellOf(rock)[2]);
    }
    return layers;
}

TEST_F(FieldViewTest, ListsEveryAsteroidWhoseCentreIsInViewInTheOrderOfTheCells)
{
    Fill(0.2F, 0.1F);
    for (int turn = 0; turn < 12; ++turn)
    {
        LookFrom({40.3F, 38.6F, 45.1F}, static_cast<float>(turn) * 0.55F);
        std::vector<Cell> const expected = CellsInView();
        ASSERT_GT(expected.size(), 100U);
        EXPECT_EQ(CellsOf(Look()), expected) << "turn " << turn;
    }
}

// The frustum's apex lies at z = 1.3 for an eye at 0.3 that faces -z; its box ends there, and the ceiled end,
// 2, is excluded. An eye at 0 has its apex at 1: the ceiled end is 1 itself, and that layer is left out.
TEST_F(FieldViewTest, UpperEndOfTheCellRangeIsExcluded)
{
    Fill(1.0F, 0.1F);
    LookFrom({20.0F, 20.0F, 0.3F});
    EXPECT_THAT(LayersOf(Look()), testing::ElementsAre(0, 1));
    LookFrom({20.0F, 20.0F, 0.0F});
    EXPECT_THAT(LayersOf(Look()), testing::ElementsAre(0));
}

TEST_F(FieldViewTest, LevelOfDetailFollowsTheDistanceFromTheApex)
{
    test::ScopedSetting const medium(setting::kLodDistMedium, 10.0F);
    test::ScopedSetting const farthest(setting::kLodDistFar, 15.0F);
    Fill(1.0F, 0.1F);
    LookFrom({40.5F, 40.5F, 40.0F}); // the apex is at z = 41
    for (FieldView::Rock const& rock : Look())
    {
        float const x = rock.place.x - 40.5F;
        float const y = rock.place.y - 40.5F;
        float const z = rock.place.z - 41.0F;
        float const distance = std::sqrt(x * x + y * y + z * z);
        ASSERT_EQ(rock.levelOfDetail, distance >= 15.0F ? 2 : distance >= 10.0F ? 1 : 0);
    }
}

// The eye looks along a row of the lattice, from between two of its cells: the nearest hides all the others.
TEST_F(FieldViewTest, AsteroidsBehindNearerOnesAreNotShown)
{
    Fill(1.0F, 0.6F);
    LookFrom({40.0F, 40.0F, 39.0F});
    std::vector<FieldView::Rock> const& rocks = Look();
    auto const shownAt = [&rocks](int z)
    {
        return std::any_of(rocks.begin(), rocks.end(),
                           [z](FieldView::Rock const& rock) {
                               return rock.isShown && CellOf(rock) == Cell{40, 40, z};
                           });
    };
    EXPECT_TRUE(shownAt(38));
    EXPECT_FALSE(shownAt(36));
    EXPECT_FALSE(shownAt(25));
}

TEST_F(FieldViewTest, InAThinFieldAllThatIsInThePictureIsShown)
{
    Fill(0.0025F, 0.1F);
    LookFrom({40.3F, 40.4F, 60.2F});
    std::vector<FieldView::Rock> const& rocks = Look();
    ASSERT_GT(rocks.size(), 3U);
    for (FieldView::Rock const& rock : rocks)
    {
        bool const isInPicture = std::fabs(rock.seen.up) < rock.seen.ahead * 0.414F &&
                                 std::fabs(rock.seen.right) < rock.seen.ahead * 0.414F * 4.0F / 3.0F;
        EXPECT_TRUE(rock.isShown || !isInPicture);
    }
}

TEST_F(FieldViewTest, NegativeSpaceIsEmpty)
{
    Fill(1.0F, 0.6F);
    LookFrom({-60.0F, -60.0F, -20.0F});
    EXPECT_TRUE(Look().empty());
}

} // namespace
