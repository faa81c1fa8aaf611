// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// What the player's keys, wheel and pointer do in a race, and when their settings are read.
#include "audio/GameSound.h"
#include "core/Game.h"
#include "platform/input/Responder.h"
#include "platform/settings/Preferences.h"
#include "settings/GameSettings.h"
#include "support/FrozenSound.h"
#include "support/MenuProbe.h"
#include "support/Stage.h"
#include "support/VectorMatchers.h"
#include "support/window/EventFactory.h"
#include "ui/MenuGame.h"
#include "ui/MenuKeyboard.h"
#include "world/Camera.h"
#include "world/Universe.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <numbers>

namespace
{

using platform::Control;

// In a race.
class GameControls : public GameStage
{
protected:
    GameControls() { startRace(); }

    Game& game() { return *Game::pGame; }
    Camera& ship() { return *game().GetUniverse()->GetCamera(); }
    float throttle() { return ship().GetTargetVPct(); }

    // From any menu or race, with the settings of this moment.
    void startRace()
    {
        game().SwitchToState(kStateMenu);
        game().SwitchToState(kStatePlaying);
        Menu::ClearCurrent();
        frozen::Silence();
    }
    void press(std::u16string const& characters) { send(events::KeyDown(characters)); }

    bool wants(std::u16string const& characters)
    {
        return game().WantsKey(events::Wrapped(events::KeyDown(characters)));
    }

    // The turn that the ship is asked for with the pointer at (x, y), as a share of the greatest turn.
    float turnAt(float x, float y)
    {
        send(events::MouseMoved(x, y));
        game().Render(probe::kWidth, probe::kHeight);
        return ship().GetRotationRate() / (ship().GetMaxRotation() * 2.0F * std::numbers::pi_v<float>);
    }
    bool turnsAt(float x, float y) { return turnAt(x, y) != 0.0F; }

