// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The sky and its light, by the OpenGL calls that draw them.
#include "platform/base/OpenGL.h"
#include "support/gl/RecordingGL.h"
#include "support/Stage.h"
#include "support/Worlds.h"
#include "world/Universe.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace
{

using recording::Call;
using recording::call;
using recording::indexOf;

std::vector<Call> Drawing(Universe& world)
{
    return recording::during([&] { world.Render(800, 600); });
}

// The matrix that holds for the call at that index, as far as it was loaded whole.
std::vector<double> MatrixLoadedBefore(std::vector<Call> const& calls, int index)
{
    std::vector<double> matrix;
    for (int i = 0; i < index; ++i)
    {
        Call const& c = calls[static_cast<std::size_t>(i)];
        if (c.name == "glLoadMatrixf")
        {
            matrix = c.arguments;
        }
        else if (c.name == "glPopMatrix" || c.name == "glLoadIdentity")
        {
            matrix.clear();
        }
    }
    return matrix;
}

class SkyTest : public Stage
{
protected:
    SkyTest() { test::LayShip(*m_world->GetCamera(), {-20.0F, -20.0F, -20.0F}); }

    std::unique_ptr<Universe> m_world = test::EmptyWorld();
};

// Texture coordinate and vertex by turns, 24 times, in one batch of quads.
TEST_F(SkyTest, SkyIsACubeWithTheSamePictureOnEverySide)
{
    auto const calls = recording::during([&] { m_world->RenderEnvironmentBox(); });
    constexpr int kCorners[24][3] = {
        {-10, 10, -10}, {-10, -10, -10}, {10, -10, -10}, {10, 10, -10},  {-10, 10, 10},   {10, 10, 10},
        {10, -10, 10},  {-10, -10, 10},  {-10, 10, 10},  {-10, -10, 10}, {-10, -10, -10}, {-10, 10, -10},
        {10, 10, 10},   {10, 10, -10},   {10, -10, -10}, {10, -10, 10},  {-10, 10, -10},  {10, 10, -10},
        {10, 10, 10},   {-10, 10, 10},   {-10, -10, 10}, {10, -10, 10},  {10, -10, -10},  {-10, -10, -10}};
    constexpr int kTexture[4][2] = {{-1, 1}, {-1, -1}, {1, -1}, {1, 1}};
    std::vector<Call> expected = {
        call("glDisable", {GL_LIGHTING}),
        call("glEnable", {GL_TEXTURE_2D}),
        call("glBindTexture", {GL_TEXTURE_2D, static_cast<double>(m_world->GetSkyTexture())}),
        call("glDepthMask", {GL_FALSE}),
        call("glPushMatrix"),
        call("glColor4f", {1, 1, 1, 1}),
        call("glBegin", {GL_QUADS})};
    for (int i = 0; i < 24; ++i)
    {
        double const s = kTexture[i % 4][0];
        double const t = kTexture[i % 4][1];
        expected.push_back(call("glTexCoord3fv", {s, t, 0}));
        expected.push_back(
            call("glVertex3fv", {1.0 * kCorners[i][0], 1.0 * kCorners[i][1], 1.0 * kCorners[i][2]}));
    }
    for (Call const& last : {call("glEnd"), call("glPopMatrix"), call("glDepthMask", {GL_TRUE}),
                             call("glDisable", {GL_TEXTURE_2D}), call("glEnable", {GL_LIGHTING})})
    {
        expected.push_back(last);
    }
    EXPECT_THAT(calls, testing::ElementsAreArray(expected));
    EXPECT_THAT(recording::errorChecks(), testing::ElementsAre(6, static_cast<int>(calls.size())));
}

// Facing +x after a quarter turn to the right: the inverse rotation takes x to -z, which is its matrix's
// first row.
TEST_F(SkyTest, SkyAndLightStandUnderTheInverseOfTheShipsRotationAlone)
{
    Camera& ship = *m_world->GetCamera();
    ship.Body::SetRotationRate({0.0F, 1.0F, 0.0F}, 0.0F);
    ship.SetRotation(-1.5707964F);
    std::vector<Call> const calls = Drawing(*m_world);
    double const expected[16] = {0, 0, -1, 0, 0, 1, 0, 0, 1, 0, 0, 0, 0, 0, 0, 1};
    for (Call const& drawn :
         {call("glLightfv", {GL_LIGHT0, GL_POSITION, 10, 10, -10, 0.5}), call("glVertex3fv", {-10, 10, -10})})
    {
        std::vector<double> const matrix = MatrixLoadedBefore(calls, indexOf(calls, drawn));
        ASSERT_EQ(matrix.size(), 16U);
        for (std::size_t i = 0; i < 16; ++i)
        {
            EXPECT_NEAR(matrix[i], expected[i], 1e-6) << i;
        }
    }
}

// Depth 1 is what the buffer was cleared to: the sky fills what the field left empty, and nothing else.
TEST_F(SkyTest, SkyIsDrawnLastOfTheSceneAtTheFarEndOfTheDepthRange)
{
    auto const full = test::FullWorld(0.2F);
    test::LayShip(*full->GetCamera(), {8.3F, 8.3F, 30.0F});
    std::vector<Call> const calls = Drawing(*full);
    int const farEnd = indexOf(calls, call("glDepthRange", {1, 1}));
    int const sky = indexOf(calls, "glVertex3fv");
    int const back = indexOf(calls, call("glDepthRange", {0, 1}));
    ASSERT_GE(farEnd, 0);
    EXPECT_LT(indexOf(calls, call("glDisable", {GL_FOG})), farEnd);
    EXPECT_LT(farEnd, sky);
    EXPECT_LT(sky, back);
    EXPECT_EQ(indexOf(calls, "glCallList", farEnd), -1);
    EXPECT_LT(back, indexOf(calls, call("glTranslatef", {-0.1F, -0.35F, -1}))); // the cockpit
}

// Whatever was drawn before: another order of the depth test would leave the sky out.
TEST_F(SkyTest, SkySetsTheDepthTestThatItNeeds)
{
    recording::setEnabled(GL_DEPTH_TEST, false);
    std::vector<Call> const calls = Drawing(*m_world);
    int const test = indexOf(calls, call("glDepthFunc", {GL_LEQUAL}));
    ASSERT_GE(test, 0);
    EXPECT_LT(test, indexOf(calls, "glVertex3fv"));
    EXPECT_TRUE(recording::isEnabled(GL_DEPTH_TEST));
}

} // namespace
