// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "math/Plane.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace
{

TQ3Vector3D Sum(TQ3Vector3D const& a, TQ3Vector3D const& b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

TQ3Vector3D Difference(TQ3Vector3D const& a, TQ3Vector3D const& b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

TQ3Vector3D Scaled(TQ3Vector3D const& a, float s)
{
    return {a.x * s, a.y * s, a.z * s};
}

void Widen(float value, float* min, float* max)
{
    *min = std::min(*min, value);
    *max = std::max(*max, value);
}

// A plane parallel to z cuts no line along z. It is tilted this much, so that the cut lies far outside the
// view.
constexpr float kLeastTilt = 1e-9F;

bool IsLower(Plane const& plane)
{
    return plane.c > -kLeastTilt;
}

} // namespace

int Plane::Init(TQ3Vector3D const& p, TQ3Vector3D const& q, TQ3Vector3D const& r)
{
    TQ3Vector3D const e1 = Difference(p, q);
    TQ3Vector3D const e2 = Difference(r, q);
    TQ3Vector3D normal;
    Vector3D_Cross(&e1, &e2, &normal);
    a = normal.x;
    b = normal.y;
    c = normal.z;
    d = -Vector3D_Dot(&normal, &p);
    Normalize();
    return 0;
}

Plane& Plane::Normalize()
{
    float const length = std::sqrt(a * a + b * b + c * c);
    a /= length;
    b /= length;
    c /= length;
    d /= length;
    return *this;
}

Frustum::Frustum(float fov, float aspect, TQ3Vector3D const* position, TQ3Vector3D const* direction,
                 TQ3Vector3D const* up, float distance)
{
    // One unit more than the exact view in height, and two in width: an asteroid whose centre is just out of
    // view is still partly seen, and points are tested without a radius.
    auto const halfHeight = static_cast<float>(std::tan(fov * 0.5) * distance + 1.0);
    float const halfWidth = halfHeight * aspect + 1.0F;

    TQ3Vector3D right;
    Vector3D_Cross(direction, up, &right);
    TQ3Vector3D const u = Scaled(*up, halfHeight);
    TQ3Vector3D const r = Scaled(right, halfWidth);
    TQ3Vector3D const centre = Sum(*position, Scaled(*direction, distance));

    m_corners[2] = Sum(Sum(centre, r), u);
    m_corners[0] = Sum(Difference(centre, r), u);
    m_corners[1] = Difference(Difference(centre, r), u);
    m_corners[3] = Difference(Sum(centre, r), u);
    m_apex = *position;

    m_left.Init(m_corners[1], m_apex, m_corners[0]);
    m_right.Init(m_corners[2], m_apex, m_corners[3]);
    m_top.Init(m_corners[0], m_apex, m_corners[2]);
    m_bottom.Init(m_corners[3], m_apex, m_corners[1]);
    m_far.Init(m_corners[3], m_corners[1], m_corners[0]);
    FindRowLimits();
}

Frustum::RowLimit::RowLimit(Plane const& plane, float slack)
{
    float const c = IsLower(plane) ? std::max(plane.c, kLeastTilt) : plane.c;
    offset = -(plane.d + slack) / c;
    perX = -plane.a / c;
    perY = -plane.b / c;
}

// The slack covers rounding errors, which grow with the distance from the origin.
void Frustum::FindRowLimits()
{
    float low[3];
    float high[3];
    GetBoundingBox(&low[0], &high[0], &low[1], &high[1], &low[2], &high[2]);
    float extent = 0.0F;
    for (int axis = 0; axis < 3; ++axis)
    {
        extent += std::max(std::fabs(low[axis]), std::fabs(high[axis]));
    }
    float const slack = 0.01F + 4.0F * kQ3Epsilon * extent;
    int upper = kPlaneCount;
    for (Plane const* plane : {&m_left, &m_right, &m_top, &m_bottom, &m_far})
    {
        m_rowLimits[IsLower(*plane) ? m_lowerCount++ : --upper] = RowLimit(*plane, slack);
    }
}

void Frustum::GetBoundingBox(float* minX, float* maxX, float* minY, float* maxY, float* minZ,
                             float* maxZ) const
{
    TQ3Vector3D const& first = m_corners[2];
    *minX = *maxX = first.x;
    *minY = *maxY = first.y;
    *minZ = *maxZ = first.z;
    for (TQ3Vector3D const* p : {&m_corners[0], &m_corners[3], &m_corners[1], &m_apex})
    {
        Widen(p->x, minX, maxX);
        Widen(p->y, minY, maxY);
        Widen(p->z, minZ, maxZ);
    }
}

void Frustum::InternalTest()
{
    constexpr float kRightAngle = 1.5707964F;
    TQ3Vector3D const up{0.0F, 1.0F, 0.0F};
    TQ3Vector3D const origin{0.0F, 0.0F, 0.0F};
    TQ3Vector3D const forwards{0.0F, 0.0F, -1.0F};
    TQ3Vector3D const backwards{0.0F, 0.0F, 1.0F};
    Frustum const first(kRightAngle, 1.0F, &origin, &forwards, &up, 1.0F);
    Frustum const second(kRightAngle, 1.0F, &backwards, &backwards, &up, 1.0F);
    static_cast<void>(first);
    static_cast<void>(second);
}
