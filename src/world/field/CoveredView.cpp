// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "world/field/CoveredView.h"

#include "world/field/BallOutline.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

// Cells across a picture of 16:9, whatever its size in pixels: finer ones hide a few more asteroids and cost
// more than those.
constexpr float kMostColumns = 160.0F;
constexpr float kMostRows = 90.0F;
constexpr float kHalfDiagonal = 0.7071F; // of a cell
constexpr float kOpen = std::numeric_limits<float>::infinity();
constexpr auto kNear = static_cast<float>(Eye::kNear);
constexpr auto kFar = static_cast<float>(Eye::kFar);

constexpr float kPixelSlack = 0.125F; // pixels by which a drawn edge may lie beside the exact one
constexpr float kPlaceSlack = 1e-6F;  // of the coordinates: how far OpenGL's rounding may move an asteroid

// Two steps of a depth buffer of 16 bits, world units for one unit of squared distance: what lies no farther
// behind may pass the depth test.
constexpr float kDepthSlack = 3.1e-4F;

// Held within 0 and count, so that it fits an int.
float Within(float cell, int count)
{
    return std::clamp(cell, 0.0F, static_cast<float>(count));
}

int CellsAcross(float halfExtent, float cellSlope)
{
    return std::max(static_cast<int>(std::ceil(2.0F * halfExtent / cellSlope)), 1);
}

} // namespace

void CoveredView::Start(Eye const& eye, int width, int height)
{
    auto const pixelWidth = static_cast<float>(std::max(width, 1));
    auto const pixelHeight = static_cast<float>(std::max(height, 1));
    m_eye = eye;
    Vector3D_Cross(&eye.facing, &eye.up, &m_right);
    Vector3D_Normalize(&m_right, &m_right);
    Vector3D_Cross(&m_right, &eye.facing, &m_up);

    m_halfHeight = Eye::kHalfTangent;
    m_halfWidth = Eye::kHalfTangent * pixelWidth / pixelHeight;
    m_cellSlope = std::max(2.0F * m_halfWidth / kMostColumns, 2.0F * m_halfHeight / kMostRows);
    m_cellsPerSlope = 1.0F / m_cellSlope;
    m_sidePerRadius = std::sqrt(1.0F + m_halfWidth * m_halfWidth);
    m_topPerRadius = std::sqrt(1.0F + m_halfHeight * m_halfHeight);
    TQ3Vector3D const& place = eye.position;
    m_placeSlack = kPlaceSlack * (1.0F + std::fabs(place.x) + std::fabs(place.y) + std::fabs(place.z));
    m_pixelSlack = kPixelSlack * 2.0F * m_halfHeight / pixelHeight;

    m_columns = CellsAcross(m_halfWidth, m_cellSlope);
    m_rows = CellsAcross(m_halfHeight, m_cellSlope);
    m_coveredWithin.assign(static_cast<std::size_t>(m_columns) * static_cast<std::size_t>(m_rows), kOpen);
}

// A cell is covered where the lines of both its edges, above and below, are within the ellipse for all of its
// width.
void CoveredView::Cover(Ball const& ball, float outerRadius)
{
    float const radius = ball.radius - m_placeSlack - m_pixelSlack * ball.ahead;
    bool const isWhole = ball.ahead - outerRadius > kNear + m_placeSlack && ball.ahead + outerRadius < kFar;
    bool const mayFillACell = radius > kHalfDiagonal * m_cellSlope * ball.ahead;
    if (!mayFillACell || !isWhole)
    {
        return;
    }
    BallOutline const outline(ball.right, ball.up, ball.ahead, radius);
    float const distance = std::sqrt(outline.GetTangentSquared()) + m_placeSlack;
    auto const begin = static_cast<int>(std::ceil(Within(ToRow(outline.GetBottom()), m_rows)));
    auto const end = static_cast<int>(Within(ToRow(outline.GetTop()), m_rows));
    float* cells = m_coveredWithin.data() + static_cast<std::ptrdiff_t>(begin) * m_columns;
    BallOutline::Span below = outline.At(RowEdge(begin));
    for (int row = begin; row < end; ++row, cells += m_columns)
    {
        BallOutline::Span const above = outline.At(RowEdge(row + 1));
        float const left = Within(ToColumn(std::max(below.left, above.left)), m_columns);
        float const right = Within(ToColumn(std::min(below.right, above.right)), m_columns);
        auto const last = static_cast<int>(right);
        for (auto column = static_cast<int>(std::ceil(left)); column < last; ++column)
        {
            cells[column] = std::min(cells[column], distance);
        }
        below = above;
    }
}

bool CoveredView::IsHidden(Ball const& ball) const
{
    Ball wide = ball;
    wide.radius += m_placeSlack + m_pixelSlack * std::max(ball.ahead, 0.0F);
    if (!(wide.ahead - wide.radius > kNear))
    {
        return wide.ahead + wide.radius < kNear; // cut by the near plane, or wholly before it
    }
    if (IsBeside(wide))
    {
        return true;
    }
    float const distance = std::sqrt(wide.right * wide.right + wide.up * wide.up + wide.ahead * wide.ahead);
    float const nearest = distance - wide.radius - kDepthSlack * distance * distance;
    return !IsOpenAtTheMiddle(wide, nearest) && !IsOpenInFrontOf(wide, nearest);
}

bool CoveredView::IsBeside(Ball const& ball) const
{
    return std::fabs(ball.right) - ball.radius * m_sidePerRadius > ball.ahead * m_halfWidth ||
           std::fabs(ball.up) - ball.radius * m_topPerRadius > ball.ahead * m_halfHeight;
}

// Most balls that show do so at their centre, which is tested much faster than all the cells that they touch.
bool CoveredView::IsOpenAtTheMiddle(Ball const& ball, float distance) const
{
    float const column = ToColumn(ball.right / ball.ahead);
    float const row = ToRow(ball.up / ball.ahead);
    bool const isInPicture = column >= 0.0F && column < static_cast<float>(m_columns) && row >= 0.0F &&
                             row < static_cast<float>(m_rows);
    return isInPicture && !(Row(static_cast<int>(row))[static_cast<int>(column)] < distance);
}

// In each row of cells the ellipse reaches farthest left at its leftmost point or, where that lies in another
// row, at the row's edge towards it; and likewise on the right.
bool CoveredView::IsOpenInFrontOf(Ball const& ball, float distance) const
{
    BallOutline const outline(ball.right, ball.up, ball.ahead, ball.radius);
    BallOutline::Span const sides = outline.HeightsOfSides();
    auto const last = static_cast<int>(Within(ToRow(outline.GetTop()), m_rows - 1));
    for (auto row = static_cast<int>(Within(ToRow(outline.GetBottom()), m_rows - 1)); row <= last; ++row)
    {
        float const low = std::max(RowEdge(row), outline.GetBottom());
        float const high = std::max(std::min(RowEdge(row + 1), outline.GetTop()), low);
        float const left = ToColumn(outline.At(std::clamp(sides.left, low, high)).left);
        float const right = ToColumn(outline.At(std::clamp(sides.right, low, high)).right);
        auto const first = static_cast<int>(Within(left, m_columns));
        auto const end = static_cast<int>(std::ceil(Within(right, m_columns)));
        float const* const cells = Row(row);
        if (std::any_of(cells + first, cells + std::max(first, end),
                        [distance](float coveredWithin) { return !(coveredWithin < distance); }))
        {
            return true;
        }
    }
    return false;
}
