// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Views without an area, or of a single line of pixels.
#include "core/Game.h"
#include "support/gl/RecordingGL.h"
#include "support/Stage.h"
#include "support/window/EventFactory.h"
#include "support/Worlds.h"
#include "world/Camera.h"
#include "world/Universe.h"

#include <gtest/gtest.h>

#include <cmath>

namespace
{

struct ViewSize
{
    int width;
    int height;
};

class OddView : public GameStage, public testing::WithParamInterface<ViewSize>
{
};

TEST_P(OddView, LeavesTheShipOnItsCourse)
{
    Game& game = *Game::pGame;
    game.SwitchToState(kStatePlaying);
    GameEvent const move = events::Wrapped(events::MouseMoved(3.0F, 3.0F));
    game.HandleEvent(&move);
    for (int i = 0; i < 3; ++i)
    {
        game.Render(GetParam().width, GetParam().height);
        game.GetUniverse()->Tick(1.0 / 60.0);
    }
    game.Render(800, 600);
    TQ3Vector3D const& at = game.GetUniverse()->GetCamera()->GetLookAt();
    EXPECT_TRUE(std::isfinite(at.x) && std::isfinite(at.y) && std::isfinite(at.z));
}

TEST_P(OddView, ShowsEveryMenu)
{
    Game& game = *Game::pGame;
    game.Render(GetParam().width, GetParam().height);
    EXPECT_EQ(game.GetState(), kStateMenu);
    game.SwitchToState(kStatePlaying);
    GameEvent const pause = events::Wrapped(events::KeyDown(u"\x1B"));
    game.HandleEvent(&pause);
    game.Render(GetParam().width, GetParam().height);
    EXPECT_EQ(game.GetState(), kStatePaused);
}

// Its view angle is nearly 180 degrees, so that half of the endless field lies in it.
TEST_F(GameStage, LineOfAWindowDrawsNotMuchMoreThanAWholeOne)
{
    auto const world = test::SeededWorld(2026);
    world->GetCamera()->MoveTo(100.5F, 100.5F, 100.5F);
    int const whole = recording::count(recording::during([&] { world->Render(800, 600); }), "glCallList");
    int const line = recording::count(recording::during([&] { world->Render(1280, 1); }), "glCallList");
    EXPECT_GT(whole, 0);
    EXPECT_LT(line, 200 * whole);
}

INSTANTIATE_TEST_SUITE_P(Sizes, OddView,
                         testing::Values(ViewSize{1, 1}, ViewSize{800, 1}, ViewSize{1, 600}, ViewSize{800, 0},
                                         ViewSize{0, 600}, ViewSize{0, 0}),
                         [](auto const& size) {
                             return std::to_string(size.param.width) + "x" +
                                    std::to_string(size.param.height);
                         });

} // namespace
