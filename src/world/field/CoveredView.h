// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Which parts of the picture near asteroids cover, so that those wholly behind them need not be drawn. The
// picture is divided into coarse cells; each knows the distance within which one asteroid covers all of it.
// Whatever is in doubt counts as not covered and as not hidden: leaving out what IsHidden() names changes no
// pixel, in whatever order the asteroids come.
#pragma once

#include "world/field/Eye.h"

#include <cstddef>
#include <vector>

class CoveredView
{
public:
    // A ball as the eye sees it: its centre along the picture's axes, world units from the eye.
    struct Ball
    {
        float right;
        float up;
        float ahead;
        float radius;
    };

    // A new picture, with nothing covered. Sizes in pixels.
    void Start(Eye const& eye, int width, int height);

    Ball Seen(TQ3Vector3D const& centre, float radius) const
    {
        TQ3Vector3D const d{centre.x - m_eye.position.x, centre.y - m_eye.position.y,
                            centre.z - m_eye.position.z};
        return {d.x * m_right.x + d.y * m_right.y + d.z * m_right.z,
                d.x * m_up.x + d.y * m_up.y + d.z * m_up.z,
                d.x * m_eye.facing.x + d.y * m_eye.facing.y + d.z * m_eye.facing.z, radius};
    }

    // Notes that something opaque is drawn that fills the ball and reaches nowhere beyond outerRadius.
    void Cover(Ball const& ball, float outerRadius);

    // True when no pixel of anything within the ball can show: it lies beside the picture or behind the eye,
    // or there are only covered parts in front of it.
    bool IsHidden(Ball const& ball) const;

private:
    bool IsBeside(Ball const& ball) const;
    bool IsOpenAtTheMiddle(Ball const& ball, float distance) const;
    bool IsOpenInFrontOf(Ball const& ball, float distance) const;
    float RowEdge(int row) const { return static_cast<float>(row) * m_cellSlope - m_halfHeight; }
    float ToRow(float height) const { return (height + m_halfHeight) * m_cellsPerSlope; }
    float ToColumn(float sideways) const { return (sideways + m_halfWidth) * m_cellsPerSlope; }
    float const* Row(int row) const
    {
        return m_coveredWithin.data() + static_cast<std::ptrdiff_t>(row) * m_columns;
    }

    Eye m_eye;
    TQ3Vector3D m_right; // the picture's axes
    TQ3Vector3D m_up;

    // Places in the picture are slopes: units from its middle for one unit ahead.
    float m_halfWidth = 0.0F;
    float m_halfHeight = 0.0F;
    float m_cellSlope = 1.0F; // from one cell to the next
    float m_cellsPerSlope = 1.0F;
    float m_sidePerRadius = 1.0F; // how far a ball beside the picture reaches into it
    float m_topPerRadius = 1.0F;
    float m_placeSlack = 0.0F; // world units, whatever the distance
    float m_pixelSlack = 0.0F; // world units for one unit ahead
    int m_columns = 0;
    int m_rows = 0;
    std::vector<float> m_coveredWithin; // by row and column: distance from the eye, infinite where open
};
