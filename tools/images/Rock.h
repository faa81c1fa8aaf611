// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The rock of the asteroids: its ground, and how bright and of what colour it looks under light from
// everywhere. The game does the lighting; here crests only catch more of the sky than hollows do.
#pragma once

#include "common/Vector.h"
#include "images/Craters.h"

namespace maker
{

class Rock
{
public:
    // Display colour (0 to 1) of the ground in a direction from the rock's centre (a unit vector).
    Vector Colour(Vector const& direction) const;

private:
    Ground GroundAt(Vector const& direction) const;
    double Height(Vector const& direction) const { return GroundAt(direction).height; }

    // How far the ground lies above the mean of a ring around it; the radius is in radians.
    double Relief(Vector const& direction, double height, double radius) const;

    Craters m_craters{2026};
};

} // namespace maker
