// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "gfx/Roid.h"

#include "math/Plane.h"
#include "platform/base/OpenGL.h"
#include "platform/base/Random.h"
#include "support/flight/Vectors.h"
#include "support/gl/RecordingGL.h"
#include "support/Stage.h"
#include "support/TestSettings.h"
#include "support/VectorMatchers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <list>
#include <numbers>
#include <vector>

namespace
{

using recording::Call;
using recording::call;
using test::ScopedSetting;

constexpr TQ3Vector3D kOrigin{0.0F, 0.0F, 0.0F};
constexpr TQ3Vector3D kForwards{0.0F, 0.0F, -1.0F};
constexpr TQ3Vector3D kUp{0.0F, 1.0F, 0.0F};

Frustum WideView()
{
    return Frustum(1.5707964F, 1.0F, &kOrigin, &kForwards, &kUp, 90.0F);
}

// The compiled spheres in order: radius, slices, stacks.
std::vector<std::vector<double>> CompiledSpheres()
{
    std::vector<std::vector<double>> spheres;
    for (Call const& c : recording::during(Roid::ReadSettings))
    {
        if (c.name == "gluSphere")
        {
            spheres.push_back(c.arguments);
        }
    }
    return spheres;
}

// What all asteroids share is new for each test.
class RoidTest : public Stage
{
protected:
    RoidTest() { Roid::ReadSettings(); }

