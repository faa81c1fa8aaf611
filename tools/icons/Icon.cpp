// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The shapes.
#include "icons/Icon.h"

#include "common/Maths.h"
#include "common/Random.h"

#include <array>

namespace maker
{

namespace
{

constexpr int kSmall = 32; // icons up to here are simplified
constexpr Point kRock = {172.0, 372.0};
constexpr Point kMarker = {350.0, 158.0};

Paint Along(Point from, Point to, Colour start, Colour end)
{
    return {false, from, to, start, end};
}

Paint Around(Point centre, double radius, Colour start, Colour end)
{
    return {true, centre, {radius, 0.0}, start, end};
}

Shape Disc(Point centre, double radius, Paint const& paint, int smallest = 0)
{
    return {{}, centre, radius, paint, smallest};
}

Shape Polygon(std::vector<Point> points, Paint const& paint)
{
    return {std::move(points), {}, 0.0, paint};
}

Shape Backdrop()
{
    return Polygon({{0.0, 0.0}, {512.0, 0.0}, {512.0, 512.0}, {0.0, 512.0}},
                   Along({90.0, 512.0}, {430.0, 0.0}, {0x070A1A}, {0x223A78}));
}

void AddStars(std::vector<Shape>& shapes)
{
    constexpr std::array<std::array<double, 3>, 9> kStars = {{{84.0, 92.0, 5.0},
                                                              {168.0, 54.0, 3.5},
                                                              {60.0, 196.0, 3.5},
                                                              {222.0, 128.0, 3.0},
                                                              {458.0, 300.0, 4.0},
                                                              {420.0, 452.0, 5.0},
                                                              {376.0, 378.0, 3.0},
                                                              {470.0, 70.0, 3.5},
                                                              {136.0, 142.0, 2.8}}};
    for (auto const& [x, y, radius] : kStars)
    {
        shapes.push_back(Disc({x, y}, radius, Around({x, y}, radius, {0xFFFFFF}, {0x9CC4FF, 0.0}), 48));
    }
}

std::vector<Point> RockOutline(double size)
{
    Random random(12);
    std::vector<Point> points;
    constexpr int kCorners = 15;
    for (int i = 0; i < kCorners; ++i)
    {
        double const radius = size * (1.0 + 0.075 * random.Noise());
        double const turn = static_cast<double>(i) / kCorners;
        points.push_back({kRock.x + radius * Cosine(turn), kRock.y + radius * Sine(turn)});
    }
    return points;
}

void AddRock(std::vector<Shape>& shapes)
{
    Point const lit = {kRock.x + 88.0, kRock.y - 104.0};
    shapes.push_back(Polygon(RockOutline(196.0), Around(lit, 300.0, {0xE3D6C4}, {0x2A2630})));
    constexpr std::array<std::array<double, 3>, 6> kCraters = {{{150.0, 330.0, 52.0},
                                                                {262.0, 352.0, 34.0},
                                                                {196.0, 236.0, 26.0},
                                                                {220.0, 444.0, 40.0},
                                                                {72.0, 398.0, 34.0},
                                                                {268.0, 424.0, 15.0}}};
    for (auto const& [x, y, radius] : kCraters)
    {
        int const smallest = radius > 45.0 ? 22 : 48;
        shapes.push_back(
            Disc({x - 0.10 * radius, y + 0.12 * radius}, 1.12 * radius,
                 Along({x + radius, y - radius}, {x - radius, y + radius}, {0xFFF4E0, 0.0}, {0xFFF1DA, 0.75}),
                 smallest));
        shapes.push_back(Disc(
            {x, y}, radius, Along({x + radius, y - radius}, {x - radius, y + radius}, {0x2A2732}, {0x857B74}),
            smallest));
    }
}

// A star of long and short spikes, the marker of the course seen from afar.
Shape Spikes(double reach, double between, double waist, Colour tip)
{
    std::vector<Point> points;
    for (int i = 0; i < 16; ++i)
    {
        double const radius = i % 2 == 1 ? waist : (i % 4 == 0 ? reach : between);
        points.push_back({kMarker.x + radius * Cosine(i / 16.0), kMarker.y + radius * Sine(i / 16.0)});
    }
    return Polygon(std::move(points), Around(kMarker, reach, {0xFFFFFF}, tip));
}

void AddMarker(std::vector<Shape>& shapes)
{
    shapes.push_back(Disc(kMarker, 190.0, Around(kMarker, 190.0, {0x4FC3FF, 0.75}, {0x2A6CFF, 0.0})));
    shapes.push_back(Spikes(138.0, 74.0, 34.0, {0x49C9FF}));
    shapes.back().smallest = kSmall + 1;
    shapes.push_back(Spikes(160.0, 78.0, 52.0, {0x7ADBFF}));
    shapes.back().largest = kSmall;
    shapes.push_back(Polygon(
        {{350.0, 130.0}, {375.0, 144.0}, {375.0, 172.0}, {350.0, 186.0}, {325.0, 172.0}, {325.0, 144.0}},
        Along({325.0, 130.0}, {375.0, 186.0}, {0xFFFFFF}, {0xFFB347})));
    shapes.back().smallest = kSmall + 1;
}

// The ship heads for the marker; its two halves catch the light differently.
void AddShip(std::vector<Shape>& shapes)
{
    shapes.push_back(Polygon({{402.0, 374.0}, {454.0, 369.0}, {512.0, 560.0}, {430.0, 560.0}},
                             Along({425.0, 380.0}, {475.0, 540.0}, {0xFFC066, 0.95}, {0xFF5A2A, 0.0})));
    shapes.push_back(Polygon({{392.0, 262.0}, {372.0, 392.0}, {424.0, 372.0}},
                             Along({392.0, 262.0}, {398.0, 392.0}, {0xFFFFFF}, {0xC4D2EA})));
    shapes.push_back(Polygon({{392.0, 262.0}, {424.0, 372.0}, {482.0, 370.0}},
                             Along({392.0, 262.0}, {450.0, 380.0}, {0xAEBFDC}, {0x5C6E96})));
}

} // namespace

std::vector<Shape> IconShapes()
{
    std::vector<Shape> shapes = {Backdrop()};
    AddStars(shapes);
    AddRock(shapes);
    AddMarker(shapes);
    AddShip(shapes);
    return shapes;
}

} // namespace maker