    // How far to its right (x) and up (y) the ship has turned after a tenth of a second with the pointer
    // there.
    TQ3Vector3D turnedBy(float x, float y)
    {
        send(events::MouseMoved(x, y));
        game().Render(probe::kWidth, probe::kHeight);
        TQ3Vector3D facing;
        ship().GetFacingNormal(&facing);
        TQ3Vector3D const up = ship().GetUp();
        TQ3Vector3D right;
        Vector3D_Cross(&facing, &up, &right);
        ship().Tick(0.1);
        ship().GetFacingNormal(&facing);
        return {Vector3D_Dot(&facing, &right), Vector3D_Dot(&facing, &up), 0.0F};
    }
};

constexpr float kNear = 1e-6F;

TEST_F(GameControls, FiveStepsFromStopToFull)
{
    for (float const wanted : {0.2F, 0.4F, 0.6F, 0.8F, 1.0F, 1.0F})
    {
        press(u"w");
        EXPECT_NEAR(throttle(), wanted, kNear);
        EXPECT_LE(throttle(), 1.0F);
    }
    for (float const wanted : {0.8F, 0.6F, 0.4F, 0.2F, 0.0F, 0.0F})
    {
        press(u"s");
        EXPECT_NEAR(throttle(), wanted, kNear);
        EXPECT_GE(throttle(), 0.0F);
    }
}

TEST_F(GameControls, TheWheelStepsLikeTheKeys)
{
    send(events::Wheel(0.0F, 1.0F));
    send(events::Wheel(1.0F, 0.0F));
    EXPECT_NEAR(throttle(), 0.4F, kNear);
    send(events::Wheel(0.0F, -1.0F));
    EXPECT_NEAR(throttle(), 0.2F, kNear);
    send(events::Wheel(0.0F, 0.0F));
    EXPECT_NEAR(throttle(), 0.0F, kNear);
    send(events::Wheel(0.0F, -1.0F));
    EXPECT_EQ(throttle(), 0.0F);
}

TEST_F(GameControls, EveryStepClicks)
{
    for (platform::Event const& event : {events::KeyDown(u"w"), events::KeyDown(u"s"),
                                         events::Wheel(0.0F, 1.0F), events::Wheel(0.0F, -1.0F)})
    {
        frozen::Silence();
        send(event);
        EXPECT_TRUE(frozen::Plays("Controls.AIFF"));
    }
}

TEST_F(GameControls, StepsClickAtTheLimitsToo)
{
    press(u"s");
    EXPECT_TRUE(frozen::Plays("Controls.AIFF"));
    ship().SetTargetVPct(1.0F);
    frozen::Silence();
    press(u"w");
    EXPECT_EQ(throttle(), 1.0F);
    EXPECT_TRUE(frozen::Plays("Controls.AIFF"));
}

TEST_F(GameControls, NothingElseClicks)
{
    press(u"x");
    send(events::MouseMoved(5.0F, 5.0F));
    send(events::LeftUp(5.0F, 5.0F));
    EXPECT_FALSE(frozen::Plays("Controls.AIFF"));
    EXPECT_EQ(throttle(), 0.0F);
}

TEST_F(GameControls, ABindingMatchesItsCaseOnly)
{
    press(u"W");
    EXPECT_EQ(throttle(), 0.0F);
}

TEST_F(GameControls, WhatTheMenusChangedIsOnTheDiskBeforeARace)
{
    GameSettings::SetIntParam(setting::kMouseInvert, 1);
    startRace();
    platform::Preferences const stored(std::filesystem::path(std::getenv("XDG_CONFIG_HOME")) / "quarrow" /
                                       "settings.ini");
    EXPECT_EQ(stored.integerForKey(setting::kMouseInvert.key), 1);
}

TEST_F(GameControls, BoundKeysAreWantedInARaceAndInItsPause)
{
    GameSettings::SetUniCharParam(setting::kKeyThrustDown, u'\r');
    startRace();
    for (char16_t const key : {u'w', u'\r', u'\x1B'})
    {
        EXPECT_TRUE(wants({key}));
    }
    EXPECT_FALSE(wants(u"s"));
    EXPECT_FALSE(wants(u"\uF70E"));
    press(u"\x1B");
    ASSERT_EQ(game().GetState(), kStatePaused);
    EXPECT_TRUE(wants(u"\x1B"));
    game().SwitchToState(kStateMenu);
    EXPECT_FALSE(wants(u"\x1B")) << "the main menu has no use for keys";
}

TEST_F(GameControls, EveryKeyIsWantedWhileAMenuWaitsForOne)
{
    game().SwitchToState(kStateMenu);
    Menu::SetCurrent(new MenuKeyboard);
    probe::RenderCurrent();
    EXPECT_FALSE(wants(u"\uF70E"));
    probe::Click(0);
    EXPECT_TRUE(wants(u"\uF70E"));
    press(u"\uF70E");
    EXPECT_FALSE(wants(u"\uF70E"));
}

TEST_F(GameControls, ARaceTellsItsKeysAndAPauseOnlyItsOwn)
{
    GameSettings::SetUniCharParam(setting::kKeyThrustUp, 0xF700);
    startRace();
    EXPECT_EQ(game().KeyFor(Control::ThrottleUp), u"\uF700");
    EXPECT_EQ(game().KeyFor(Control::ThrottleDown), u"s");
    EXPECT_EQ(game().KeyFor(Control::Pause), u"\x1B");
    game().PauseRace();
    EXPECT_EQ(game().KeyFor(Control::ThrottleUp), u"");
    EXPECT_EQ(game().KeyFor(Control::ThrottleDown), u"");
    EXPECT_EQ(game().KeyFor(Control::Pause), u"\x1B");
    game().SwitchToState(kStateMenu);
    EXPECT_EQ(game().KeyFor(Control::ThrottleUp), u"");
    EXPECT_EQ(game().KeyFor(Control::Pause), u"");
}

TEST_F(GameControls, BindingsAreReadWhenARaceStarts)
{
    GameSettings::SetUniCharParam(setting::kKeyThrustUp, 0xF700);
    GameSettings::SetUniCharParam(setting::kKeyThrustDown, 0xF701);
    GameSettings::SetUniCharParam(setting::kKeyPause, u'p');
    startRace();
    press(u"w");
    EXPECT_EQ(throttle(), 0.0F);
    press(u"\uF700");
    press(u"\uF700");
    press(u"\uF701");
    EXPECT_NEAR(throttle(), 0.2F, kNear);
    press(u"p");
    EXPECT_EQ(game().GetState(), kStatePaused);
}

TEST_F(GameControls, ABindingChangedDuringAPauseWaitsForTheNextRace)
{
    press(u"\x1B");
    GameSettings::SetUniCharParam(setting::kKeyThrustUp, u'u');
    press(u"\x1B");
    press(u"u");
    EXPECT_EQ(throttle(), 0.0F);
    press(u"w");
    EXPECT_NEAR(throttle(), 0.2F, kNear);
    startRace();
    press(u"w");
    EXPECT_EQ(throttle(), 0.0F);
    press(u"u");
    EXPECT_NEAR(throttle(), 0.2F, kNear);
}

TEST_F(GameControls, ThePauseKeyWinsOverTheThrottle)
{
    GameSettings::SetUniCharParam(setting::kKeyPause, u'w');
    GameSettings::SetUniCharParam(setting::kKeyThrustDown, u'w');
    startRace();
    press(u"w");
    EXPECT_EQ(game().GetState(), kStatePaused);
    EXPECT_EQ(throttle(), 0.0F);
}

TEST_F(GameControls, MoreWinsOverLess)
{
    GameSettings::SetUniCharParam(setting::kKeyThrustDown, u'w');
    startRace();
    press(u"w");
    EXPECT_NEAR(throttle(), 0.2F, kNear);
}

TEST_F(GameControls, TheThrottleRestsDuringAPause)
{
    press(u"w");
    press(u"\x1B");
    press(u"w");
    send(events::Wheel(0.0F, 1.0F));
    EXPECT_NEAR(throttle(), 0.2F, kNear);
}

TEST_F(GameControls, ThePauseMenuSeesThePausedEventsFirst)
{
    press(u"\x1B");
    game().Render(probe::kWidth, probe::kHeight);
    Menu& menu = *Menu::GetCurrent();
    probe::Box const box = probe::BoxOf(menu, 0);
    send(events::MouseMoved(static_cast<float>(box.x + 1), static_cast<float>(probe::kHeight - box.y - 1)));
    EXPECT_TRUE(probe::IsHighlighted(menu, 0));
}

TEST_F(GameControls, TheDebugLetterIsNoted)
{
    press(u"x");
    EXPECT_FALSE(game().WasDebugKeySeen());
    press(u"ad");
    EXPECT_TRUE(game().WasDebugKeySeen());
}

TEST_F(GameControls, TheDebugLetterIsNotedDuringAPause)
{
    press(u"\x1B");
    press(u"d");
    EXPECT_TRUE(game().WasDebugKeySeen());
}

TEST_F(GameControls, TheDebugLetterIsNotNotedInMenus)
{
    game().SwitchToState(kStateMenu);
    press(u"d");
    EXPECT_FALSE(game().WasDebugKeySeen());
}

TEST_F(GameControls, APauseKeyThatIsTheDebugLetterOnlyPauses)
{
    GameSettings::SetUniCharParam(setting::kKeyPause, u'd');
    startRace();
    press(u"d");
    EXPECT_EQ(game().GetState(), kStatePaused);
    press(u"d");
    EXPECT_EQ(game().GetState(), kStatePlaying);
    EXPECT_FALSE(game().WasDebugKeySeen());
}

TEST_F(GameControls, NoTurnBeforeThePointerMoves)
{
    game().Render(probe::kWidth, probe::kHeight);
    EXPECT_EQ(ship().GetRotationRate(), 0.0F);
}

// A view of 800 x 600 has its centre at (400, 300); the dead zone of 5 % ends 20 and 15 pixels off it.
TEST_F(GameControls, ATurnStartsOutsideTheDeadZone)
{
    EXPECT_FALSE(turnsAt(400, 300));
    EXPECT_FALSE(turnsAt(420, 300));
    EXPECT_TRUE(turnsAt(421, 300));
    EXPECT_FALSE(turnsAt(380, 300));
    EXPECT_TRUE(turnsAt(379, 300));
    EXPECT_FALSE(turnsAt(400, 315));
    EXPECT_TRUE(turnsAt(400, 316));
    EXPECT_FALSE(turnsAt(400, 285));
    EXPECT_TRUE(turnsAt(400, 284));
}

// The sine of 0.1 rotations a second for 0.1 seconds; y counts from the view's bottom.
TEST_F(GameControls, TheShipTurnsTowardsThePointer)
{
    constexpr float kTurned = 0.062790520F;
    EXPECT_THAT(turnedBy(800, 300), test::IsNear(kTurned, 0.0F, 0.0F, 1e-5F));
    EXPECT_THAT(turnedBy(0, 300), test::IsNear(-kTurned, 0.0F, 0.0F, 1e-5F));
    EXPECT_THAT(turnedBy(400, 600), test::IsNear(0.0F, kTurned, 0.0F, 1e-5F));
    EXPECT_THAT(turnedBy(400, 0), test::IsNear(0.0F, -kTurned, 0.0F, 1e-5F));
}

TEST_F(GameControls, EachDirectionHasItsOwnDeadZone)
{
    EXPECT_FALSE(turnsAt(419, 314));
    EXPECT_NEAR(turnAt(600, 314), 0.5F, 1e-5F);
}

TEST_F(GameControls, TheTurnAtTheEdgeIsTheSensitivity)
{
    EXPECT_NEAR(turnAt(800, 300), 1.0F, 1e-5F);
    EXPECT_NEAR(turnAt(0, 300), 1.0F, 1e-5F);
    EXPECT_NEAR(turnAt(400, 600), 1.0F, 1e-5F);
    EXPECT_NEAR(turnAt(600, 300), 0.5F, 1e-5F);
    GameSettings::SetFloatParam(setting::kMouseSensitivity, 2.5F);
    startRace();
    EXPECT_NEAR(turnAt(800, 300), 2.5F, 1e-5F);
}

TEST_F(GameControls, TheDeadZoneShrinksAsSensitivityGrows)
{
    GameSettings::SetFloatParam(setting::kMouseSensitivity, 2.0F);
    startRace();
    EXPECT_FALSE(turnsAt(410, 300));
    EXPECT_TRUE(turnsAt(411, 300));
}

TEST_F(GameControls, MouseSettingsAreReadWhenARaceStarts)
{
    GameSettings::SetFloatParam(setting::kMouseSensitivity, 2.0F);
    GameSettings::SetFloatParam(setting::kMouseDeadCenterPct, 0.9F);
    EXPECT_NEAR(turnAt(800, 300), 1.0F, 1e-5F);
    EXPECT_TRUE(turnsAt(600, 300));
    startRace();
    EXPECT_NEAR(turnAt(800, 300), 2.0F, 1e-5F);
    EXPECT_FALSE(turnsAt(500, 300));
}

TEST_F(GameControls, TheTurnFollowsTheViewsSize)
{
    send(events::MouseMoved(800, 300));
    game().Render(1600, 600);
    EXPECT_EQ(ship().GetRotationRate(), 0.0F) << "the pointer is in the middle of the larger view";
}

TEST_F(GameControls, OutsideARaceTheShipIsToldToStopTurning)
{
    ASSERT_TRUE(turnsAt(800, 600));
    press(u"\x1B");
    game().Render(probe::kWidth, probe::kHeight);
    EXPECT_EQ(ship().GetRotationRate(), 0.0F);
}

TEST_F(GameControls, TheSwitchForEffectsSilencesTheThrottle)
{
    GameSound::SetVolume(false);
    press(u"w");
    EXPECT_FALSE(frozen::Plays("Controls.AIFF"));
    EXPECT_NEAR(throttle(), 0.2F, kNear);
}

} // namespace
