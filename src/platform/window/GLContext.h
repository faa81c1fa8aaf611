// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The current OpenGL context, how dense the display is that it draws on, and how a texture is deleted in the
// context that owns it.
// Tests replace this source file together with OpenGL itself.
#pragma once

namespace platform
{

// An opaque handle; comparable, null when no context is current on this thread.
using GLContextRef = void*;

GLContextRef CurrentGLContext();

// Display pixels for each of the game's, in both directions, in the window that the current context draws
// into; 1 without one. It may change between two frames.
int DisplayScale();

// Deletes a texture in the context that owns it, whichever is current; the current context stays as it was.
// Does nothing when that context no longer exists.
void DeleteTextureInContext(GLContextRef context, unsigned texture);

} // namespace platform
