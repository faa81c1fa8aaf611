// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// What a player sets on the options' pages, clicked through from the main menu, and where the next race shows
// it.
#include "core/Game.h"
#include "platform/base/OpenGL.h"
#include "support/FrozenSound.h"
#include "support/gl/RecordingGL.h"
#include "support/MenuProbe.h"
#include "support/Stage.h"
#include "support/window/EventFactory.h"
#include "ui/MenuGame.h"
#include "world/Camera.h"
#include "world/Universe.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>

namespace
{

using namespace testing;

constexpr int kDeepest = Universe::kFieldSize * (Universe::kLevelCount - 1);

class OptionsAreFelt : public GameStage
{
protected:
    enum Hub
    {
        kGraphics,
        kKeyboard,
        kSound
    };

    Game& game() { return *Game::pGame; }
    Universe& world() { return *game().GetUniverse(); }

    void drawFrame() { game().Render(probe::kWidth, probe::kHeight); }

    // Draws a frame first, which puts the item into its place.
    void click(int item)
    {
        drawFrame();
        probe::Box const box = probe::BoxOf(*Menu::GetCurrent(), item);
        send(events::LeftUp(static_cast<float>(box.x + box.width / 2),
                            static_cast<float>(probe::kHeight - (box.y + box.height / 2))));
    }
    void openPage(Hub page)
    {
        click(2);
        click(page);
    }
    void leavePage(int backToOptions)
    {
        click(backToOptions);
        click(3);
    }
    void startRace()
    {
        click(0);
        ASSERT_EQ(game().GetState(), kStatePlaying);
        frozen::Silence();
    }
    void quitRace()
    {
        send(events::KeyDown(u"\x1B"));
        click(1);
    }

    // The end of the field's fog with the ship at (p, p, p).
    double fogEndAt(float p)
    {
        world().GetCamera()->MoveTo(p, p, p);
        for (recording::Call const& call : recording::during([this] { drawFrame(); }))
        {
            if (call.name == "glFogf" && call.arguments[0] == GL_FOG_END)
            {
                return call.arguments[1];
            }
        }
        return 0.0;
    }

    // The share of the deepest level's cells that are filled.
    double filledShare()
    {
        int filled = 0;
        for (int x = 0; x < Universe::kFieldSize; ++x)
        {
            for (int y = 0; y < Universe::kFieldSize; ++y)
            {
                for (int z = 0; z < Universe::kFieldSize; ++z)
                {
                    filled += world().RoidAtCell(kDeepest + x, kDeepest + y, kDeepest + z) != nullptr ? 1 : 0;
                }
            }
        }
        return filled / std::pow(Universe::kFieldSize, 3);
    }

    // The finest sphere that the start of a race draws for its lists.
    double finestSphere()
    {
        double finest = 0.0;
        for (recording::Call const& call : recording::during([this] { startRace(); }))
        {
            finest = call.name == "gluSphere" ? std::max(finest, call.arguments[1]) : finest;
        }
        return finest;
    }

    // How far up (or down) a pointer at the upper edge turns the ship in a tenth of a second.
    float turnUp()
    {
        send(events::MouseMoved(probe::kWidth / 2.0F, probe::kHeight));
        drawFrame();
        TQ3Vector3D before;
        TQ3Vector3D after;
        world().GetCamera()->GetFacingNormal(&before);
        TQ3Vector3D const up = world().GetCamera()->GetUp();
        world().GetCamera()->Tick(0.1);
        world().GetCamera()->GetFacingNormal(&after);
        Vector3D_Subtract(&after, &before, &after);
        return Vector3D_Dot(&after, &up);
    }
};

TEST_F(OptionsAreFelt, ViewDistanceInTheNextRacesHaze)
{
    EXPECT_EQ(fogEndAt(-10.0F), 50.0);
    openPage(kGraphics);
    click(0); // from NORMAL to HIGH
    EXPECT_EQ(fogEndAt(-10.0F), 50.0) << "the world behind the menu is still the old one";
    leavePage(4);
    startRace();
    EXPECT_EQ(fogEndAt(-10.0F), 65.0);
    quitRace();
    openPage(kGraphics);
    click(0); // to LOW
    leavePage(4);
    startRace();
    EXPECT_EQ(fogEndAt(-10.0F), 40.0);
}

TEST_F(OptionsAreFelt, DetailInTheNextRacesAsteroids)
{
    openPage(kGraphics);
    click(1); // from NORMAL to HIGH
    leavePage(4);
    EXPECT_EQ(finestSphere(), 9.0);
    quitRace();
    openPage(kGraphics);
    click(1); // to LOW
    leavePage(4);
    EXPECT_EQ(finestSphere(), 5.0);
}

TEST_F(OptionsAreFelt, DensityInTheNextRacesFieldAndItsDeepHaze)
{
    constexpr double kSpread = 0.04; // five standard deviations of 4096 cells
    startRace();
    EXPECT_NEAR(filledShare(), 0.5, kSpread);
    EXPECT_EQ(fogEndAt(60.0F), 20.0);
    quitRace();
    openPage(kGraphics);
    click(2); // from NORMAL to HALF
    leavePage(4);
    startRace();
    EXPECT_NEAR(filledShare(), 0.25, kSpread);
    EXPECT_EQ(fogEndAt(60.0F), 30.0);
}

TEST_F(OptionsAreFelt, ControlKeysInTheNextRace)
{
    openPage(kKeyboard);
    constexpr char16_t const* kKeys[] = {u"\uF700", u"\uF701", u"p"};
    for (int action = 0; action < 3; ++action)
    {
        click(action);
        send(events::KeyDown(kKeys[action]));
    }
    leavePage(5);
    startRace();
    auto const throttle = [this] { return world().GetCamera()->GetTargetVPct(); };
    send(events::KeyDown(u"w"));
    send(events::KeyDown(u"\x1B"));
    EXPECT_EQ(throttle(), 0.0F);
    EXPECT_EQ(game().GetState(), kStatePlaying);
    send(events::KeyDown(kKeys[0]));
    EXPECT_NEAR(throttle(), 0.2F, 1e-6F);
    send(events::KeyDown(kKeys[1]));
    EXPECT_NEAR(throttle(), 0.0F, 1e-6F);
    send(events::KeyDown(kKeys[2]));
    EXPECT_EQ(game().GetState(), kStatePaused);
}

TEST_F(OptionsAreFelt, InversionInTheNextRace)
{
    startRace();
    float const upright = turnUp();
    quitRace();
    openPage(kKeyboard);
    click(3);
    leavePage(5);
    startRace();
    float const inverted = turnUp();
    EXPECT_GT(std::abs(upright), 0.001F);
    EXPECT_NEAR(inverted, -upright, 1e-4F);
}

TEST_F(OptionsAreFelt, TheEffectsSwitchAtOnce)
{
    openPage(kSound);
    frozen::Silence();
    click(0); // OFF
    EXPECT_FALSE(frozen::Plays("Click.AIFF"));
    click(1);
    EXPECT_FALSE(frozen::Plays("Click.AIFF"));
    click(0); // ON
    EXPECT_TRUE(frozen::Plays("Click.AIFF"));
}

} // namespace
