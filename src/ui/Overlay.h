// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// One line of text drawn flat over the scene: a menu's item or caption, or a read-out of the world.
#pragma once

#include "gfx/StringTexture.h"

class Overlay
{
public:
    // x, y: the top left corner in window pixels, y downwards. fontSize: pixels.
    Overlay(int x, int y, int fontSize, char const* fontName);

    void MoveTo(int x, int y);

    void SetString(char const* text); // UTF-8
    void SetString(float value);      // six decimals
    void SetString(int value);
    void SetStringTimer(int seconds); // minutes and two-digit seconds

    // Components 0..1.
    void SetBorderColor(float r, float g, float b, float a);
    void SetTextColor(float r, float g, float b, float a);
    void SetBgColor(float r, float g, float b, float a);

    // Draws into a window of that size in pixels. Leaves lighting on, blending and rectangle textures off,
    // and its own blend function, colour and texture; depth test and matrices are as they were.
    void Render(int width, int height);

    // Position, and size of the texture last drawn, in whole pixels.
    void GetDimensions(int* x, int* y, int* width, int* height) const;

    StringTexture const& GetTexture() const { return m_texture; }

private:
    StringTexture m_texture;
    StringTexture::Attributes m_attributes;
    int m_x;
    int m_y;
};
