// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "world/Universe.h"

#include "core/Game.h"
#include "core/Globals.h"
#include "math/util.h"
#include "settings/GameSettings.h"
#include "world/field/PathSearch.h"

#include <cassert>
#include <cmath>

Universe::Universe(unsigned long skyTexture)
    : m_camera(this),
      m_isMouseInverted(GameSettings::GetIntParam(setting::kMouseInvert) != 0),
      m_searchMargin(GameSettings::GetFloatParam(setting::kAsteroidsMaxR) - m_camera.GetRadius()),
      m_field(this),
      m_scene(skyTexture),
      m_waypoint(this),
      m_whamSound("Wham.AIFF"),
      m_grazeSound("Graze.AIFF"),
      m_attentionSound("Attention.AIFF")
{
    PlaceShip();
    m_waypoint.SetPos(m_course.GetMarker());
    ShowWaypoint();
}

void Universe::PlaceShip()
{
    m_camera.MoveTo(-10.0F, -10.0F, -10.0F);
    m_camera.TurnToFace(0.0F, 0.0F, 0.0F);
    m_camera.SetMinMaxVelocity(GameSettings::GetFloatParam(setting::kPlayerMinSpeed),
                               GameSettings::GetFloatParam(setting::kPlayerMaxSpeed));
    m_camera.SetMaxAcceleration(GameSettings::GetFloatParam(setting::kPlayerMaxAccel));
    m_camera.SetMaxRotation(GameSettings::GetFloatParam(setting::kPlayerRotationsPerSecond));
}

void Universe::Tick(double dt)
{
    int const previousSeconds = static_cast<int>(m_clock.GetRaceTime());
    float const previousDistSquared = SquaredDistanceToMarker();
    if (m_clock.IsPaused())
    {
        m_clock.AddPausedTime(dt);
    }
    else
    {
        AdvanceRace(dt);
    }
    m_fps = static_cast<float>(1.0 / dt);
    ShowProgress(previousSeconds, previousDistSquared);
}

void Universe::AdvanceRace(double dt)
{
    m_camera.Tick(dt);
    m_waypoint.Tick(dt);
    if (m_waypoint.SphereIntersects(m_camera.GetPosition(), m_camera.GetRadius()))
    {
        ReachWaypoint();
    }
    m_clock.AddRaceTime(dt);
}

void Universe::ReachWaypoint()
{
    bool const isRaceOver = !m_course.Advance();
    m_waypoint.SetPos(m_course.GetMarker());
    if (isRaceOver)
    {
        Game::pGame->SwitchToState(kStateRaceOver);
        return;
    }
    m_attentionSound.Play();
    ShowWaypoint();
}

void Universe::ActivateWaypoint(int n)
{
    assert(n >= 0 && n < kWaypointCount);
    if (n >= 1)
    {
        m_attentionSound.Play();
    }
    m_course.GoTo(n);
    m_waypoint.SetPos(m_course.GetMarker());
    ShowWaypoint();
}

void Universe::ShowWaypoint()
{
    m_cockpit.ShowWaypoint(m_course.GetCurrent() + 1, kWaypointCount);
}

void Universe::ShowProgress(int previousSeconds, float previousDistSquared)
{
    if (int const seconds = static_cast<int>(m_clock.GetRaceTime()); seconds != previousSeconds)
    {
        m_cockpit.ShowTime(seconds);
    }

    // The distance is compared with the last one's square: the text is set in almost every frame, and stays
    // only where both are the same whole number.
    int const distance = FloorToInt(std::sqrt(SquaredDistanceToMarker()));
    if (distance != FloorToInt(previousDistSquared)) // far out the square exceeds an int
    {
        m_cockpit.ShowDistance(distance);
    }
}

float Universe::SquaredDistanceToMarker() const
{
    return DistSquared(m_waypoint.GetPosition(), m_camera.GetPosition());
}

void Universe::PlayerWantsToTurn(float dx, float dy)
{
    TQ3Vector3D wish{dx, m_isMouseInverted ? -dy : dy, 0.0F};
    float const magnitude = std::sqrt(Vector3D_GetLengthSquared(&wish));
    if (FltIsCloseTo(magnitude, 0.0F))
    {
        m_camera.SetRotationRate({}, 0.0F);
        return;
    }
    Vector3D_Normalize(&wish, &wish);
    Q3Vector3D_TransformQuaternion(&wish, &m_camera.GetRotation(), &wish);
    TQ3Vector3D facing;
    Vector3D_Subtract(&m_camera.GetLookAt(), &m_camera.GetPosition(), &facing);
    TQ3Vector3D axis;
    Vector3D_Cross(&facing, &wish, &axis);
    m_camera.SetRotationRate(axis, magnitude);
}

bool Universe::WillPathCollide(TQ3Vector3D const& start, TQ3Vector3D const& end, float radius,
                               TQ3Vector3D* hitPoint, float* hitFraction) const
{
    PathHit const hit = NearestHit(m_field, {start, end, radius, m_searchMargin});
    if (!(hit.squaredDistance < DistSquared(end, start))) // infinite where there is none
    {
        return false;
    }
    *hitPoint = hit.point;
    *hitFraction = 0.0F;
    return true;
}

void Universe::Render(int width, int height)
{
    m_scene.Render(m_field, m_camera, m_waypoint, width, height);
    m_scene.RenderFrameRate(m_fps, width, height);
    if (!m_isCockpitHidden)
    {
        RenderCockpit(width, height);
    }
    glReportError();
}

void Universe::RenderCockpit(int width, int height)
{
    m_cockpit.Render(m_camera, m_waypoint.GetPosition(), width, height);
}