    static double List(int size, int lod) { return static_cast<double>(Roid::m_ahroid[size][lod]); }
};

TEST_F(RoidTest, SizeClassIsTheNextDrawModuloFour)
{
    constexpr float kRadii[] = {0.1F, 0.26666667F, 0.43333334F, 0.6F};
    std::srand(21);
    int expected[40];
    for (int& value : expected)
    {
        value = std::rand() % 4;
    }
    platform::SeedRandom(21);
    for (int const value : expected)
    {
        Roid const roid(nullptr);
        ASSERT_EQ(roid.GetSizeClass(), value);
        ASSERT_FLOAT_EQ(roid.GetRadius(), kRadii[value]);
        ASSERT_FLOAT_EQ(roid.GetDiameter(), 2.0F * kRadii[value]);
    }
}

TEST_F(RoidTest, EqualRadiiMakeAllTheSmallestWithoutADraw)
{
    ScopedSetting const minR(setting::kAsteroidsMinR, 0.4F);
    ScopedSetting const maxR(setting::kAsteroidsMaxR, 0.4F);
    std::srand(8);
    int const next = std::rand();
    platform::SeedRandom(8);
    for (int i = 0; i < 10; ++i)
    {
        Roid const roid(nullptr);
        EXPECT_EQ(roid.GetSizeClass(), 0);
        EXPECT_EQ(roid.GetRadius(), 0.4F);
    }
    EXPECT_EQ(platform::Random31(), next);
}

TEST_F(RoidTest, EqualRadiiGiveFourEqualRowsOfLists)
{
    ScopedSetting const minR(setting::kAsteroidsMinR, 0.4F);
    ScopedSetting const maxR(setting::kAsteroidsMaxR, 0.4F);
    for (std::vector<double> const& sphere : CompiledSpheres())
    {
        EXPECT_EQ(sphere[0], 0.4F);
    }
}

TEST_F(RoidTest, ListsHoldFourRadiiInThreeLevelsOfDetail)
{
    std::vector<std::vector<double>> const spheres = CompiledSpheres();
    ASSERT_EQ(spheres.size(), 12U);
    double const radii[] = {0.1, 0.1 + 0.5 / 3, 0.1 + 1.0 / 3, 0.6};
    double const subdivisions[] = {7, 5, 4}; // (7 + 4) / 2 = 5
    for (std::size_t i = 0; i < 12; ++i)
    {
        EXPECT_NEAR(spheres[i][0], radii[i / 3], 1e-6);
        EXPECT_EQ(spheres[i][1], subdivisions[i % 3]);
        EXPECT_EQ(spheres[i][2], subdivisions[i % 3]);
    }
}

// The distance of the nearest face of a sphere of radius 1 that is built of so many slices and stacks.
float NearestFace(int subdivisions)
{
    constexpr float kPi = std::numbers::pi_v<float>;
    auto const corner = [=](int ring, int slice)
    {
        float const down = kPi * static_cast<float>(ring) / static_cast<float>(subdivisions);
        float const round = 2.0F * kPi * static_cast<float>(slice) / static_cast<float>(subdivisions);
        return TQ3Vector3D{std::sin(down) * std::cos(round), std::sin(down) * std::sin(round),
                           std::cos(down)};
    };
    float nearest = 1.0F;
    for (int stack = 0; stack < subdivisions; ++stack)
    {
        // Three corners of one face. Two share a ring, which is never a pole: there all corners are one.
        int const ring = std::max(stack, 1);
        TQ3Vector3D const a = corner(ring, 0);
        TQ3Vector3D const u = test::Difference(corner(ring, 1), a);
        TQ3Vector3D const v = test::Difference(corner(stack == 0 ? 0 : stack + 1, 0), a);
        TQ3Vector3D n;
        Vector3D_Cross(&u, &v, &n);
        nearest = std::min(nearest, std::fabs(Vector3D_Dot(&n, &a)) / test::Length(n));
    }
    return nearest;
}

TEST_F(RoidTest, EachLevelKnowsTheBallThatItsMeshContains)
{
    for (int const smoothness : {3, 5, 7, 9, 12})
    {
        ScopedSetting const setting(setting::kAsteroidsSmoothness, smoothness);
        Roid::ReadSettings();
        float const(&share)[Roid::kLodCount] = Roid::GetMeshes().solidShare;
        EXPECT_NEAR(share[0], NearestFace(smoothness), 1e-6);
        EXPECT_NEAR(share[1], NearestFace((smoothness + 4) / 2), 1e-6);
        EXPECT_NEAR(share[2], NearestFace(4), 1e-6);
    }
}

TEST_F(RoidTest, MeshThatEnclosesNothingContainsNoBall)
{
    unsigned long lists[Roid::kSizeCount][Roid::kLodCount] = {};
    EXPECT_EQ(Roid::CreatePrerender(2, lists).solidShare[0], 0.0F);
}

// The lists of others are described apart from those that the field is drawn with.
TEST_F(RoidTest, ListsMadeForOthersLeaveTheSharedOnesAsTheyAre)
{
    float const share = Roid::GetMeshes().solidShare[0];
    unsigned long lists[Roid::kSizeCount][Roid::kLodCount] = {};
    ScopedSetting const maxR(setting::kAsteroidsMaxR, 0.7F);
    EXPECT_FLOAT_EQ(Roid::CreatePrerender(3, lists).radius[3], 0.7F);
    EXPECT_FLOAT_EQ(Roid::GetMeshes().radius[3], 0.6F);
    EXPECT_EQ(Roid::GetMeshes().solidShare[0], share);
}

TEST_F(RoidTest, MiddleLevelHalvesTowardsFourTruncating)
{
    for (auto const& [smoothness, middle] : {std::pair{8, 6}, std::pair{5, 4}})
    {
        ScopedSetting const setting(setting::kAsteroidsSmoothness, smoothness);
        std::vector<std::vector<double>> const spheres = CompiledSpheres();
        EXPECT_EQ(spheres[0][1], smoothness);
        EXPECT_EQ(spheres[1][1], middle);
        EXPECT_EQ(spheres[2][1], 4);
    }
}

TEST_F(RoidTest, SpheresAreSmoothSolidAndTextured)
{
    auto const calls = recording::during([&] { Roid::ReadSettings(); });
    int const quadric = recording::indexOf(calls, "gluNewQuadric");
    ASSERT_GE(quadric, 0);
    std::vector<Call> const setup(calls.begin() + quadric, calls.begin() + quadric + 8);
    EXPECT_THAT(setup, testing::ElementsAre(
                           call("gluNewQuadric"), call("gluQuadricOrientation", {GLU_OUTSIDE}),
                           call("gluQuadricDrawStyle", {GLU_FILL}), call("gluQuadricNormals", {GLU_SMOOTH}),
                           call("gluQuadricTexture", {GL_TRUE}), call("glNewList", {List(0, 0), GL_COMPILE}),
                           call("gluSphere", {0.1F, 7, 7}), call("glEndList")));
    EXPECT_EQ(calls.back(), call("gluDeleteQuadric"));
}

TEST_F(RoidTest, ListNamesAreMadeLevelByLevel)
{
    for (int lod = 0; lod < 3; ++lod)
    {
        for (int size = 0; size < 4; ++size)
        {
            EXPECT_EQ(List(size, lod), List(0, 0) + lod * 4 + size);
        }
    }
}

TEST_F(RoidTest, DistancesOfDetailAreKeptSquared)
{
    EXPECT_EQ(Roid::m_lodDistMedium, 900.0F);
    EXPECT_EQ(Roid::m_lodDistFar, 3025.0F);
    EXPECT_TRUE(Roid::m_fGotSettings);
}

TEST_F(RoidTest, ReadingAgainReplacesWhatIsShared)
{
    std::size_t const textures = recording::textures().size();
    unsigned long const before = Roid::m_texture;
    Roid::ReadSettings();
    EXPECT_NE(Roid::m_texture, before);
    EXPECT_EQ(recording::textures().size(), textures);
    EXPECT_EQ(recording::lists().size(), 12U);
}

TEST_F(RoidTest, FirstToGoReleasesWhatIsSharedAndTheOthersNothingMore)
{
    std::list<Roid> roids;
    for (int i = 0; i < 3; ++i)
    {
        roids.emplace_back(nullptr);
    }
    auto const calls = recording::during([&] { roids.clear(); });
    EXPECT_EQ(recording::count(calls, "glDeleteTextures"), 1);
    EXPECT_EQ(recording::count(calls, "glDeleteLists"), 12);
    EXPECT_TRUE(recording::lists().empty());
    EXPECT_TRUE(Roid::m_fGotSettings);
}

TEST_F(RoidTest, ReadingAfterTheReleaseDeletesNothing)
{
    {
        Roid const roid(nullptr);
    }
    auto const calls = recording::during([&] { Roid::ReadSettings(); });
    EXPECT_EQ(recording::count(calls, "glDeleteTextures"), 0);
    EXPECT_EQ(recording::count(calls, "glDeleteLists"), 0);
    EXPECT_EQ(recording::lists().size(), 12U);
}

TEST_F(RoidTest, SharedStateIsSetOnceForAll)
{
    recording::start();
    Roid::RenderStart();
    Roid::RenderEnd();
    EXPECT_THAT(
        recording::stop(),
        testing::ElementsAre(call("glMaterialfv", {GL_FRONT, GL_SPECULAR, 0.8F, 0.6F, 0.6F, 1}),
                             call("glMaterialfv", {GL_FRONT, GL_SHININESS, 40}),
                             call("glMaterialfv", {GL_FRONT, GL_AMBIENT_AND_DIFFUSE, 0.8F, 0.8F, 0.8F, 1}),
                             call("glMaterialfv", {GL_FRONT, GL_EMISSION, 0, 0, 0, 1}),
                             call("glEnable", {GL_TEXTURE_2D}),
                             call("glBindTexture", {GL_TEXTURE_2D, static_cast<double>(Roid::m_texture)}),
                             call("glDisable", {GL_TEXTURE_2D})));
}

TEST_F(RoidTest, DrawsItsListWhereItIsMoved)
{
    Roid roid(nullptr);
    auto const calls = recording::during([&] { EXPECT_TRUE(roid.Render({1.0F, 2.0F, -5.0F}, WideView())); });
    EXPECT_THAT(calls, testing::ElementsAre(call("glPushMatrix"), call("glTranslated", {1, 2, -5}),
                                            call("glCallList", {List(roid.GetSizeClass(), 0)}),
                                            call("glPopMatrix")));
    EXPECT_THAT(roid.GetPosition(), test::IsExactly(1.0F, 2.0F, -5.0F));
}

// The centre decides, whatever the radius.
TEST_F(RoidTest, OutOfViewDrawsNothingButMoves)
{
    Roid roid(nullptr);
    auto const calls = recording::during([&] { EXPECT_FALSE(roid.Render({0.0F, 0.0F, 0.01F}, WideView())); });
    EXPECT_TRUE(calls.empty());
    EXPECT_THAT(roid.GetPosition(), test::IsExactly(0.0F, 0.0F, 0.01F));
}

TEST_F(RoidTest, DetailFallsAtExactlyTheSettingsDistances)
{
    Roid roid(nullptr);
    auto const lodAt = [&roid](float distance)
    {
        auto const calls = recording::during([&] { roid.Render({0.0F, 0.0F, -distance}, WideView()); });
        double const list = calls.at(2).arguments[0];
        for (int lod = 0; lod < 3; ++lod)
        {
            if (list == List(roid.GetSizeClass(), lod))
            {
                return lod;
            }
        }
        return -1;
    };
    EXPECT_EQ(lodAt(29.99F), 0);
    EXPECT_EQ(lodAt(30.0F), 1);
    EXPECT_EQ(lodAt(54.99F), 1);
    EXPECT_EQ(lodAt(55.0F), 2);
}

} // namespace
