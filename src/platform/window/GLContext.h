// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The current OpenGL context, and how a texture is deleted in the context that owns it.
// Tests replace this source file together with OpenGL itself.
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
