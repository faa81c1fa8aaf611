// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The scene against a renderer that draws every asteroid in the view: what the game leaves out must not
// change a pixel, nor a value of the depth buffer. There are settings, windows and places that only a hand at
// the settings' file or the window's edge brings about, and 200 seeded viewpoints, eleven or more in each of
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
#include <SDL.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <functional>
#include <numeric>
#include <optional>
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

// In any direction, with any roll.
void TurnShip(Camera& ship, TQ3Vector3D const& place, Dice& dice)
{
    TQ3Vector3D const direction = AnyDirection(dice);
    ship.Body::SetDefaults(); // TurnToFace() is right only for a ship that has not turned yet
    ship.MoveTo(place);
    ship.TurnToFace(place.x + direction.x, place.y + direction.y, place.z + direction.z);
    ship.SetRotationRate(direction, 0.0F); // the axis of the roll
    ship.SetRotation(dice.Between(0.0F, 6.2831853F));
    ship.Tick(0.0);
}

void PlaceShip(Camera& ship, Dice& dice, int number)
{
    TQ3Vector3D place = AnyPlace(dice, number);
    if (number % 4 == 1)
    {
        place = NearACell(place, dice);
    }
    TurnShip(ship, place, dice);
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

// While it lives, everything is drawn into memory whose depth has 16 bits.
class CoarseDepth
{
public:
    CoarseDepth(int width, int height)
    {
        Load("glGenFramebuffers", m_genFramebuffers)(1, &m_frame);
        Load("glGenRenderbuffers", m_genRenderbuffers)(2, m_buffers);
        Load("glBindFramebuffer", m_bindFramebuffer)(GL_FRAMEBUFFER, m_frame);
        Load("glBindRenderbuffer", m_bindRenderbuffer);
        Load("glRenderbufferStorage", m_store);
        Load("glFramebufferRenderbuffer", m_attach);
        Attach(m_buffers[0], GL_RGBA8, GL_COLOR_ATTACHMENT0, width, height);
        Attach(m_buffers[1], GL_DEPTH_COMPONENT16, GL_DEPTH_ATTACHMENT, width, height);
    }
    ~CoarseDepth()
    {
        m_bindFramebuffer(GL_FRAMEBUFFER, 0);
        Load("glDeleteRenderbuffers", m_deleteRenderbuffers)(2, m_buffers);
        Load("glDeleteFramebuffers", m_deleteFramebuffers)(1, &m_frame);
    }
    CoarseDepth(CoarseDepth const&) = delete;
    CoarseDepth& operator=(CoarseDepth const&) = delete;

    bool IsUsable()
    {
        GLint bits = 0;
        glGetIntegerv(GL_DEPTH_BITS, &bits);
        return Load("glCheckFramebufferStatus", m_check)(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE &&
               bits == 16;
    }

private:
    template <typename Function>
    static Function Load(char const* name, Function& function)
    {
        return function = reinterpret_cast<Function>(SDL_GL_GetProcAddress(name));
    }

    void Attach(GLuint buffer, GLenum format, GLenum place, int width, int height)
    {
        m_bindRenderbuffer(GL_RENDERBUFFER, buffer);
        m_store(GL_RENDERBUFFER, format, width, height);
        m_attach(GL_FRAMEBUFFER, place, GL_RENDERBUFFER, buffer);
    }

    PFNGLGENFRAMEBUFFERSPROC m_genFramebuffers = nullptr;
    PFNGLGENRENDERBUFFERSPROC m_genRenderbuffers = nullptr;
    PFNGLBINDFRAMEBUFFERPROC m_bindFramebuffer = nullptr;
    PFNGLBINDRENDERBUFFERPROC m_bindRenderbuffer = nullptr;
    PFNGLRENDERBUFFERSTORAGEPROC m_store = nullptr;
    PFNGLFRAMEBUFFERRENDERBUFFERPROC m_attach = nullptr;
    PFNGLCHECKFRAMEBUFFERSTATUSPROC m_check = nullptr;
    PFNGLDELETERENDERBUFFERSPROC m_deleteRenderbuffers = nullptr;
    PFNGLDELETEFRAMEBUFFERSPROC m_deleteFramebuffers = nullptr;
    GLuint m_frame = 0;
    GLuint m_buffers[2] = {};
};

void UseExtreme(int detail, float lodDistFar, float maxR, float density)
{
    GameSettings::SetIntParam(setting::kAsteroidsSmoothness, detail);
    GameSettings::SetFloatParam(setting::kLodDistFar, lodDistFar);
    GameSettings::SetFloatParam(setting::kAsteroidsMaxR, maxR);
    GameSettings::SetFloatParam(setting::kAsteroidsDensityEdge, density >= 1.0F ? density : 0.01F);
    GameSettings::SetFloatParam(setting::kAsteroidsDensityCenter, density);
}

struct Extreme
{
    char const* name;
    int detail = 7;
    float lodDistFar = 55.0F;
    float maxR = 0.6F;
    float density = 0.5F;
    PictureSize size = {320, 180};
    float depth = 60.0F; // in the field
    bool isDepthCoarse = false;
};

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
        UseExtreme(7, 55.0F, 0.6F, 0.5F);
        delete Game::pGame;
        Game::pGame = nullptr;
    }

    static void UseWorld(int number)
    {
        UseSettings(number % kSettings);
        StartRace(number);
    }

    static void StartRace(int number)
    {
        platform::SeedRandom(static_cast<unsigned>(number));
        Game::pGame->SwitchToState(kStateMenu);
        Game::pGame->SwitchToState(kStatePlaying);
    }

    // Asteroids in view, where both renderers draw the same; -1 where they do not.
    static int CompareRenderers(PictureSize const& size)
    {
        Universe& world = *Game::pGame->GetUniverse();
        ReferenceScene const reference(world);
        Drawn const expected = Draw(size, [&](int width, int height) { reference.Render(width, height); });
        Drawn const drawn = Draw(size, [&](int width, int height) { world.Render(width, height); });
        bool const isSame = CountDifferent(drawn.colors, expected.colors) == 0 &&
                            CountDifferent(drawn.depths, expected.depths) == 0;
        return isSame ? static_cast<int>(reference.RocksInView(size.width, size.height).size()) : -1;
    }
};

