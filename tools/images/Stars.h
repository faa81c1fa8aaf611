// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Sets stars into a tile of sky.
#pragma once

#include "images/Nebula.h"
#include "images/Picture.h"

namespace maker
{

// Adds stars to a square picture in linear light. They stand thicker in the nebula's band and dimmer behind
// its dust.
void AddStars(Picture& sky, Nebula const& nebula);

} // namespace maker
