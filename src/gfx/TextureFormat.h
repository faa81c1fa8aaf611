// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// How a pixel buffer goes to OpenGL.
#pragma once

#include "gfx/GBuffer.h"
#include "platform/base/OpenGL.h"

// Uploads the buffer as one level of the bound GL_TEXTURE_2D. formatFor32Bit: the internal format of a 32-bit
// buffer; any other depth is kept as GL_RGB5_A1.
void UploadTextureLevel(GBuffer const& buffer, int level, GLint formatFor32Bit);
