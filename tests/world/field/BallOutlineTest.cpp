// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "world/field/BallOutline.h"

#include <gtest/gtest.h>

#include <cmath>

namespace
{

struct Ball
{
    double right;
    double up;
    double ahead;
    double radius;

    BallOutline Outline() const
    {
        return {static_cast<float>(right), static_cast<float>(up), static_cast<float>(ahead),
                static_cast<float>(radius)};
    }

    // How far the ray from the eye passes from the centre.
    double Miss(double sideways, double height) const
    {
        double const squared = sideways * sideways + height * height + 1.0;
        double const along = right * sideways + up * height + ahead;
        return std::sqrt(right * right + up * up + ahead * ahead - along * along / squared);
    }
};

constexpr Ball kBalls[] = {
    {0, 0, 5, 1}, {3, -2, 6, 0.6}, {-8, 4, 10, 0.4}, {0.5, 0.9, 0.9, 0.6}, {-1, -1, 40, 0.1}};

TEST(BallOutline, StandsAroundTheMiddleForABallStraightAhead)
{
    BallOutline const outline(0.0F, 0.0F, 5.0F, 3.0F); // the tangents are 4 long, their slope is 3 in 4
    EXPECT_FLOAT_EQ(outline.GetTop(), 0.75F);
    EXPECT_FLOAT_EQ(outline.GetBottom(), -0.75F);
    EXPECT_FLOAT_EQ(outline.At(0.0F).left, -0.75F);
    EXPECT_FLOAT_EQ(outline.At(0.0F).right, 0.75F);
    EXPECT_FLOAT_EQ(outline.GetTangentSquared(), 16.0F);
}

TEST(BallOutline, RaysThroughItTouchTheBall)
{
    for (Ball const& ball : kBalls)
    {
        BallOutline const outline = ball.Outline();
        for (float const part : {0.02F, 0.2F, 0.5F, 0.7F, 0.98F})
        {
            float const height = outline.GetBottom() + (outline.GetTop() - outline.GetBottom()) * part;
            BallOutline::Span const span = outline.At(height);
            EXPECT_LT(span.left, span.right);
            EXPECT_NEAR(ball.Miss(span.left, height), ball.radius, 1e-3 * ball.radius);
            EXPECT_NEAR(ball.Miss(span.right, height), ball.radius, 1e-3 * ball.radius);
        }
    }
}

TEST(BallOutline, ClosesAtTopAndBottom)
{
    for (Ball const& ball : kBalls)
    {
        BallOutline const outline = ball.Outline();
        for (float const height : {outline.GetTop(), outline.GetBottom()})
        {
            BallOutline::Span const span = outline.At(height);
            EXPECT_NEAR(ball.Miss((span.left + span.right) / 2.0F, height), ball.radius, 1e-3 * ball.radius);
            EXPECT_NEAR(span.left, span.right, 1e-6);
        }
    }
}

TEST(BallOutline, ReachesFarthestSidewaysAtTheHeightsOfItsSides)
{
    for (Ball const& ball : kBalls)
    {
        BallOutline const outline = ball.Outline();
        BallOutline::Span const heights = outline.HeightsOfSides();
        float const step = (outline.GetTop() - outline.GetBottom()) / 20.0F;
        for (float height = outline.GetBottom(); height <= outline.GetTop(); height += step)
        {
            EXPECT_GE(outline.At(height).left, outline.At(heights.left).left - 1e-5F);
            EXPECT_LE(outline.At(height).right, outline.At(heights.right).right + 1e-5F);
        }
    }
}

} // namespace
