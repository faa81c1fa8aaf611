// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The game's icon as a list of shapes in a square of 512 units, y downwards: a ship on its way past a rock to
// a marker.
#pragma once

#include <limits>
#include <vector>

namespace maker
{

inline constexpr double kIconUnits = 512.0;

// Radius of the tile's corners; everything is clipped to the tile.
inline constexpr double kIconCorner = 108.0;

struct Point
{
    double x;
    double y;
};

struct Colour
{
    int rgb; // 0xRRGGBB
    double alpha = 1.0;
};

// A fill that runs from one colour to another: along a line, or from a centre to a radius (then to.x is the
// radius).
struct Paint
{
    bool radial;
    Point from;
    Point to;
    Colour start;
    Colour end;
};

// A circle, or a polygon where there are points.
struct Shape
{
    std::vector<Point> points;
    Point centre;
    double radius;
    Paint paint;
    // The icon sizes in pixels that show it: fine detail is left out of small icons, bolder forms stand in
    // for it.
    int smallest = 0;
    int largest = std::numeric_limits<int>::max();
};

// From the back to the front.
std::vector<Shape> IconShapes();

} // namespace maker
