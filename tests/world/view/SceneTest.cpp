// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// One frame of the scene, by the OpenGL calls that draw it.
#include "gfx/Roid.h"
#include "platform/base/OpenGL.h"
#include "support/gl/RecordingGL.h"
#include "support/MenuProbe.h"
#include "support/Stage.h"
#include "support/TestSettings.h"
#include "support/Worlds.h"
#include "ui/Overlay.h"
#include "world/Camera.h"
#include "world/Universe.h"
#include "world/Waypoint.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <vector>

namespace
{

using recording::Call;
using recording::call;
using recording::count;
using recording::indexOf;
using testing::Contains;
using testing::Not;

using Cell = std::array<int, 3>;

std::vector<Call> Drawing(Universe& world, int width = 800, int height = 600)
{
    return recording::during([&] { world.Render(width, height); });
}

// The cells whose asteroids were drawn.
std::vector<Cell> CellsIn(std::vector<Call> const& calls)
{
    std::vector<Cell> cells;
    for (std::size_t i = 0; i + 1 < calls.size(); ++i)
    {
        if (calls[i].name == "glTranslated" && calls[i + 1].name == "glCallList")
        {
            std::vector<double> const& at = calls[i].arguments;
            cells.push_back({static_cast<int>(at[0]), static_cast<int>(at[1]), static_cast<int>(at[2])});
        }
    }
    return cells;
}

double FogParameter(std::vector<Call> const& calls, unsigned name, int from = 0)
{
    for (int i = indexOf(calls, "glFogf", from); i >= 0; i = indexOf(calls, "glFogf", i + 1))
    {
        if (calls[static_cast<std::size_t>(i)].arguments[0] == name)
        {
            return calls[static_cast<std::size_t>(i)].arguments[1];
        }
    }
    return -1.0;
}

class SceneTest : public Stage
{
protected:
    SceneTest() { LayShip({-20.0F, -20.0F, -20.0F}); }

    void LayShip(TQ3Vector3D const& position) { test::LayShip(*m_world->GetCamera(), position); }

