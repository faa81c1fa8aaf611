// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "world/Camera.h"

#include "platform/base/OpenGL.h"
#include "settings/GameSettings.h"
#include "world/Universe.h"

namespace
{
constexpr float kPi = 3.1415927410125732F;
constexpr TQ3Vector3D kUnrotatedUp{0.0F, 1.0F, 0.0F};
} // namespace

Camera::Camera(Universe* universe) : Body(universe)
{
    SetDefaults();
}

void Camera::SetDefaults()
{
    SetSize(GameSettings::GetFloatParam(setting::kPlayerSize));
    SetPos(0.0F, 0.0F, 40.0F);
    m_lookAt = {0.0F, 0.0F, 0.0F};
    m_up = kUnrotatedUp;
    m_maxAcceleration = 0.1F;
    m_targetVPct = 0.0F;
    m_maxRotation = 0.1F;

    // The setting decides the diameter only: a ship of any size passes the same gaps.
    m_radius = 0.1F;
}

void Camera::SetRotationRate(TQ3Vector3D const& axis, float fraction)
{
    Body::SetRotationRate(axis, 2.0F * (fraction * m_maxRotation) * kPi);
}

void Camera::TurnToFace(float x, float y, float z)
{
    Body::TurnToFace(x, y, z);
    RebuildUp();
}

void Camera::GetFacingNormal(TQ3Vector3D* normal) const
{
    Vector3D_Subtract(&GetLookAt(), &GetPosition(), normal);
    Vector3D_Normalize(normal, normal);
}

void Camera::LookAt() const
{
    TQ3Vector3D const& eye = GetPosition();
    TQ3Vector3D const& centre = GetLookAt();
    glLoadIdentity();
    gluLookAt(eye.x, eye.y, eye.z, centre.x, centre.y, centre.z, m_up.x, m_up.y, m_up.z);
}

bool Camera::Tick(double dt)
{
    // The speed does not snap to the wanted one: it goes up and down around it by one frame's acceleration.
    float const target = m_targetVPct * GetMaxVelocity();
    float accel = 0.0F;
    if (target > GetSpeed())
    {
        accel = m_maxAcceleration;
    }
    else if (GetSpeed() > target)
    {
        accel = -m_maxAcceleration;
    }
    SetAccel(accel);

    bool const collided = Body::Tick(dt);
    if (collided)
    {
        m_targetVPct = 0.0F;
    }
    RebuildUp();
    return collided;
}

void Camera::RebuildUp()
{
    Q3Vector3D_TransformQuaternion(&kUnrotatedUp, &GetRotation(), &m_up);
}
