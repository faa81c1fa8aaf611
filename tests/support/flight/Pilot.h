// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A pilot that flies whole races, with what a player has: the pointer in the view, and the throttle keys.
//
// It flies on lines parallel to an axis whose other two coordinates are half an odd number. Such a line
// passes every lattice point at 0.707 units or more, and ship and largest asteroid touch at 0.7: it meets
// none, whatever the field holds. Every marker stands at the crossing of three. The ship stops at the end of
// each line and turns on the spot.
#pragma once

#include "math/qmath.h"

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

private:
    TQ3Vector3D Direction() const;
    float Remaining() const;
    TQ3Vector3D AimFromCockpit() const;
    float SafeSpeed(float headingError) const;
    int ThrottlePress(float safeSpeed) const;

    Camera const& m_ship;
    std::vector<TQ3Vector3D> m_places; // where the course turns
    std::size_t m_next = 1;            // the ship flies from the place before that one to it
    int m_viewWidth;
    int m_viewHeight;
    float m_turnRate; // radians per second, a little below the ship's at full deflection
    float m_braking;  // units per second squared, a little below the ship's
};
