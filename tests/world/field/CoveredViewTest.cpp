// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "world/field/CoveredView.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

namespace
{

using Ball = CoveredView::Ball;

// A picture of 1280 x 720, seen by an eye that looks along -z.
class CoveredViewTest : public testing::Test
{
protected:
    CoveredViewTest() { StartAt({0.0F, 0.0F, 0.0F}); }

    void StartAt(TQ3Vector3D const& eye, int width = 1280, int height = 720)
    {
        m_view.Start({eye, {0.0F, 0.0F, -1.0F}, {0.0F, 1.0F, 0.0F}}, width, height);
    }

    // Covers with a ball that is drawn exactly.
    void Cover(Ball const& ball) { m_view.Cover(ball, ball.radius); }

    CoveredView m_view;
};

TEST_F(CoveredViewTest, SeesAlongTheAxesOfThePicture)
{
    StartAt({10.0F, 20.0F, 30.0F});
    Ball const ball = m_view.Seen({11.0F, 22.0F, 25.0F}, 0.5F);
    EXPECT_FLOAT_EQ(ball.right, 1.0F);
    EXPECT_FLOAT_EQ(ball.up, 2.0F);
    EXPECT_FLOAT_EQ(ball.ahead, 5.0F);
    EXPECT_FLOAT_EQ(ball.radius, 0.5F);
}

TEST_F(CoveredViewTest, SeesAlongThemWhereverTheEyeLooks)
{
    m_view.Start({{10.0F, 20.0F, 30.0F}, {0.6F, 0.0F, -0.8F}, {0.0F, 1.0F, 0.0F}}, 1280, 720);
    Ball const ball = m_view.Seen({11.0F, 22.0F, 25.0F}, 0.5F);
    EXPECT_FLOAT_EQ(ball.right, -2.2F);
    EXPECT_FLOAT_EQ(ball.up, 2.0F);
    EXPECT_FLOAT_EQ(ball.ahead, 4.6F);
}

TEST_F(CoveredViewTest, NothingIsHiddenInANewPicture)
{
    EXPECT_FALSE(m_view.IsHidden({0.0F, 0.0F, 10.0F, 0.6F}));
    Cover({0.0F, 0.0F, 3.0F, 0.6F});
    StartAt({0.0F, 0.0F, 0.0F});
    EXPECT_FALSE(m_view.IsHidden({0.0F, 0.0F, 10.0F, 0.6F}));
}

TEST_F(CoveredViewTest, BallWhollyBehindANearerOneIsHidden)
{
    Cover({0.0F, 0.0F, 3.0F, 0.6F});
    EXPECT_TRUE(m_view.IsHidden({0.0F, 0.0F, 10.0F, 0.6F}));
    EXPECT_TRUE(m_view.IsHidden({0.5F, -0.5F, 10.0F, 0.6F}));
}

TEST_F(CoveredViewTest, BallThatPeepsOutIsNotHidden)
{
    Cover({0.0F, 0.0F, 3.0F, 0.6F}); // the tangents reach 2.04 aside at a distance of 10
    EXPECT_FALSE(m_view.IsHidden({1.6F, 0.0F, 10.0F, 0.6F}));  // on the right
    EXPECT_FALSE(m_view.IsHidden({0.0F, -1.6F, 10.0F, 0.6F})); // below
    EXPECT_FALSE(m_view.IsHidden({-1.2F, 1.2F, 10.0F, 0.6F})); // at a corner
    EXPECT_FALSE(m_view.IsHidden({0.0F, 0.0F, 10.0F, 2.1F}));  // all around
}

// Edges are drawn up to an eighth of a pixel beside the exact ones.
TEST_F(CoveredViewTest, BallThatMayPeepOutBetweenLargePixelsIsNotHidden)
{
    Ball const behind{0.0F, 0.0F, 10.0F, 1.8F};
    Cover({0.0F, 0.0F, 3.0F, 0.6F});
    EXPECT_TRUE(m_view.IsHidden(behind));
    StartAt({0.0F, 0.0F, 0.0F}, 16, 9);
    Cover({0.0F, 0.0F, 3.0F, 0.6F});
    EXPECT_FALSE(m_view.IsHidden(behind));
}

TEST_F(CoveredViewTest, BallInFrontOfTheCoveringOneIsNotHidden)
{
    Cover({0.0F, 0.0F, 10.0F, 2.0F});
    EXPECT_FALSE(m_view.IsHidden({0.0F, 0.0F, 5.0F, 0.3F}));
    EXPECT_FALSE(m_view.IsHidden({0.0F, 0.0F, 10.0F, 0.3F})); // in its very middle: not surely behind
}

TEST_F(CoveredViewTest, SeveralTogetherHideWhatNoneHidesAlone)
{
    Ball const behind{0.0F, 0.0F, 20.0F, 1.0F};
    Cover({-0.5F, 0.0F, 3.0F, 0.6F});
    EXPECT_FALSE(m_view.IsHidden(behind));
    Cover({0.5F, 0.0F, 3.0F, 0.6F});
    EXPECT_TRUE(m_view.IsHidden(behind));
}

TEST_F(CoveredViewTest, BallsBehindTheEyeOrBesideThePictureAreHidden)
{
    EXPECT_TRUE(m_view.IsHidden({0.0F, 0.0F, -1.0F, 0.6F}));
    EXPECT_TRUE(m_view.IsHidden({0.0F, 5.0F, 10.0F, 0.6F}));  // the picture ends at 4.14
    EXPECT_TRUE(m_view.IsHidden({-8.2F, 0.0F, 10.0F, 0.6F})); // and at 7.36
}

TEST_F(CoveredViewTest, BallThatPokesIntoThePictureIsNotHidden)
{
    EXPECT_FALSE(m_view.IsHidden({0.0F, 4.6F, 10.0F, 0.6F}));
    EXPECT_FALSE(m_view.IsHidden({-7.8F, 0.0F, 10.0F, 0.6F}));
    EXPECT_FALSE(m_view.IsHidden({0.0F, 0.0F, -0.3F, 0.6F})); // around the eye
    EXPECT_FALSE(m_view.IsHidden({0.5F, 0.0F, 0.2F, 0.6F}));
}

// It is cut open: the eye sees through to what lies inside and behind.
TEST_F(CoveredViewTest, BallCutByTheNearPlaneCoversNothing)
{
    Cover({0.0F, 0.0F, 0.65F, 0.6F});
    EXPECT_FALSE(m_view.IsHidden({0.0F, 0.0F, 10.0F, 0.6F}));
    m_view.Cover({0.0F, 0.0F, 0.65F, 0.5F}, 0.6F); // the outer radius counts
    EXPECT_FALSE(m_view.IsHidden({0.0F, 0.0F, 10.0F, 0.6F}));
    Cover({0.0F, 0.0F, 0.75F, 0.6F});
    EXPECT_TRUE(m_view.IsHidden({0.0F, 0.0F, 10.0F, 0.6F}));
}

// The tangents touch the covering ball 49 units from the eye. There a depth buffer of 16 bits has steps of
// three eighths of a unit.
TEST_F(CoveredViewTest, BallThatACoarseDepthBufferMayShowIsNotHidden)
{
    Cover({0.0F, 0.0F, 50.0F, 10.0F});
    EXPECT_FALSE(m_view.IsHidden({0.0F, 0.0F, 49.5F, 0.1F}));
    EXPECT_TRUE(m_view.IsHidden({0.0F, 0.0F, 51.0F, 0.1F}));
}

TEST_F(CoveredViewTest, BallCutByTheFarPlaneCoversNothing)
{
    Cover({0.0F, 0.0F, 99.0F, 20.0F});
    EXPECT_FALSE(m_view.IsHidden({0.0F, 0.0F, 140.0F, 1.0F}));
}

// So far from the origin, OpenGL's own numbers are too coarse to rely on.
TEST_F(CoveredViewTest, NothingCoversFarFromTheOrigin)
{
    StartAt({500000.0F, 500000.0F, 500000.0F});
    Cover({0.0F, 0.0F, 3.0F, 0.6F});
    EXPECT_FALSE(m_view.IsHidden({0.0F, 0.0F, 10.0F, 0.6F}));
}

TEST_F(CoveredViewTest, PictureWithoutASizeIsHarmless)
{
    StartAt({0.0F, 0.0F, 0.0F}, 0, 0);
    Cover({0.0F, 0.0F, 3.0F, 0.6F});
    EXPECT_FALSE(m_view.IsHidden({0.0F, 0.0F, 1.0F, 0.6F}));
}

// Where a ray from the eye enters the ball; -1 where it passes.
double Entry(Ball const& ball, double sideways, double height)
{
    double const length = std::sqrt(sideways * sideways + height * height + 1.0);
    double const along = (ball.right * sideways + ball.up * height + ball.ahead) / length;
    double const squared = static_cast<double>(ball.right) * ball.right +
                           static_cast<double>(ball.up) * ball.up +
                           static_cast<double>(ball.ahead) * ball.ahead;
    double const rest = static_cast<double>(ball.radius) * ball.radius - (squared - along * along);
    return rest < 0.0 ? -1.0 : along - std::sqrt(rest);
}

struct Tally
{
    int hidden = 0;      // that the view names
    int trulyHidden = 0; // that no ray of a fine grid reaches
    int wrong = 0;       // named, though a ray reaches them
};

bool AnyRayReaches(Ball const& ball, std::vector<Ball> const& covering)
{
    constexpr int kRays = 40;
    for (int i = 0; i <= kRays * kRays; ++i)
    {
        double const reach = 1.5 * ball.radius / (ball.ahead - ball.radius);
        double const sideways = ball.right / ball.ahead + reach * (i % kRays * 2.0 / kRays - 1.0);
        double const height = ball.up / ball.ahead + reach * (i / kRays * 2.0 / kRays - 1.0);
        double const entry = Entry(ball, sideways, height);
        bool const isInPicture = std::fabs(height) <= 0.41421 && std::fabs(sideways) <= 0.41421 * 16.0 / 9.0;
        if (entry > 0.0 && isInPicture &&
            std::none_of(covering.begin(), covering.end(),
                         [&](Ball const& near)
                         {
                             double const nearEntry = Entry(near, sideways, height);
                             return nearEntry > 0.0 && nearEntry < entry;
                         }))
        {
            return true;
        }
    }
    return false;
}

// Balls scattered through the view, each of which covers and may be hidden.
TEST_F(CoveredViewTest, NamesOnlyBallsThatNoRayReachesAndMostOfThose)
{
    std::mt19937 dice(3);
    auto const between = [&dice](float low, float high)
    { return std::uniform_real_distribution<float>(low, high)(dice); };
    std::vector<Ball> balls;
    for (int i = 0; i < 250; ++i)
    {
        float const ahead = between(2.0F, 20.0F);
        balls.push_back(
            {ahead * between(-0.8F, 0.8F), ahead * between(-0.45F, 0.45F), ahead, between(0.1F, 0.9F)});
        Cover(balls.back());
    }
    Tally tally;
    for (Ball const& ball : balls)
    {
        bool const isHidden = m_view.IsHidden(ball);
        bool const isReached = AnyRayReaches(ball, balls);
        tally.hidden += isHidden ? 1 : 0;
        tally.trulyHidden += isReached ? 0 : 1;
        tally.wrong += isHidden && isReached ? 1 : 0;
    }
    EXPECT_EQ(tally.wrong, 0);
    EXPECT_GT(tally.trulyHidden, 60);
    EXPECT_GT(tally.hidden, tally.trulyHidden * 7 / 10);
}

} // namespace
