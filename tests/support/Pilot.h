// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A pilot that flies whole races. It knows the world's geometry as a perfect chart, but its hands reach only
// what a player's do: the pointer in the view, and the throttle keys. Simulated races and races in a real
// window ask it for its next move in every frame.
#pragma once

#include "math/qmath.h"
#include "support/FieldMap.h"
#include "support/FlightPlan.h"

#include <cstddef>
#include <vector>

class Camera;
class Universe;

// A frame's moves.
struct PilotInput
{
    int mouseX; // pointer in the view, in pixels from the bottom left
    int mouseY;
    int throttle; // one press of the key: 1 up, -1 down, 0 none
};

class Pilot
{
public:
    // A view of that size in pixels. The control settings are the defaults. The world outlives the pilot.
    Pilot(Universe const& universe, int viewWidth, int viewHeight);

    // What to do in this frame. A few frames more or less between two calls do not matter.
    PilotInput NextInput();

    // How often the pilot had to make a new plan, after an impact or when led astray.
    int GetReplanCount() const { return m_replans; }

private:
    struct Course;

    void Plan();
    bool IsAstray() const;
    void AdvanceLeg();
    Course CurrentCourse() const;
    TQ3Vector3D PointAhead(float distance) const;
    TQ3Vector3D FromCockpit(TQ3Vector3D const& place) const;
    float TurnAhead(std::size_t leg) const;
    float LookAhead() const;
    float Room(std::size_t leg) const;
    float TurnSpeed(std::size_t leg) const;
    float SafeSpeed(float headingError) const;
    int ThrottlePress(float safeSpeed) const;
    int Pointer(float turn, int viewSize) const;

    Universe const& m_universe;
    Camera const& m_camera;
    FieldMap m_map;
    int m_viewWidth;
    int m_viewHeight;
    std::vector<Leg> m_legs;
    std::size_t m_leg = 0;
    std::size_t m_firstWaypoint = 0; // of the plan
    bool m_thrusting = false;        // as of the last frame: an impact cuts the throttle
    int m_replans = 0;
};
