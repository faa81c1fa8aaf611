// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The instruments, by the OpenGL calls that draw them.
#include "platform/base/OpenGL.h"
#include "support/flight/Vectors.h"
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

#include <cmath>
#include <vector>

namespace
{

using recording::Call;
using recording::call;
using recording::indexOf;

constexpr int kWidth = 1280;
constexpr int kHeight = 720;

class CockpitTest : public Stage
{
protected:
    CockpitTest() { LayShipWithMarkerAt({0.0F, 0.0F, -10.0F}); }

    // The ship unturned, so that the marker lies at that offset: x to its right, y above, -z ahead.
    void LayShipWithMarkerAt(TQ3Vector3D const& offset)
    {
        test::LayShip(*m_world->GetCamera(), test::Difference(m_world->GetWaypointPosition(0), offset));
    }

    // The calls from the cockpit's own matrix to the end of the instruments.
    std::vector<Call> Instruments()
    {
        std::vector<Call> calls = recording::during([&] { m_world->RenderCockpit(kWidth, kHeight); });
        int const first = indexOf(calls, call("glTranslatef", {-0.1F, -0.35F, -1}));
        int const last = indexOf(calls, "glPopMatrix", first);
        return {calls.begin() + first, calls.begin() + last + 1};
    }

    double CompassAngle()
    {
        std::vector<Call> const calls = Instruments();
        int const dial = indexOf(calls, call("glScalef", {0.12F, 0.12F, 0.12F}));
        Call const& turn = calls[static_cast<std::size_t>(dial) + 1];
        EXPECT_EQ(turn.name, "glRotatef");
        EXPECT_EQ(turn.arguments[3], 1.0); // about z
        return turn.arguments[0];
    }

    double CompassAngleTo(TQ3Vector3D const& offset)
    {
        LayShipWithMarkerAt(offset);
        return CompassAngle();
    }

    // The height of the elevation bar: its second corner.
    double ElevationBar()
    {
        std::vector<Call> const calls = Instruments();
        int const bar = indexOf(calls, call("glVertex2f", {0.08F, 0}));
        return calls[static_cast<std::size_t>(bar) + 1].arguments[1];
    }

