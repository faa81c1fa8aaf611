// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "world/Waypoint.h"

#include "math/Plane.h"
#include "platform/base/OpenGL.h"
#include "support/gl/RecordingGL.h"
#include "support/VectorMatchers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using recording::Call;
using recording::call;
using test::IsExactly;
using test::IsQuaternionNear;

constexpr float kQuarterTurn = 1.5707964F;
constexpr TQ3Vector3D kOrigin{0.0F, 0.0F, 0.0F};
constexpr TQ3Vector3D kForwards{0.0F, 0.0F, -1.0F};
constexpr TQ3Vector3D kUp{0.0F, 1.0F, 0.0F};

// A grey cube with a coloured spike on each face: top, left, back, right, front, bottom.
constexpr recording::Corner kCorners[14] = {
    {{0.1F, 0.1F, 0.1F}, {0.7F, 0.7F, 0.7F}},    {{0.1F, 0.1F, -0.1F}, {0.7F, 0.7F, 0.7F}},
    {{-0.1F, 0.1F, -0.1F}, {0.7F, 0.7F, 0.7F}},  {{-0.1F, 0.1F, 0.1F}, {0.7F, 0.7F, 0.7F}},
    {{0.1F, -0.1F, 0.1F}, {0.7F, 0.7F, 0.7F}},   {{0.1F, -0.1F, -0.1F}, {0.7F, 0.7F, 0.7F}},
    {{-0.1F, -0.1F, -0.1F}, {0.7F, 0.7F, 0.7F}}, {{-0.1F, -0.1F, 0.1F}, {0.7F, 0.7F, 0.7F}},
    {{0.0F, 0.5F, 0.0F}, {1.0F, 0.0F, 0.0F}},    {{-0.5F, 0.0F, 0.0F}, {0.0F, 1.0F, 0.0F}},
    {{0.0F, 0.0F, 0.5F}, {0.0F, 0.0F, 1.0F}},    {{0.5F, 0.0F, 0.0F}, {0.9F, 0.0F, 1.0F}},
    {{0.0F, 0.0F, -0.5F}, {0.5F, 1.0F, 1.0F}},   {{0.0F, -0.5F, 0.0F}, {1.0F, 0.7F, 0.2F}},
};
constexpr int kTriangles[24][3] = {
    {8, 0, 1},  {8, 1, 2},  {8, 2, 3},  {8, 3, 0},  //
    {9, 3, 2},  {9, 2, 6},  {9, 6, 7},  {9, 7, 3},  //
    {10, 0, 3}, {10, 3, 7}, {10, 7, 4}, {10, 4, 0}, //
    {11, 0, 4}, {11, 4, 5}, {11, 5, 1}, {11, 1, 0}, //
    {12, 1, 5}, {12, 5, 6}, {12, 6, 2}, {12, 2, 1}, //
    {13, 5, 4}, {13, 4, 7}, {13, 7, 6}, {13, 6, 5},
};

std::vector<Call> Drawing(Waypoint const& marker)
{
    Frustum const view(kQuarterTurn, 1.0F, &kOrigin, &kForwards, &kUp, 20.0F);
    return recording::during([&] { marker.Render(view); });
}

class WaypointTest : public testing::Test
{
protected:
    WaypointTest() { recording::reset(); }
};

TEST_F(WaypointTest, SpinsAQuarterTurnASecondAboutTheVertical)
{
    Waypoint const marker(nullptr);
    EXPECT_THAT(marker.GetRotationAxis(), IsExactly(0.0F, 1.0F, 0.0F));
    EXPECT_EQ(marker.GetRotationRate(), kQuarterTurn);
    EXPECT_EQ(marker.GetRadius(), 0.6F);
    EXPECT_EQ(marker.GetDiameter(), 1.2F);
}

TEST_F(WaypointTest, StandsWhereItIsPut)
{
    Waypoint const marker(nullptr, {1.0F, 2.0F, 3.0F});
    EXPECT_THAT(marker.GetPosition(), IsExactly(1.0F, 2.0F, 3.0F));
    EXPECT_EQ(marker.GetRadius(), 0.6F);
    EXPECT_EQ(marker.GetRotationRate(), kQuarterTurn);
}

TEST_F(WaypointTest, TicksWithoutMoving)
{
    Waypoint marker(nullptr, {1.0F, 2.0F, 3.0F});
    EXPECT_FALSE(marker.Tick(1.0));
    EXPECT_THAT(marker.GetPosition(), IsExactly(1.0F, 2.0F, 3.0F));
    EXPECT_THAT(marker.GetRotation(), IsQuaternionNear(0.70710678F, 0.0F, 0.70710678F, 0.0F, 1e-6F));
}

TEST_F(WaypointTest, OutOfViewDrawsNothing)
{
    EXPECT_TRUE(Drawing(Waypoint(nullptr, {0.0F, 0.0F, 10.0F})).empty());
}

TEST_F(WaypointTest, DrawsItsSpikesUnderItsOwnMatrix)
{
    std::vector<Call> const calls = Drawing(Waypoint(nullptr, {1.0F, 2.0F, -10.0F}));
    std::vector<double> triangles = {GL_TRIANGLES, 72};
    std::vector<recording::Corner> corners;
    for (int const(&triangle)[3] : kTriangles)
    {
        for (int const corner : triangle)
        {
            triangles.push_back(corner);
            corners.push_back(kCorners[corner]);
        }
    }
    std::vector<Call> const expected = {
        call("glDisable", {GL_LIGHTING}),
        call("glEnable", {GL_TEXTURE_2D}),
        call("glBindTexture", {GL_TEXTURE_2D, 0}),
        call("glEnableClientState", {GL_TEXTURE_COORD_ARRAY}),
        call("glTexCoordPointer", {3, GL_FLOAT, 0}),
        call("glEnableClientState", {GL_VERTEX_ARRAY}),
        call("glEnableClientState", {GL_COLOR_ARRAY}),
        call("glVertexPointer", {3, GL_FLOAT, 0}),
        call("glColorPointer", {3, GL_FLOAT, 0}),
        call("glPushMatrix"),
        call("glTranslatef", {1, 2, -10}),
        call("glMultMatrixf", {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}),
        Call{"glDrawElements", triangles},
        call("glPopMatrix"),
        call("glDisableClientState", {GL_COLOR_ARRAY}),
        call("glDisableClientState", {GL_VERTEX_ARRAY}),
        call("glDisableClientState", {GL_TEXTURE_COORD_ARRAY}),
        call("glDisable", {GL_TEXTURE_2D}),
        call("glEnable", {GL_LIGHTING})};
    EXPECT_THAT(calls, testing::ElementsAreArray(expected));
    EXPECT_THAT(recording::corners(), testing::ElementsAreArray(corners));
}

// A quarter turn about y takes x to -z: that is the matrix's first row.
TEST_F(WaypointTest, DrawsItselfTurned)
{
    Waypoint marker(nullptr, {0.0F, 0.0F, -10.0F});
    marker.Tick(1.0);
    std::vector<Call> const calls = Drawing(marker);
    int const at = recording::indexOf(calls, "glMultMatrixf");
    ASSERT_GE(at, 0);
    std::vector<double> const& matrix = calls[static_cast<std::size_t>(at)].arguments;
    EXPECT_NEAR(matrix[0], 0.0, 1e-6);
    EXPECT_NEAR(matrix[2], -1.0, 1e-6);
    EXPECT_NEAR(matrix[8], 1.0, 1e-6);
}

} // namespace
