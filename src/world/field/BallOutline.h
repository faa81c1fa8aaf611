// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The ellipse that a ball makes in a picture. Places are slopes: units sideways and up for one unit ahead.
#pragma once

#include <algorithm>
#include <cmath>

class BallOutline
{
public:
    struct Span
    {
        float left;
        float right;
    };

    // The ball's centre from the eye, along the picture's axes. All of the ball lies ahead of the eye.
    //
    // The ray (u, v, 1) touches a ball around c when (c . ray)^2 = |ray|^2 (|c|^2 - r^2): a quadratic
    // equation for u at a given v, and for the greatest and the smallest v.
    BallOutline(float right, float up, float ahead, float radius)
        : m_right(right),
          m_up(up),
          m_ahead(ahead),
          m_radius(radius),
          m_tangentSquared(right * right + up * up + ahead * ahead - radius * radius),
          m_inverseDepth(1.0F / (ahead * ahead - radius * radius))
    {
        float const rest = up * up + ahead * ahead - radius * radius;
        float const reach = radius * std::sqrt(rest);
        m_bottom = (up * ahead - reach) * m_inverseDepth;
        m_top = (up * ahead + reach) * m_inverseDepth;
        m_inverseRest = 1.0F / rest;
        m_width = std::sqrt(m_tangentSquared / m_inverseDepth) * m_inverseRest;
    }

    float GetTangentSquared() const { return m_tangentSquared; } // of the tangents from the eye, world units
    float GetBottom() const { return m_bottom; }
    float GetTop() const { return m_top; }

    // Where the line at that height, between bottom and top, enters and leaves the ellipse.
    Span At(float height) const
    {
        float const middle = m_right * (height * m_up + m_ahead) * m_inverseRest;
        float const half = m_width * std::sqrt(std::max((m_top - height) * (height - m_bottom), 0.0F));
        return {middle - half, middle + half};
    }

    // The heights of the ellipse's leftmost point (left) and rightmost point (right).
    Span HeightsOfSides() const
    {
        float const sideRest = m_right * m_right + m_ahead * m_ahead - m_radius * m_radius;
        float const reach = m_radius * std::sqrt(sideRest);
        float const left = (m_right * m_ahead - reach) * m_inverseDepth;
        float const right = (m_right * m_ahead + reach) * m_inverseDepth;
        return {m_up * (left * m_right + m_ahead) / sideRest, m_up * (right * m_right + m_ahead) / sideRest};
    }

private:
    float m_right;
    float m_up;
    float m_ahead;
    float m_radius;
    float m_tangentSquared;
    float m_inverseDepth;
    float m_inverseRest;
    float m_bottom;
    float m_top;
    float m_width; // of the ellipse in relation to its height
};
