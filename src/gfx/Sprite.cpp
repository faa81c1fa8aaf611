// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "gfx/Sprite.h"

#include "gfx/QTImage.h"
#include "platform/base/OpenGL.h"

namespace
{

void SetFilters(GLint magnify, GLint minify)
{
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, magnify);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, minify);
}

float Halved(float side)
{
    return side > 1.0F ? side / 2.0F : side;
}

// Uploads the levels below the first, each half the one above, down to 1 x 1. The number of the last one
// uploaded.
int UploadSmallerLevels(QTImage const& image)
{
    platform::Size size{image.GetWidth(), image.GetHeight()};
    int level = 0;
    while (size.width > 1.0F || size.height > 1.0F)
    {
        size = {Halved(size.width), Halved(size.height)};
        auto const smaller = GBuffer::Create(size, image.GetBitDepth());
        if (!smaller)
        {
            break;
        }
        image.copyTo(*smaller);
        ++level;
        smaller->UploadTextureLevel(level, GL_RGBA8);
    }
    return level;
}

void UploadLevels(QTImage const& image, int mipMapping)
{
    image.UploadTextureLevel(0, GL_RGBA8);
    if (mipMapping < Sprite::kMipMapped)
    {
        GLint const filter = mipMapping <= Sprite::kNearest ? GL_NEAREST : GL_LINEAR;
        SetFilters(filter, filter);
        return;
    }
    int const lastLevel = UploadSmallerLevels(image);
    SetFilters(GL_LINEAR, GL_LINEAR_MIPMAP_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_BASE_LEVEL, 0);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAX_LEVEL, lastLevel);
}

} // namespace

bool Sprite::CreateTextureFromImage(QTImage const& image, int mipMapping)
{
    if (m_texture == 0)
    {
        glGenTextures(1, &m_texture);
    }
    if (m_texture == 0)
    {
        return false;
    }
    glBindTexture(GL_TEXTURE_2D, m_texture);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP);
    UploadLevels(image, mipMapping);
    glBindTexture(GL_TEXTURE_2D, 0);

    m_width = image.GetImageWidth();
    m_height = image.GetImageHeight();
    m_mipMapping = mipMapping;
    return true;
}

void Sprite::set() const
{
    if (m_texture == 0)
    {
        return;
    }
    glBindTexture(GL_TEXTURE_2D, m_texture);
    switch (m_mipMapping)
    {
    case kNearest:
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
        break;
    case kLinear:
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
        break;
    case kMipMapped:
        // Reads the nearest level, where the filter set at creation blends two.
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_NEAREST);
        break;
    default:
        break;
    }
}

void Sprite::render(float x, float y) const
{
    auto const left = static_cast<GLint>(x);
    auto const top = static_cast<GLint>(y);
    auto const right = static_cast<GLint>(x + m_width);
    auto const bottom = static_cast<GLint>(y + m_height);
    glBegin(GL_QUADS);
    glTexCoord2i(0, 1);
    glVertex2i(left, top);
    glTexCoord2i(0, 0);
    glVertex2i(left, bottom);
    glTexCoord2i(1, 0);
    glVertex2i(right, bottom);
    glTexCoord2i(1, 1);
    glVertex2i(right, top);
    glEnd();
}

bool Sprite::deleteTexture()
{
    if (m_texture == 0)
    {
        return false;
    }
    glDeleteTextures(1, &m_texture);
    m_texture = 0;
    return true;
}
