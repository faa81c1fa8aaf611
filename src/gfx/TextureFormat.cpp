// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "gfx/TextureFormat.h"

void UploadTextureLevel(GBuffer const& buffer, int level, GLint formatFor32Bit)
{
    bool const is32Bit = buffer.GetBitDepth() == 32;
    glTexImage2D(GL_TEXTURE_2D, level, is32Bit ? formatFor32Bit : GL_RGB5_A1,
                 static_cast<GLsizei>(buffer.GetWidth()), static_cast<GLsizei>(buffer.GetHeight()), 0,
                 GL_BGRA, is32Bit ? GL_UNSIGNED_INT_8_8_8_8_REV : GL_UNSIGNED_SHORT_1_5_5_5_REV,
                 buffer.GetPixels());
}
