// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A texture made from a picture, with or without mipmaps, drawn as a quad that faces the screen.
#pragma once

class QTImage;

class Sprite
{
public:
    // Texture modes: 0 and kNearest: nearest filtering; kLinear; kMipMapped and above.
    static constexpr int kNearest = 1;
    static constexpr int kLinear = 2;
    static constexpr int kMipMapped = 3;

    // image: with a decoded picture. False when OpenGL gives no texture name.
    bool CreateTextureFromImage(QTImage const& image, int mipMapping);

    // Binds the texture and sets how it is minified.
    void set() const;

    // The quad with its corner at (x, y), as large as the picture itself; the bound texture covers it.
    void render(float x, float y) const;

    // False when there is none.
    bool deleteTexture();

    unsigned GetTexture() const { return m_texture; }
    float GetWidth() const { return m_width; }
    float GetHeight() const { return m_height; }

private:
    int m_mipMapping = 0;
    float m_width = 0.0F;
    float m_height = 0.0F;
    unsigned m_texture = 0;
};
