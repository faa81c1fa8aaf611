// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Points, sizes and rectangles in pixels, and colours.
#pragma once

namespace platform
{

struct Point
{
    float x = 0.0F;
    float y = 0.0F;

    bool operator==(Point const&) const = default;
};

struct Size
{
    float width = 0.0F;
    float height = 0.0F;
};

struct Rect
{
    Point origin;
    Size size;
};

// Straight (not premultiplied) components, each in 0..1.
struct Color
{
    float red = 0.0F;
    float green = 0.0F;
    float blue = 0.0F;
    float alpha = 0.0F;

    bool operator==(Color const&) const = default;
};

} // namespace platform