    std::unique_ptr<Universe> m_world = test::EmptyWorld();
};

TEST_F(CockpitTest, DrawsItsInstrumentsInOrder)
{
    m_world->PlayerWantsToGo(0.5F);
    std::vector<Call> const expected = {
        call("glTranslatef", {-0.1F, -0.35F, -1}),
        // throttle
        call("glColor4f", {1, 0.2F, 0.2F, 1}), call("glBegin", {GL_QUADS}),
        call("glVertex2f", {-0.095F, -0.02F}), call("glVertex2f", {-0.095F, 0}),
        call("glVertex2f", {-0.085F, 0}), call("glVertex2f", {-0.085F, -0.02F}), call("glEnd"),
        call("glColor4f", {0.4F, 0.4F, 0.4F, 1}), call("glBegin", {GL_LINE_LOOP}),
        call("glVertex2f", {-0.095F, -0.02F}), call("glVertex2f", {-0.095F, 0.02F}),
        call("glVertex2f", {-0.085F, 0.02F}), call("glVertex2f", {-0.085F, -0.02F}), call("glEnd"),
        // elevation
        call("glBegin", {GL_QUADS}), call("glColor4f", {0, 1, 0.5, 1}), call("glVertex2f", {0.08F, 0}),
        call("glVertex2f", {0.08F, 0}), call("glVertex2f", {0.09F, 0}), call("glVertex2f", {0.09F, 0}),
        call("glColor4f", {0.4F, 0.4F, 0.4F, 1}), call("glVertex2f", {0.07F, -0.0015F}),
        call("glVertex2f", {0.07F, 0.0015F}), call("glVertex2f", {0.1F, 0.0015F}),
        call("glVertex2f", {0.1F, -0.0015F}), call("glEnd"),
        // compass
        call("glRotatef", {-90, 1, 0, 0}), call("glColor4f", {0.5, 0.5, 0.5, 1}),
        call("glBegin", {GL_LINE_LOOP}), call("glVertex2f", {-0.07F, -0.07F}),
        call("glVertex2f", {-0.07F, 0.07F}), call("glVertex2f", {0.07F, 0.07F}),
        call("glVertex2f", {0.07F, -0.07F}), call("glEnd"), call("glScalef", {0.12F, 0.12F, 0.12F}),
        call("glRotatef", {0, 0, 0, 1}),
        // arrow
        call("glEnableClientState", {GL_VERTEX_ARRAY}), call("glVertexPointer", {2, GL_FLOAT, 0}),
        call("glColor4f", {0, 1, 0.5, 1}), call("glDrawElements", {GL_TRIANGLES, 3, 3, 4, 5}),
        call("glDrawElements", {GL_QUADS, 4, 0, 1, 2, 6}), call("glDisableClientState", {GL_VERTEX_ARRAY}),
        call("glPopMatrix")};
    EXPECT_THAT(Instruments(), testing::ElementsAreArray(expected));
}

// Its head, and its shaft.
TEST_F(CockpitTest, ArrowIsGreenAndPointsUpTheDial)
{
    Instruments();
    constexpr float kPlaces[7][2] = {{0.3F, 0.1F},  {0.0F, 0.45F}, {-0.3F, 0.1F}, {-0.1F, -0.3F},
                                     {0.1F, -0.3F}, {0.1F, 0.1F},  {-0.1F, 0.1F}};
    std::vector<recording::Corner> arrow;
    for (auto const& [x, y] : kPlaces)
    {
        arrow.push_back({{x, y, 0.0F}, {0.0F, 1.0F, 0.5F}});
    }
    EXPECT_THAT(recording::corners(), testing::ElementsAreArray(arrow));
}

TEST_F(CockpitTest, ThrottleOfZeroShowsTheFrameOnly)
{
    std::vector<Call> const calls = Instruments();
    EXPECT_EQ(indexOf(calls, call("glColor4f", {1, 0.2F, 0.2F, 1})), -1);
    EXPECT_GE(indexOf(calls, call("glVertex2f", {-0.095F, 0.02F})), 0);
}

TEST_F(CockpitTest, FullThrottleFillsTheFrameAndMoreRunsPastIt)
{
    m_world->PlayerWantsToGo(1.0F);
    std::vector<Call> calls = Instruments();
    int bar = indexOf(calls, call("glColor4f", {1, 0.2F, 0.2F, 1}));
    ASSERT_GE(bar, 0);
    EXPECT_EQ(calls[static_cast<std::size_t>(bar) + 3], call("glVertex2f", {-0.095F, 0.04F - 0.02F}));
    m_world->PlayerWantsToGo(2.0F);
    calls = Instruments();
    bar = indexOf(calls, call("glColor4f", {1, 0.2F, 0.2F, 1}));
    EXPECT_NEAR(calls[static_cast<std::size_t>(bar) + 3].arguments[1], 0.06, 1e-6);
}

TEST_F(CockpitTest, MarkerAheadTurnsTheArrowForwards)
{
    EXPECT_EQ(CompassAngle(), 0.0);
    EXPECT_EQ(ElevationBar(), 0.0);
}

TEST_F(CockpitTest, MarkerBehindTurnsTheArrowBack)
{
    EXPECT_NEAR(CompassAngleTo({0.0F, 0.0F, 10.0F}), 180.0, 1e-4);
}

TEST_F(CockpitTest, MarkerToTheLeftTurnsTheArrowCounterClockwise)
{
    EXPECT_NEAR(CompassAngleTo({-10.0F, 1.0F, 0.0F}), 90.0, 1e-3);
    EXPECT_NEAR(CompassAngleTo({-10.0F, -1.0F, 0.0F}), 90.0, 1e-3);
    EXPECT_NEAR(CompassAngleTo({-10.0F, -1.0F, -10.0F}), 45.0, 1e-3);
}

TEST_F(CockpitTest, MarkerToTheRightTurnsTheArrowClockwise)
{
    EXPECT_NEAR(CompassAngleTo({10.0F, 1.0F, 0.0F}), -90.0, 1e-3);
    EXPECT_NEAR(CompassAngleTo({10.0F, -1.0F, 0.0F}), -90.0, 1e-3);
    EXPECT_NEAR(CompassAngleTo({10.0F, 1.0F, 10.0F}), -135.0, 1e-3);
}

// Exactly level there is no vertical part to carry a sign: right and left look the same.
TEST_F(CockpitTest, LevelMarkerTurnsTheArrowToThePositiveSide)
{
    EXPECT_NEAR(CompassAngleTo({-10.0F, 0.0F, 0.0F}), 90.0, 1e-4);
    EXPECT_NEAR(CompassAngleTo({10.0F, 0.0F, 0.0F}), 90.0, 1e-4);
}

TEST_F(CockpitTest, ElevationBarShowsTheSineOfTheElevation)
{
    LayShipWithMarkerAt({0.0F, 3.0F, -4.0F});
    EXPECT_NEAR(ElevationBar(), 0.6 * 0.04, 1e-6);
    LayShipWithMarkerAt({0.0F, -3.0F, -4.0F});
    EXPECT_NEAR(ElevationBar(), -0.6 * 0.04, 1e-6);
}

TEST_F(CockpitTest, MarkerStraightAboveOrBelowFillsTheBarAndKeepsTheArrowFinite)
{
    LayShipWithMarkerAt({0.0F, 10.0F, 0.0F});
    EXPECT_NEAR(ElevationBar(), 0.04, 1e-7);
    EXPECT_TRUE(std::isfinite(CompassAngle()));
    LayShipWithMarkerAt({0.0F, -10.0F, 0.0F});
    EXPECT_NEAR(ElevationBar(), -0.04, 1e-7);
    EXPECT_TRUE(std::isfinite(CompassAngle()));
}

TEST_F(CockpitTest, ShipInTheMarkersCentreKeepsTheArrowFinite)
{
    EXPECT_TRUE(std::isfinite(CompassAngleTo({0.0F, 0.0F, 0.0F})));
}

// Rounding may take the cosine of an angle of 0 beyond 1.
TEST_F(CockpitTest, ArrowIsFiniteForAShipThatFacesTheMarkerFromAnywhere)
{
    for (int i = 1; i <= 500; ++i)
    {
        auto const t = static_cast<float>(i);
        Camera& ship = *m_world->GetCamera();
        LayShipWithMarkerAt({-std::sin(t) * 10.0F, std::cos(t * 1.7F) * 3.0F, -std::cos(t) * 10.0F});
        TQ3Vector3D const marker = m_world->GetWaypointPosition(0);
        ship.TurnToFace(marker.x, marker.y, marker.z);
        double const angle = CompassAngle();
        ASSERT_TRUE(std::isfinite(angle)) << i;
        ASSERT_NEAR(angle, 0.0, 0.1) << i;
    }
}

TEST_F(CockpitTest, LeavesDepthTestAndMatrixModeAsTheyWereAndTheRestOn)
{
    for (bool const tested : {true, false})
    {
        recording::setEnabled(GL_DEPTH_TEST, tested);
        recording::setEnabled(GL_LIGHTING, false);
        recording::setEnabled(GL_CULL_FACE, false);
        recording::setInteger(GL_MATRIX_MODE, GL_TEXTURE);
        auto const calls = recording::during([&] { m_world->RenderCockpit(kWidth, kHeight); });
        int const end = indexOf(calls, "glPopMatrix", indexOf(calls, "glDrawElements"));
        EXPECT_EQ(calls[static_cast<std::size_t>(end) + 1], call("glMatrixMode", {GL_TEXTURE}));
        EXPECT_EQ(recording::isEnabled(GL_DEPTH_TEST), tested);
        EXPECT_TRUE(recording::isEnabled(GL_LIGHTING));
        EXPECT_TRUE(recording::isEnabled(GL_CULL_FACE));
    }
}

TEST_F(CockpitTest, IsDrawnWithoutDepthLightAndCulling)
{
    recording::setEnabled(GL_DEPTH_TEST, true);
    auto const calls = recording::during([&] { m_world->RenderCockpit(kWidth, kHeight); });
    int const matrix = indexOf(calls, call("glTranslatef", {-0.1F, -0.35F, -1}));
    std::vector<Call> const before(calls.begin() + matrix - 8, calls.begin() + matrix);
    EXPECT_THAT(before, testing::ElementsAre(
                            call("glIsEnabled", {GL_DEPTH_TEST}), call("glDisable", {GL_DEPTH_TEST}),
                            call("glDisable", {GL_LIGHTING}), call("glDisable", {GL_CULL_FACE}),
                            call("glGetIntegerv", {GL_MATRIX_MODE}), call("glMatrixMode", {GL_MODELVIEW}),
                            call("glPushMatrix"), call("glLoadIdentity")));
}

TEST_F(CockpitTest, ErrorsAreLookedForAfterTheArrowTheGeometryAndEachReadOut)
{
    m_world->RenderCockpit(kWidth, kHeight); // makes the texts' textures
    auto const again = recording::during([&] { m_world->RenderCockpit(kWidth, kHeight); });
    int const arrow = indexOf(again, call("glDisableClientState", {GL_VERTEX_ARRAY})) + 1;
    int const geometry = indexOf(again, call("glEnable", {GL_CULL_FACE})) + 1;
    std::vector<int> const& checks = recording::errorChecks();
    ASSERT_EQ(checks.size(), 5U);
    EXPECT_EQ(checks[0], arrow);
    EXPECT_EQ(checks[1], geometry);
    EXPECT_EQ(checks[4], static_cast<int>(again.size()));
}

TEST_F(CockpitTest, ReadOutsTakeFontAndSizesFromTheSettings)
{
    GameSettings::SetStringParam(setting::kCockpitTimerFontName, "Times");
    test::ScopedSetting const clockSize(setting::kCockpitTimerFontSize, 31);
    test::ScopedSetting const otherSize(setting::kCockpitWayptFontSize, 17);
    Cockpit const cockpit;
    GameSettings::SetStringParam(setting::kCockpitTimerFontName, "Courier");
    EXPECT_EQ(probe::FontOf(cockpit.GetClock()), "Times");
    EXPECT_EQ(probe::FontSizeOf(cockpit.GetClock()), 31.0F);
    EXPECT_EQ(probe::FontOf(cockpit.GetCounter()), "Times");
    EXPECT_EQ(probe::FontSizeOf(cockpit.GetCounter()), 17.0F);
    EXPECT_EQ(probe::FontSizeOf(cockpit.GetDistance()), 17.0F);
}

TEST_F(CockpitTest, ReadOutsHaveTheirFontsAndColours)
{
    Cockpit const cockpit;
    EXPECT_EQ(probe::FontOf(cockpit.GetClock()), "Courier");
    EXPECT_EQ(probe::FontSizeOf(cockpit.GetClock()), 20.0F);
    EXPECT_EQ(cockpit.GetClock().GetTexture().boxColor(), (platform::Color{0.3F, 0.3F, 0.3F, 0.2F}));
    EXPECT_EQ(cockpit.GetClock().GetTexture().borderColor(), (platform::Color{0.8F, 0.8F, 1.0F, 1.0F}));
    for (Overlay const* const text : {&cockpit.GetCounter(), &cockpit.GetDistance()})
    {
        EXPECT_EQ(probe::FontOf(*text), "Courier");
        EXPECT_EQ(probe::FontSizeOf(*text), 12.0F);
        EXPECT_EQ(text->GetTexture().boxColor(), (platform::Color{0.0F, 0.0F, 0.0F, 0.0F}));
        EXPECT_EQ(text->GetTexture().borderColor(), (platform::Color{0.0F, 0.0F, 0.0F, 0.0F}));
    }
}

TEST_F(CockpitTest, ReadOutsStandLeftOfTheClockByItsHeight)
{
    m_world->Tick(1.0);
    Instruments();
    probe::Box const clock = probe::BoxOf(m_world->GetCockpit().GetClock());
    EXPECT_EQ(clock.x, 711); // 1280 * 5 / 9
    EXPECT_EQ(clock.y, 648); // 720 * 9 / 10
    ASSERT_GT(clock.height, 0);
    int const line = 720 * clock.height / 550 + 648;
    probe::Box const counter = probe::BoxOf(m_world->GetCockpit().GetCounter());
    EXPECT_EQ(counter.x, 711 - 160);
    EXPECT_EQ(counter.y, line);
    probe::Box const distance = probe::BoxOf(m_world->GetCockpit().GetDistance());
    EXPECT_EQ(distance.x, 711 - 280);
    EXPECT_EQ(distance.y, line);
}

TEST_F(CockpitTest, DividesViewSizesTowardsZero)
{
    m_world->Tick(1.0);
    m_world->Render(641, 481);
    probe::Box const clock = probe::BoxOf(m_world->GetCockpit().GetClock());
    EXPECT_EQ(clock.x, 356);
    EXPECT_EQ(clock.y, 432);
    EXPECT_EQ(probe::BoxOf(m_world->GetCockpit().GetCounter()).x, 356 - 80);
    EXPECT_EQ(probe::BoxOf(m_world->GetCockpit().GetDistance()).x, 356 - 140);
}

} // namespace
