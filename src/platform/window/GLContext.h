// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The current OpenGL context, for those who keep names of objects that live in it.
// Alone in its own source file, so that a recording OpenGL can stand in for both at once.
#pragma once

namespace platform
{

// An opaque handle; comparable, null when no context is current on this thread.
using GLContextRef = void*;

GLContextRef CurrentGLContext();

// Deletes a texture in the context that owns it, whichever is current; the current context stays as it was.
// Does nothing when that context no longer exists.
void DeleteTextureInContext(GLContextRef context, unsigned texture);

} // namespace platform