    std::unique_ptr<Universe> m_world = test::EmptyWorld();
};

TEST_F(SceneTest, ClearsAndSetsTheViewBeforeAllElse)
{
    std::vector<Call> calls = Drawing(*m_world, 1280, 720);
    calls.resize(14);
    std::vector<Call> const expected = {
        call("glClearColor", {0, 0, 0, 1}),
        call("glClearDepth", {1}),
        call("glClear", {GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT}),
        call("glViewport", {0, 0, 1280, 720}),
        call("glRenderMode", {GL_RENDER}),
        call("glDisable", {GL_BLEND}),
        call("glMatrixMode", {GL_PROJECTION}),
        call("glLoadIdentity"),
        call("gluPerspective", {45.0, 1280.0 / 720.0, 0.1, 100.0}),
        call("glMatrixMode", {GL_MODELVIEW}),
        call("glLoadIdentity"),
        call("gluLookAt", {-20, -20, -20, -20, -20, -21, 0, 1, 0}),
        call("glPushMatrix"),
        call("glLoadMatrixf", {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1})};
    EXPECT_THAT(calls, testing::ElementsAreArray(expected));
}

TEST_F(SceneTest, OnADenseDisplayTheViewportHasTheDisplaysPixels)
{
    recording::setDisplayScale(2);
    EXPECT_GE(indexOf(Drawing(*m_world, 1280, 720), call("glViewport", {0, 0, 2560, 1440})), 0);
}

TEST_F(SceneTest, StepsComeInTheirOrder)
{
    auto const full = test::FullWorld(0.2F);
    Camera& ship = *full->GetCamera();
    test::LayShip(ship, {8.3F, 8.3F, 30.0F});
    std::vector<Call> const calls = Drawing(*full);
    int at = 0;
    for (Call const& step :
         {call("gluLookAt", {8.3F, 8.3F, 30, 8.3F, 8.3F, 29, 0, 1, 0}),
          call("glLightfv", {GL_LIGHT0, GL_POSITION, 10, 10, -10, 0.5}), call("glPopMatrix"),
          call("glFogi", {GL_FOG_MODE, GL_LINEAR}), call("glEnable", {GL_FOG}),
          call("glBindTexture", {GL_TEXTURE_2D, static_cast<double>(Roid::m_texture)}),
          call("glDisable", {GL_TEXTURE_2D}), call("glDisable", {GL_FOG}),
          call("glTranslatef", {-0.1F, -0.35F, -1})})
    {
        at = indexOf(calls, step, at);
        ASSERT_GE(at, 0) << step;
    }
    int const firstRoid = indexOf(calls, "glCallList");
    EXPECT_GT(firstRoid, indexOf(calls, call("glEnable", {GL_FOG})));
    EXPECT_LT(firstRoid, indexOf(calls, call("glDisable", {GL_FOG})));
}

TEST_F(SceneTest, FogIsThinOutsideAndClosesInWithDepth)
{
    EXPECT_EQ(m_world->PointToFrustumDepth({-1.0F, 60.0F, 60.0F}), 50.0F);
    EXPECT_EQ(m_world->PointToFrustumDepth({0.0F, 60.0F, 60.0F}), 50.0F);
    EXPECT_EQ(m_world->PointToFrustumDepth({24.0F, 60.0F, 60.0F}), 35.0F);
    EXPECT_EQ(m_world->PointToFrustumDepth({60.0F, 12.0F, 60.0F}), 42.5F);
    EXPECT_EQ(m_world->PointToFrustumDepth({48.0F, 48.0F, 48.0F}), 20.0F);
    EXPECT_EQ(m_world->PointToFrustumDepth({60.0F, 60.0F, 60.0F}), 20.0F);
}

TEST_F(SceneTest, FogHasItsColourAndReachesToTheDepthOfThePlace)
{
    std::vector<Call> calls = Drawing(*m_world);
    EXPECT_THAT(calls, Contains(call("glFogfv", {GL_FOG_COLOR, 0.05F, 0.05F, 0.1F, 1})));
    EXPECT_EQ(FogParameter(calls, GL_FOG_START), 10.0);
    EXPECT_EQ(FogParameter(calls, GL_FOG_END), 50.0);
    LayShip({60.0F, 60.0F, 60.0F});
    calls = Drawing(*m_world);
    EXPECT_EQ(FogParameter(calls, GL_FOG_START), 10.0);
    EXPECT_EQ(FogParameter(calls, GL_FOG_END), 20.0);
}

TEST_F(SceneTest, FogFollowsItsSettings)
{
    test::ScopedSetting const start(setting::kFogStart, 5.0F);
    test::ScopedSetting const high(setting::kFogEndHigh, 80.0F);
    test::ScopedSetting const low(setting::kFogEndLow, 30.0F);
    auto const world = test::EmptyWorld();
    std::vector<Call> const calls = Drawing(*world);
    EXPECT_EQ(FogParameter(calls, GL_FOG_START), 5.0);
    EXPECT_EQ(FogParameter(calls, GL_FOG_END), 80.0);
    EXPECT_EQ(world->PointToFrustumDepth({60.0F, 60.0F, 60.0F}), 30.0F);
}

// From 10 to 50: halfway is 30.
TEST_F(SceneTest, FogStartsHalfwayToItsEndForTheMarker)
{
    TQ3Vector3D const marker = m_world->GetWaypointPosition(0);
    LayShip({marker.x, marker.y, marker.z + 10.0F});
    std::vector<Call> const calls = Drawing(*m_world);
    int const second = indexOf(calls, call("glFogf", {GL_FOG_START, 30.0}));
    ASSERT_GE(second, 0);
    EXPECT_GT(indexOf(calls, "glMultMatrixf"), second);
    EXPECT_LT(indexOf(calls, "glMultMatrixf"), indexOf(calls, call("glDisable", {GL_FOG})));
}

TEST_F(SceneTest, MarkerBehindTheShipIsNotDrawn)
{
    TQ3Vector3D const marker = m_world->GetWaypointPosition(0);
    LayShip({marker.x, marker.y, marker.z - 10.0F});
    EXPECT_EQ(count(Drawing(*m_world), "glMultMatrixf"), 0);
}

TEST_F(SceneTest, ViewInNegativeSpaceDrawsNoAsteroids)
{
    auto const full = test::FullWorld(0.2F);
    test::LayShip(*full->GetCamera(), {-60.0F, -60.0F, -20.0F});
    EXPECT_TRUE(CellsIn(Drawing(*full)).empty());
}

TEST_F(SceneTest, AsteroidsOutsideTheFrustumAreNotDrawn)
{
    auto const full = test::FullWorld(0.2F);
    test::LayShip(*full->GetCamera(), {100.0F, 100.0F, 100.0F});
    for (Cell const& cell : CellsIn(Drawing(*full)))
    {
        ASSERT_LE(cell[2], 101); // the apex lies a unit behind the ship
        ASSERT_GE(cell[2], 80);  // and the far end 21 units before that
    }
}

TEST_F(SceneTest, CellsAreWalkedWithZInnermost)
{
    auto const full = test::FullWorld(0.2F);
    test::LayShip(*full->GetCamera(), {60.0F, 60.0F, 60.0F});
    std::vector<Cell> const cells = CellsIn(Drawing(*full));
    ASSERT_GT(cells.size(), 100U);
    EXPECT_TRUE(std::is_sorted(cells.begin(), cells.end()));
    EXPECT_EQ(std::adjacent_find(cells.begin(), cells.end()), cells.end());
}

TEST_F(SceneTest, AsteroidsOfDeepCellsAreDrawnWhereTheyStand)
{
    auto const full = test::FullWorld(0.2F);
    test::LayShip(*full->GetCamera(), {200.0F, 200.0F, 200.0F});
    EXPECT_THAT(CellsIn(Drawing(*full)), Contains(Cell{200, 200, 199}));
}

TEST_F(SceneTest, HiddenCockpitIsNotDrawn)
{
    Call const instruments = call("glTranslatef", {-0.1F, -0.35F, -1});
    EXPECT_THAT(Drawing(*m_world), Contains(instruments));
    m_world->SetCockpitVisible(false);
    std::vector<Call> const calls = Drawing(*m_world);
    EXPECT_THAT(calls, Not(Contains(instruments)));
    EXPECT_EQ(count(calls, "gluOrtho2D"), 0); // no line of text either
}

TEST_F(SceneTest, FrameRateIsShownOnlyWhenTheSettingAsks)
{
    EXPECT_FALSE(Scene().GetFrameRate());
    test::ScopedSetting const shown(setting::kShowFps, 1);
    Scene const scene;
    ASSERT_TRUE(scene.GetFrameRate());
    EXPECT_EQ(probe::FontOf(*scene.GetFrameRate()), "Helvetica");
    EXPECT_EQ(probe::FontSizeOf(*scene.GetFrameRate()), 12.0F);
    EXPECT_EQ(probe::BoxOf(*scene.GetFrameRate()), (probe::Box{30, 30, 0, 0}));
}

TEST_F(SceneTest, AnyNumberButZeroAsksForTheFrameRate)
{
    test::ScopedSetting const half(setting::kShowFps, 0.5F);
    EXPECT_TRUE(Scene().GetFrameRate());
}

TEST_F(SceneTest, FrameRateTakesItsFontFromTheSettings)
{
    test::ScopedSetting const shown(setting::kShowFps, 1);
    test::ScopedSetting const size(setting::kFpsFontSize, 19);
    GameSettings::SetStringParam(setting::kFpsFontName, "Times");
    Scene const scene;
    GameSettings::SetStringParam(setting::kFpsFontName, "Helvetica");
    EXPECT_EQ(probe::FontOf(*scene.GetFrameRate()), "Times");
    EXPECT_EQ(probe::FontSizeOf(*scene.GetFrameRate()), 19.0F);
}

TEST_F(SceneTest, FrameRateIsWrittenWithSixDecimals)
{
    test::ScopedSetting const shown(setting::kShowFps, 1);
    Scene scene;
    scene.RenderFrameRate(4.0F, 800, 600);
    EXPECT_EQ(probe::TextOf(*scene.GetFrameRate()), "4.000000");
}

TEST_F(SceneTest, FrameRateIsTheInverseOfTheFrameTime)
{
    test::ScopedSetting const shown(setting::kShowFps, 1);
    auto const world = test::EmptyWorld();
    Overlay const& text = *world->GetScene().GetFrameRate();
    for (auto const& [frame, rate] : {std::pair{0.02, "50.000000"}, {0.25, "4.000000"}, {0.0, "inf"}})
    {
        world->Tick(frame);
        world->Render(800, 600);
        EXPECT_EQ(probe::TextOf(text), rate);
        world->Pause(); // measured all the same
    }
}

TEST_F(SceneTest, FrameRateIsDrawnOverTheSceneCockpitOrNot)
{
    test::ScopedSetting const shown(setting::kShowFps, 1);
    auto const world = test::EmptyWorld();
    world->SetCockpitVisible(false);
    std::vector<Call> const calls = Drawing(*world);
    EXPECT_EQ(count(calls, "gluOrtho2D"), 1);
    EXPECT_GT(indexOf(calls, "gluOrtho2D"), indexOf(calls, call("glDisable", {GL_FOG})));
}

TEST_F(SceneTest, LightingIsOnAfterTheFrame)
{
    recording::setEnabled(GL_LIGHTING, false);
    Drawing(*m_world);
    EXPECT_TRUE(recording::isEnabled(GL_LIGHTING));
    EXPECT_FALSE(recording::isEnabled(GL_FOG));
    EXPECT_FALSE(recording::isEnabled(GL_TEXTURE_2D));
}

TEST_F(SceneTest, EveryPushedMatrixIsPopped)
{
    auto const full = test::FullWorld(0.2F);
    test::LayShip(*full->GetCamera(), {60.0F, 60.0F, 60.0F});
    std::vector<Call> const calls = Drawing(*full);
    EXPECT_EQ(count(calls, "glPushMatrix"), count(calls, "glPopMatrix"));
}

} // namespace
