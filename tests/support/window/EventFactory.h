// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Input events as the window would deliver them, for tests that play the user.
#pragma once

#include "core/GameEvent.h"
#include "platform/input/Event.h"

#include <string>

namespace events
{

platform::Event KeyDown(std::u16string const& characters);
platform::Event KeyUp(std::u16string const& characters);

// Positions in pixels from the bottom left.
platform::Event MouseMoved(float x, float y);
platform::Event MouseDragged(platform::EventType type, float x, float y, int dx, int dy);
platform::Event LeftUp(float x, float y);
platform::Event RightUp(float x, float y);

// Notches.
platform::Event Wheel(float dx, float dy, float dz = 0.0F);

// The event as game and menus see it.
GameEvent Wrapped(platform::Event const& event);

} // namespace events
