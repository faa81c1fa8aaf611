// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The player's ship and the viewpoint of the scene at once: a body that accelerates or brakes to
// the throttle's speed and turns as asked.
#pragma once

#include "world/Body.h"

class Camera : public Body
{
public:
    explicit Camera(Universe* universe);
    virtual ~Camera() = default;
    Camera(Camera const&) = delete;
    Camera& operator=(Camera const&) = delete;

    void SetDefaults();

    void SetMaxAcceleration(float acceleration) { m_maxAcceleration = acceleration; } // units/s^2
    void SetMaxRotation(float rotations) { m_maxRotation = rotations; } // per second, at full deflection
    float GetMaxAcceleration() const { return m_maxAcceleration; }
    float GetMaxRotation() const { return m_maxRotation; }

    // Throttle: the wanted speed as a fraction of the greatest. Not clamped.
    void SetTargetVPct(float pct) { m_targetVPct = pct; }
    float GetTargetVPct() const { return m_targetVPct; }

    // fraction: share of the greatest turn rate.
    void SetRotationRate(TQ3Vector3D const& axis, float fraction);

    void TurnToFace(float x, float y, float z);

    void GetFacingNormal(TQ3Vector3D* normal) const;
    TQ3Vector3D const& GetUp() const { return m_up; }

    // Replaces the current matrix by the view transform. The model-view matrix is current.
    void LookAt() const;

    // One frame of dt seconds. True, and the throttle cut to 0, when the ship was stopped by an asteroid.
    bool Tick(double dt);

private:
    void RebuildUp();

    float m_maxAcceleration = 0.1F;
    float m_targetVPct = 0.0F;
    float m_maxRotation = 0.1F;
    TQ3Vector3D m_up;
};
