// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// What every moving or placed thing of the race world shares: place, facing, speed along the facing, and
// spin. World units: 1 is the spacing of the asteroid lattice; speeds in units per second, angles in radians.
#pragma once

#include "math/qmath.h"

class Universe;

class Body
{
public:
    // universe: where Tick looks for asteroids; the last body made sets it for all.
    explicit Body(Universe const* universe);
    Body(Universe const* universe, TQ3Vector3D const& position);

    void SetDefaults();

    void SetSize(float r); // radius; the diameter follows

    // Moves the centre only. The facing point stays where it was: for bodies whose facing does not matter.
    void SetPos(TQ3Vector3D const& position) { m_position = position; }
    void SetPos(float x, float y, float z) { m_position = {x, y, z}; }

    // Moves the centre and keeps the facing.
    void MoveTo(TQ3Vector3D const& position);
    void MoveTo(float x, float y, float z) { MoveTo({x, y, z}); }
    void Translate(TQ3Vector3D const& offset);

    void SetMinMaxVelocity(float min, float max);
    void SetAccel(float const& accel) { m_accel = accel; }
    void SetVelocity(float const& speed); // clamped; the minimum wins over the maximum

    void SetRotationRate(TQ3Vector3D const& axis, float rate); // radians per second about the axis as given
    void SetRotation(float angle);                             // turns by that angle about the spin axis

    // Faces a point. Replaces the rotation, so it is right only for a body that has not turned yet: the new
    // ship.
    void TurnToFace(float x, float y, float z);

    bool SphereIntersects(TQ3Vector3D const& centre, float r) const; // touching counts

    // One frame of dt seconds. True when the step was refused because an asteroid lies in the way; the body
    // then stays where it is at minimum speed.
    bool Tick(double dt);

    float GetRadius() const { return m_radius; }
    float GetDiameter() const { return m_diameter; }
    TQ3Vector3D const& GetPosition() const { return m_position; }
    TQ3Vector3D const& GetVelocity() const { return m_velocity; }
    float GetSpeed() const { return m_speed; }
    float GetAccel() const { return m_accel; }
    float GetMinVelocity() const { return m_minVelocity; }
    float GetMaxVelocity() const { return m_maxVelocity; }
    TQ3Vector3D const& GetLookAt() const { return m_lookAt; } // one unit ahead of the position
    TQ3Quaternion const& GetRotation() const { return m_rotation; }
    TQ3Vector3D const& GetRotationAxis() const { return m_rotationAxis; }
    float GetRotationRate() const { return m_rotationRate; }

    static Universe const* m_puniverse;

protected:
    float m_radius = 0.1F;

private:
    TQ3Vector3D Facing() const; // of the rotation
    void StopAtImpact();

    float m_diameter = 0.2F;
    TQ3Vector3D m_position;
    TQ3Vector3D m_velocity;
    float m_speed = 0.0F;
    float m_accel = 0.0F;
    float m_minVelocity = 0.0F;
    float m_maxVelocity = 1.0F;

protected:
    TQ3Vector3D m_lookAt;

private:
    TQ3Quaternion m_rotation;
    TQ3Vector3D m_rotationAxis;
    float m_rotationRate = 0.0F;
};