TEST_F(ReferenceTest, SceneIsThatOfThePlainestRendererInTheExtremesToo)
{
    Extreme const extremes[] = {
        {.name = "the coarsest asteroids", .detail = 3},
        {.name = "asteroids of four slices", .detail = 4},
        {.name = "the finest asteroids", .detail = 12},
        {.name = "asteroids in the lowest detail everywhere", .lodDistFar = 0.0F},
        {.name = "the largest asteroids", .maxR = 1.0F},
        {.name = "a full field", .density = 1.0F},
        {.name = "a window in portrait", .size = {113, 427}},
        {.name = "a window that is a line", .size = {320, 10}},
        {.name = "a window that is an upright line", .size = {3, 300}},
        {.name = "coordinates in the thousands", .depth = 4000.0F},
        {.name = "a depth buffer of 16 bits", .isDepthCoarse = true},
        {.name = "a depth buffer of 16 bits and a full field", .density = 1.0F, .isDepthCoarse = true},
    };
    Dice dice;
    for (Extreme const& extreme : extremes)
    {
        UseExtreme(extreme.detail, extreme.lodDistFar, extreme.maxR, extreme.density);
        StartRace(1);
        for (int number = 0; number < test::Rounds(20); ++number)
        {
            TQ3Vector3D const place{extreme.depth + dice.Between(0.0F, 9.0F),
                                    extreme.depth + dice.Between(0.0F, 9.0F),
                                    extreme.depth + dice.Between(0.0F, 9.0F)};
            TurnShip(*Game::pGame->GetUniverse()->GetCamera(), place, dice);
            std::optional<CoarseDepth> coarse;
            if (extreme.isDepthCoarse)
            {
                coarse.emplace(extreme.size.width, extreme.size.height);
                ASSERT_TRUE(coarse->IsUsable());
            }
            EXPECT_GT(CompareRenderers(extreme.size), 0) << extreme.name << ", viewpoint " << number;
        }
    }
}

TEST_F(ReferenceTest, SceneIsPixelForPixelThatOfThePlainestRenderer)
{
    Dice dice;
    int drawnAtAll = 0;
    for (int number = 0; number < kViewpoints; ++number)
    {
        UseWorld(number % kSettings);
        Universe& world = *Game::pGame->GetUniverse();
        PlaceShip(*world.GetCamera(), dice, number);
        PictureSize const& size = kSizes[static_cast<std::size_t>(number) % kSizes.size()];

        int const inView = CompareRenderers(size);

        TQ3Vector3D const& at = world.GetCamera()->GetPosition();
        EXPECT_GE(inView, 0) << "viewpoint " << number << " at " << at.x << ", " << at.y << ", " << at.z;
        drawnAtAll += inView > 0 ? 1 : 0;
    }
    EXPECT_GT(drawnAtAll, kViewpoints / 2);
}

} // namespace
