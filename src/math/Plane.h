// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Planes, and the pyramid that the camera sees in one frame.
#pragma once

#include "math/qmath.h"

#include <algorithm>

// a*x + b*y + c*z + d = 0 with a unit normal; positive on the inner side.
class Plane
{
public:
    Plane() = default;
    Plane(TQ3Vector3D const& p, TQ3Vector3D const& q, TQ3Vector3D const& r) { Init(p, q, r); }

    // The plane through three points that do not lie on one line. Its normal is (p - q) x (r - q). Returns 0.
    int Init(TQ3Vector3D const& p, TQ3Vector3D const& q, TQ3Vector3D const& r);

    // Divides all four by the length of the normal.
    Plane& Normalize();

    float Distance(TQ3Vector3D const& p) const { return a * p.x + b * p.y + c * p.z + d; }

    float a = 0.0F;
    float b = 0.0F;
    float c = 0.0F;
    float d = 0.0F;
};

// The view volume of one frame: apex at the eye, four side planes and a far plane, no near plane.
class Frustum
{
public:
    // fov: full vertical angle in radians; aspect: width / height; direction, up: unit vectors at right
    // angles; distance: from the eye to the far plane, in world units.
    Frustum(float fov, float aspect, TQ3Vector3D const* position, TQ3Vector3D const* direction,
            TQ3Vector3D const* up, float distance);

    // A point on a plane is inside.
    bool IsPointInside(TQ3Vector3D const& p) const
    {
        return !(m_left.Distance(p) < 0.0F || m_right.Distance(p) < 0.0F || m_top.Distance(p) < 0.0F ||
                 m_bottom.Distance(p) < 0.0F || m_far.Distance(p) < 0.0F);
    }

    // Shortens minZ..maxZ on the line along z through (x, y), which lies in the bounding box or near it.
    // Every point for which IsPointInside() is true stays in the range. An empty range has maxZ below minZ.
    void NarrowToView(float x, float y, float* minZ, float* maxZ) const
    {
        for (int i = 0; i < m_lowerCount; ++i)
        {
            *minZ = std::max(*minZ, m_rowLimits[i].At(x, y));
        }
        for (int i = m_lowerCount; i < kPlaneCount; ++i)
        {
            *maxZ = std::min(*maxZ, m_rowLimits[i].At(x, y));
        }
    }

    // The axis-aligned box around the apex and the four far corners.
    void GetBoundingBox(float* minX, float* maxX, float* minY, float* maxY, float* minZ, float* maxZ) const;

    TQ3Vector3D const& GetApex() const { return m_apex; }

    // Far corners: 0 top left, 1 bottom left, 2 top right, 3 bottom right.
    TQ3Vector3D const& GetCorner(int index) const { return m_corners[index]; }

    // A hook for a debugger: builds two frustums and discards them.
    static void InternalTest();

private:
    static constexpr int kPlaneCount = 5;

    // Where a plane cuts the lines along z: at offset + perX * x + perY * y.
    struct RowLimit
    {
        RowLimit() = default;
        RowLimit(Plane const& plane, float slack);
        float At(float x, float y) const { return offset + perX * x + perY * y; }

        float offset = 0.0F;
        float perX = 0.0F;
        float perY = 0.0F;
    };

    void FindRowLimits();

    TQ3Vector3D m_corners[4];
    TQ3Vector3D m_apex;
    Plane m_left;
    Plane m_right;
    Plane m_top;
    Plane m_bottom;
    Plane m_far;
    RowLimit m_rowLimits[kPlaneCount]; // those that limit z from below first
    int m_lowerCount = 0;
};
