// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A course marker: the spiked cube that the ship must touch next.
// It spins a quarter turn a second and never moves by itself.
#pragma once

#include "world/Body.h"

class Frustum;

class Waypoint : public Body
{
public:
    explicit Waypoint(Universe const* universe);
    Waypoint(Universe const* universe, TQ3Vector3D const& position);

    void SetDefaults();

    // Draws the marker unless its centre lies outside the view.
    void Render(Frustum const& frustum) const;
};
