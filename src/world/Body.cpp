// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "world/Body.h"

#include "math/util.h"
#include "world/Universe.h"

namespace
{
constexpr TQ3Vector3D kUnrotatedFacing{0.0F, 0.0F, -1.0F};
}

Universe const* Body::m_puniverse = nullptr;

Body::Body(Universe const* universe)
{
    m_puniverse = universe;
    SetDefaults();
}

Body::Body(Universe const* universe, TQ3Vector3D const& position) : Body(universe)
{
    m_position = position;
}

void Body::SetDefaults()
{
    m_radius = 0.1F;
    m_diameter = 0.2F;
    m_position = {};
    m_velocity = {};
    m_speed = 0.0F;
    m_accel = 0.0F;
    m_minVelocity = 0.0F;
    m_maxVelocity = 1.0F;
    m_lookAt = kUnrotatedFacing;
    Q3Quaternion_SetIdentity(&m_rotation);
    m_rotationRate = 0.0F;
}

void Body::SetSize(float r)
{
    m_radius = r;
    m_diameter = r + r;
}

void Body::MoveTo(TQ3Vector3D const& position)
{
    TQ3Vector3D delta;
    Vector3D_Subtract(&position, &m_position, &delta);
    m_position = position;
    Vector3D_Add(&m_lookAt, &delta, &m_lookAt);
}

void Body::Translate(TQ3Vector3D const& offset)
{
    Vector3D_Add(&m_position, &offset, &m_position);
    Vector3D_Add(&m_lookAt, &offset, &m_lookAt);
}

void Body::SetMinMaxVelocity(float min, float max)
{
    m_minVelocity = min;
    m_maxVelocity = max;
}

void Body::SetVelocity(float const& speed)
{
    m_speed = FltClamp(speed, m_minVelocity, m_maxVelocity);
    TQ3Vector3D facing = Facing();
    Vector3D_Normalize(&facing, &facing);
    Vector3D_Scale(&facing, m_speed, &m_velocity);
}

void Body::SetRotationRate(TQ3Vector3D const& axis, float rate)
{
    m_rotationAxis = axis;
    m_rotationRate = rate;
}

void Body::SetRotation(float angle)
{
    TQ3Quaternion increment;
    Q3Quaternion_SetRotateAboutAxis(&increment, &m_rotationAxis, angle);
    Q3Quaternion_Multiply(&m_rotation, &increment, &m_rotation);
    Q3Quaternion_Normalize(&m_rotation, &m_rotation);
    TQ3Vector3D const facing = Facing();
    Vector3D_Add(&m_position, &facing, &m_lookAt);
}

void Body::TurnToFace(float x, float y, float z)
{
    TQ3Vector3D const target{x, y, z};
    TQ3Vector3D oldDirection;
    TQ3Vector3D newDirection;
    Vector3D_Subtract(&m_lookAt, &m_position, &oldDirection);
    Vector3D_Subtract(&target, &m_position, &newDirection);
    Vector3D_Normalize(&oldDirection, &oldDirection);
    Vector3D_Normalize(&newDirection, &newDirection);

    Q3Quaternion_SetRotateVectorToVector(&m_rotation, &oldDirection, &newDirection);
    TQ3Vector3D const facing = Facing();
    Vector3D_Add(&m_position, &facing, &m_lookAt);
}

bool Body::SphereIntersects(TQ3Vector3D const& centre, float r) const
{
    return (r + m_radius) * (r + m_radius) >= DistSquared(m_position, centre);
}

bool Body::Tick(double dt)
{
    SetRotation(static_cast<float>(m_rotationRate * dt));
    SetVelocity(static_cast<float>(m_accel * dt) + m_speed);

    TQ3Vector3D displacement;
    Vector3D_Scale(&m_velocity, static_cast<float>(dt), &displacement);
    TQ3Vector3D direction;
    float distance = 0.0F;
    Vector3D_Normalize(&displacement, &direction, &distance);
    if (!(distance > 0.0F))
    {
        return false;
    }

    TQ3Vector3D end;
    Vector3D_Add(&m_position, &displacement, &end);
    TQ3Vector3D hitPoint;
    float hitFraction = 0.0F;
    if (m_puniverse->WillPathCollide(m_position, end, m_radius, &hitPoint, &hitFraction))
    {
        StopAtImpact();
        return true;
    }
    Translate(displacement);
    return false;
}

TQ3Vector3D Body::Facing() const
{
    TQ3Vector3D facing;
    Q3Vector3D_TransformQuaternion(&kUnrotatedFacing, &m_rotation, &facing);
    return facing;
}

// The speed becomes the minimum, not zero: with a minimum above zero a blocked ship keeps crawling, so that
// it can steer free.
void Body::StopAtImpact()
{
    SetVelocity(0.0F);
    m_accel = 0.0F;
    m_puniverse->GetWhamSound().Play();
}
