// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The course, its marker, the race clock, and what the player's wishes do to the ship.
#include "world/Universe.h"

#include "audio/GameSound.h"
#include "core/Game.h"
#include "math/util.h"
#include "ui/Overlay.h"
#include "world/Camera.h"
#include "world/Waypoint.h"

#include <cassert>
#include <cmath>
#include <cstdio>

namespace
{

constexpr int kLastWaypoint = Universe::kWaypointCount - 1;
constexpr TQ3Vector3D kFirstWaypoint{-3.5F, -3.5F, -5.5F};      // just outside the field, near the start
constexpr TQ3Vector3D kDeepestWaypoint{108.5F, 108.5F, 108.5F}; // the last but one
constexpr TQ3Vector3D kFinish{14.5F, 14.5F, 14.5F};             // back out, near the edge
constexpr TQ3Vector3D kParkedMarker{100.5F, 100.5F, 100.5F};    // once the race is over
constexpr int kDepthStep = 18;                                  // units from one waypoint to the next

// A place at that depth, off the diagonal to one of three sides, at the centre of a lattice cube: the halves
// keep it clear of the asteroids.
TQ3Vector3D WaypointOffSide(int side, int depth)
{
    float const full = static_cast<float>(depth) + 0.5F;
    int const halfDepth = depth / 2;
    float const half = static_cast<float>(halfDepth) + 0.5F;
    switch (side)
    {
    case 0:
        return {full, full, half};
    case 1:
        return {half, full, full};
    default:
        return {full, half, full};
    }
}

} // namespace

void Universe::RandomizeWaypoints()
{
    m_waypoints.front() = kFirstWaypoint;
    m_waypoints[kLastWaypoint - 1] = kDeepestWaypoint;
    m_waypoints[kLastWaypoint] = kFinish;

    int side = RandRange(0, 2);
    for (int k = 1; k < kLastWaypoint - 1; ++k)
    {
        side = (side + RandRange(1, 2)) % 3; // never the same side twice running
        m_waypoints[static_cast<std::size_t>(k)] = WaypointOffSide(side, kDepthStep * k);
    }
}

void Universe::StartCourse()
{
    RandomizeWaypoints();
    m_currentWaypoint = 0;
    m_waypoint = std::make_unique<Waypoint>(this);
    m_waypoint->SetPos(m_waypoints[0]);
    ShowWaypointCount();
}

void Universe::ActivateWaypoint(int n)
{
    assert(n >= 0 && n <= kLastWaypoint);
    if (n >= 1)
    {
        m_attentionSound->Play();
    }
    if (m_currentWaypoint < kLastWaypoint)
    {
        MoveMarkerTo(n);
    }
    ShowWaypointCount();
}

void Universe::MoveMarkerTo(int n)
{
    m_currentWaypoint = n;
    m_waypoint->SetPos(m_waypoints[static_cast<std::size_t>(n)]);
}

void Universe::ShowWaypointCount()
{
    char text[32];
    std::snprintf(text, sizeof text, "%d/%d", m_currentWaypoint + 1, m_waypointCount);
    m_waypointOverlay->SetString(text);
}

void Universe::Tick(double dt)
{
    int const previousSeconds = static_cast<int>(m_raceTime);
    float const previousDistSquared = DistSquared(m_waypoint->GetPosition(), m_camera->GetPosition());

    if (m_paused)
    {
        m_pausedTime += dt;
    }
    else
    {
        AdvanceRace(dt);
    }

    m_fps = static_cast<float>(1.0 / dt);
    if (int const seconds = static_cast<int>(m_raceTime); seconds != previousSeconds)
    {
        m_timerOverlay->SetStringTimer(seconds);
    }

    // A distance is compared with a squared one, so the text is set in almost every frame. Deliberate.
    m_distanceToWaypoint =
        FloorToInt(std::sqrt(DistSquared(m_waypoint->GetPosition(), m_camera->GetPosition())));
    if (m_distanceToWaypoint != FloorToInt(previousDistSquared)) // far out the square exceeds an int
    {
        m_distanceOverlay->SetString(m_distanceToWaypoint);
    }
}

void Universe::AdvanceRace(double dt)
{
    m_camera->Tick(dt);
    m_waypoint->Tick(dt);
    if (m_waypoint->SphereIntersects(m_camera->GetPosition(), m_camera->GetRadius()))
    {
        ReachWaypoint();
    }
    m_raceTime += dt;
}

void Universe::ReachWaypoint()
{
    if (m_currentWaypoint < kLastWaypoint)
    {
        m_attentionSound->Play();
        MoveMarkerTo(m_currentWaypoint + 1);
        ShowWaypointCount();
        return;
    }
    m_waypoint->SetPos(kParkedMarker);
    Game::pGame->SwitchToState(kStateRaceOver);
}

void Universe::PlayerWantsToGo(float pct)
{
    m_camera->SetTargetVPct(pct);
}

void Universe::PlayerWantsToTurn(float dx, float dy)
{
    TQ3Vector3D wish{dx, m_mouseInvert ? -dy : dy, 0.0F};
    float magnitude = std::sqrt(Vector3D_GetLengthSquared(&wish));
    TQ3Vector3D axis;
    if (FltIsCloseTo(magnitude, 0.0F))
    {
        magnitude = 0.0F;
    }
    else
    {
        Vector3D_Normalize(&wish, &wish);
        Q3Vector3D_TransformQuaternion(&wish, &m_camera->GetRotation(), &wish);
        TQ3Vector3D facing;
        Vector3D_Subtract(&m_camera->GetLookAt(), &m_camera->GetPosition(), &facing);
        Vector3D_Cross(&facing, &wish, &axis);
    }
    m_camera->SetRotationRate(axis, magnitude);
}
