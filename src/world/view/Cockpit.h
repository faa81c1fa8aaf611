// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The cockpit: throttle, elevation bar and compass as small geometry just in front of the eye, and three
// lines of text, the race clock, the waypoint counter and the distance to the marker.
#pragma once

#include "math/qmath.h"
#include "ui/Overlay.h"

class Camera;

class Cockpit
{
public:
    // Reads the settings.
    Cockpit();

    void ShowTime(int seconds) { m_clock.SetStringTimer(seconds); }
    void ShowWaypoint(int number, int count);
    void ShowDistance(int units) { m_distance.SetString(units); }

    // marker: where it stands. Sizes in pixels; an OpenGL context is current.
    void Render(Camera const& ship, TQ3Vector3D const& marker, int width, int height);

    Overlay const& GetClock() const { return m_clock; }
    Overlay const& GetCounter() const { return m_counter; }
    Overlay const& GetDistance() const { return m_distance; }

private:
    void RenderTexts(int width, int height);

    float m_arrowX; // read from the settings, but unused: the layout is fixed
    float m_arrowY;
    Overlay m_clock;
    Overlay m_counter;
    Overlay m_distance;
};
