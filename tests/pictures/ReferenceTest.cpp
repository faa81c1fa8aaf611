// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The scene against a renderer that draws every asteroid in the view: what the game leaves out must not
// change a pixel, nor a value of the depth buffer. There are 200 seeded viewpoints, eleven or more in each of
// the eighteen settings of the graphics page: an eighth of them outside the field or at its edge, the others
// at all depths down to beyond the last level, a quarter close to a lattice point or inside its asteroid, in
// any direction, in pictures of three shapes.
#include "bench/ReferenceScene.h"
#include "core/Game.h"
#include "pictures/SceneWindow.h"
#include "platform/base/OpenGL.h"
#include "platform/base/Random.h"
#include "settings/GameSettings.h"
#include "support/Rounds.h"
#include "world/Camera.h"
#include "world/Universe.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <functional>
#include <numeric>
#include <random>
#include <vector>

namespace
{

constexpr int kViewpoints = test::Rounds(200);
constexpr int kSettings = 18;

struct PictureSize
{
    int width;
    int height;
};
constexpr std::array<PictureSize, 3> kSizes = {{{320, 180}, {240, 240}, {427, 113}}};

void UseSettings(int number)
{
    constexpr float kViewDistances[] = {40.0F, 50.0F, 65.0F};
    constexpr int kDetails[] = {5, 7, 9};
    bool const isHalf = number / 9 == 1;
    GameSettings::SetFloatParam(setting::kFogEndHigh, kViewDistances[number % 3]);
    GameSettings::SetIntParam(setting::kAsteroidsSmoothness, kDetails[number / 3 % 3]);
    GameSettings::SetFloatParam(setting::kAsteroidsDensityCenter, isHalf ? 0.25F : 0.5F);
    GameSettings::SetFloatParam(setting::kFogEndLow, isHalf ? 30.0F : 20.0F);
}

void UseDefaults()
{
    UseSettings(4);
}

class Dice
{
public:
    float Between(float low, float high)
    {
        return std::uniform_real_distribution<float>(low, high)(m_engine);
    }
    int Below(int count) { return std::uniform_int_distribution<int>(0, count - 1)(m_engine); }

private:
    std::mt19937 m_engine{2026};
};

TQ3Vector3D AnyDirection(Dice& dice)
{
    float const height = dice.Between(-1.0F, 1.0F);
    float const heading = dice.Between(0.0F, 6.2831853F);
    float const across = std::sqrt(1.0F - height * height);
    return {across * std::cos(heading), height, across * std::sin(heading)};
}

TQ3Vector3D AnyPlace(Dice& dice, int number)
{
    bool const isOutside = number % 8 == 0;
    float const low = isOutside ? -15.0F : 0.0F;
    float const high = isOutside ? 2.0F : 150.0F;
    float const depth = dice.Between(low, high);
    return {depth + dice.Between(-8.0F, 20.0F), depth + dice.Between(-8.0F, 20.0F), depth};
}

// Up to one unit from a lattice point: often inside its asteroid.
TQ3Vector3D NearACell(TQ3Vector3D const& place, Dice& dice)
{
    TQ3Vector3D const offset = AnyDirection(dice);
    float const distance = dice.Between(0.0F, 1.0F);
    return {std::round(place.x) + offset.x * distance, std::round(place.y) + offset.y * distance,
            std::round(place.z) + offset.z * distance};
}

void PlaceShip(Camera& ship, Dice& dice, int number)
{
    TQ3Vector3D place = AnyPlace(dice, number);
    if (number % 4 == 1)
    {
        place = NearACell(place, dice);
    }
    TQ3Vector3D const direction = AnyDirection(dice);
    ship.Body::SetDefaults(); // TurnToFace() is right only for a ship that has not turned yet
    ship.MoveTo(place);
    ship.TurnToFace(place.x + direction.x, place.y + direction.y, place.z + direction.z);
    ship.SetRotationRate(direction, 0.0F); // the axis of the roll
    ship.SetRotation(dice.Between(0.0F, 6.2831853F));
    ship.Tick(0.0);
}

struct Drawn
{
    std::vector<std::uint8_t> colors;
    std::vector<std::uint32_t> depths;
};

template <typename Render>
Drawn Draw(PictureSize const& size, Render const& render)
{
    auto const pixels = static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height);
    Drawn drawn{std::vector<std::uint8_t>(pixels * 4), std::vector<std::uint32_t>(pixels)};
    render(size.width, size.height);
    glReadPixels(0, 0, size.width, size.height, GL_RGBA, GL_UNSIGNED_BYTE, drawn.colors.data());
    glReadPixels(0, 0, size.width, size.height, GL_DEPTH_COMPONENT, GL_UNSIGNED_INT, drawn.depths.data());
    return drawn;
}

template <typename Value>
int CountDifferent(std::vector<Value> const& a, std::vector<Value> const& b)
{
    return std::inner_product(a.begin(), a.end(), b.begin(), 0, std::plus<>(), std::not_equal_to<>());
}

class ReferenceTest : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        SceneWindow const& window = SceneWindow::shared();
        GameSettings::Initialize();
        Game::Init(window.width(), window.height()); // sets the fixed OpenGL state
    }

    static void TearDownTestSuite()
    {
        UseDefaults();
        delete Game::pGame;
        Game::pGame = nullptr;
    }

    static void UseWorld(int number)
    {
        UseSettings(number % kSettings);
        platform::SeedRandom(static_cast<unsigned>(number));
        Game::pGame->SwitchToState(kStateMenu);
        Game::pGame->SwitchToState(kStatePlaying);
    }
};

TEST_F(ReferenceTest, SceneIsPixelForPixelThatOfThePlainestRenderer)
{
    Dice dice;
    int drawnAtAll = 0;
    for (int number = 0; number < kViewpoints; ++number)
    {
        UseWorld(number % kSettings);
        Universe& world = *Game::pGame->GetUniverse();
        PlaceShip(*world.GetCamera(), dice, number);
        ReferenceScene const reference(world);
        PictureSize const& size = kSizes[static_cast<std::size_t>(number) % kSizes.size()];

        Drawn const expected = Draw(size, [&](int width, int height) { reference.Render(width, height); });
        Drawn const drawn = Draw(size, [&](int width, int height) { world.Render(width, height); });

        TQ3Vector3D const& at = world.GetCamera()->GetPosition();
        EXPECT_EQ(CountDifferent(drawn.colors, expected.colors), 0)
            << "viewpoint " << number << " at " << at.x << ", " << at.y << ", " << at.z;
        EXPECT_EQ(CountDifferent(drawn.depths, expected.depths), 0) << "viewpoint " << number;
        drawnAtAll += reference.RocksInView(size.width, size.height).empty() ? 0 : 1;
    }
    EXPECT_GT(drawnAtAll, kViewpoints / 2);
}

} // namespace
