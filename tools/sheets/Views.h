// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Views of the textures as the game shows them, drawn by tracing rays: an asteroid as a sphere of few slices
// under the game's light, and the sky from inside its box.
#pragma once

#include "images/Picture.h"

namespace maker
{

struct View
{
    Vector eye; // from the centre of the asteroid or of the box, in world units
    Vector forward;
    double fieldOfView = 45.0; // vertical, in degrees
};

// An asteroid of radius 0.6 round the origin over the sky, in a square of pixels.
Picture RenderAsteroid(Picture const& rock, Picture const& sky, View const& view, int slices, int size);

// The sky in a direction.
Picture RenderSky(Picture const& sky, View const& view, int width, int height);

// The whole sky, a turn across and half a turn down.
Picture RenderPanorama(Picture const& sky, int width);

} // namespace maker
