// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Races under settings that nobody would choose: whatever the file says, there is a world that can be drawn
// and flown through.
#include "audio/GameMusic.h"
#include "core/Game.h"
#include "core/GameEvent.h"
#include "core/GameEventNSEvent.h"
#include "platform/base/OpenGL.h"
#include "platform/settings/Preferences.h"
#include "settings/GameSettings.h"
#include "support/gl/RecordingGL.h"
#include "support/Stage.h"
#include "support/TestSettings.h"
#include "support/window/EventFactory.h"
#include "world/Camera.h"
#include "world/Universe.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace
{

using platform::Preferences;

std::vector<Preferences::Value> HostileNumbers()
{
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    return {std::numeric_limits<float>::quiet_NaN(),
            kInfinity,
            -kInfinity,
            1e30F,
            -1e30F,
            1e9F,
            std::numeric_limits<float>::max(),
            std::numeric_limits<float>::denorm_min(),
            0.3F,
            -0.5F,
            0,
            1,
            -1,
            100000,
            std::numeric_limits<int>::max(),
            std::numeric_limits<int>::min()};
}

std::vector<Preferences::Value> HostileTexts()
{
    return {std::string(), std::string(10000, 'x'), std::string("\xEF\x9C\x80"), std::string("%s%n"),
            std::string("../../../etc/passwd")};
}

// Sets every setting but the display and the best times to a value drawn from a seed; restores them at its
// end.
class DrawnSettings
{
public:
    explicit DrawnSettings(unsigned seed) : m_random(seed)
    {
        std::apply([this](auto const&... settings) { (Draw(settings), ...); }, setting::kTable);
    }
    ~DrawnSettings()
    {
        for (auto const& [key, value] : m_before)
        {
            Preferences::standard().setValue(key, value);
        }
    }
    DrawnSettings(DrawnSettings const&) = delete;
    DrawnSettings& operator=(DrawnSettings const&) = delete;

private:
    template <typename Number>
    void Draw(NumberSetting<Number> const& setting)
    {
        if (setting.key != std::string(setting::kFullscreen.key))
        {
            Set(setting.key, Preferences::standard().floatForKey(setting.key), HostileNumbers());
        }
    }
    void Draw(TextSetting const& setting)
    {
        Set(setting.key, Preferences::standard().stringForKey(setting.key), HostileTexts());
    }
    void Draw(ListSetting const&) {}

    void Set(char const* key, Preferences::Value const& before, std::vector<Preferences::Value> const& values)
    {
        m_before[key] = before;
        Preferences::standard().setValue(key, values[m_random() % values.size()]);
    }

    std::mt19937 m_random;
    std::map<std::string, Preferences::Value> m_before;
};

bool IsFinite(TQ3Vector3D const& v)
{
    return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}

bool IsFinite(TQ3Quaternion const& q)
{
    return std::isfinite(q.w) && std::isfinite(q.x) && std::isfinite(q.y) && std::isfinite(q.z);
}

void PointAt(float x, float y)
{
    GameEvent const event(new GameEventNSEvent(events::MouseMoved(x, y)));
    Game::pGame->HandleEvent(&event);
}

using HostileSettings = GameStage;

TEST_F(HostileSettings, EveryWorldCanBeFlownAndDrawn)
{
    for (unsigned seed = 0; seed < 40; ++seed)
    {
        DrawnSettings const settings(seed);
        Game& game = *Game::pGame;
        GameMusic::StopTrack(); // before its volume becomes 0 and it counts as never started
        game.SwitchToState(kStateMenu);
        game.SwitchToState(kStatePlaying);
        game.GetUniverse()->PlayerWantsToGo(1.0F);
        PointAt(700.0F, 500.0F);
        for (double const seconds : {0.016, 0.016, 1.0, 60.0, 0.016})
        {
            game.Render(800, 600);
            game.GetUniverse()->Tick(seconds);
        }
        Camera const& ship = *game.GetUniverse()->GetCamera();
        EXPECT_TRUE(IsFinite(ship.GetPosition())) << "seed " << seed;
        EXPECT_TRUE(IsFinite(ship.GetVelocity())) << "seed " << seed;
        EXPECT_TRUE(IsFinite(ship.GetRotation())) << "seed " << seed;
        EXPECT_LE(std::fabs(ship.GetSpeed()), 1000.0F) << "seed " << seed;
    }
}

// The longest view there is ends at 80 units.
TEST_F(HostileSettings, NothingIsDrawnBeyondTheLongestView)
{
    test::ScopedSetting const far(setting::kFogEndHigh, 1e9F);
    test::ScopedSetting const density(setting::kAsteroidsDensityEdge, 0.02F);
    Game::pGame->SwitchToState(kStateMenu);
    Game::pGame->SwitchToState(kStatePlaying);
    double farthest = 0.0;
    for (recording::Call const& call : recording::during([] { Game::pGame->Render(800, 600); }))
    {
        if (call.name == "glTranslated")
        {
            double const depth =
                (call.arguments[0] + call.arguments[1] + call.arguments[2] + 30.0) / std::sqrt(3.0);
            farthest = std::max(farthest, depth);
        }
    }
    EXPECT_GT(farthest, 70.0);
    EXPECT_LE(farthest, 81.0);
}

TEST_F(HostileSettings, HazeEndsWhereTheSettingSaysInAFullFieldToo)
{
    test::ScopedSetting const far(setting::kFogEndHigh, 80.0F);
    test::ScopedSetting const density(setting::kAsteroidsDensityEdge, 1.0F);
    Game::pGame->SwitchToState(kStateMenu);
    Game::pGame->SwitchToState(kStatePlaying);
    auto const calls = recording::during([&] { Game::pGame->Render(800, 600); });
    EXPECT_TRUE(std::ranges::any_of(
        calls, [](recording::Call const& call)
        { return call.name == "glFogf" && call.arguments[0] == GL_FOG_END && call.arguments[1] == 80.0; }));
}

// How far to the right of its course the ship has turned after half a second with the pointer at the right
// edge.
float TurnToTheRight()
{
    Game::pGame->SwitchToState(kStateMenu);
    Game::pGame->SwitchToState(kStatePlaying);
    Camera const& ship = *Game::pGame->GetUniverse()->GetCamera();
    TQ3Vector3D facing;
    ship.GetFacingNormal(&facing);
    TQ3Vector3D right;
    Vector3D_Cross(&facing, &ship.GetUp(), &right);
    PointAt(800.0F, 300.0F);
    Game::pGame->Render(800, 600);
    Game::pGame->GetUniverse()->Tick(0.5);
    ship.GetFacingNormal(&facing);
    return Vector3D_Dot(&facing, &right);
}

TEST_F(HostileSettings, SensitivityBelowZeroReversesTheTurn)
{
    EXPECT_GT(TurnToTheRight(), 0.1F);
    test::ScopedSetting const sensitivity(setting::kMouseSensitivity, -1.0F);
    EXPECT_LT(TurnToTheRight(), -0.1F);
}

TEST_F(HostileSettings, DeadZoneAsWideAsTheSensitivityLeavesNoTurn)
{
    test::ScopedSetting const deadZone(setting::kMouseDeadCenterPct, 1.0F);
    EXPECT_NEAR(TurnToTheRight(), 0.0F, 1e-6F); // rounding
}

} // namespace
