// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Draws the contact sheets of the resources: draw-sheets RESOURCES FOLDER.
#include "images/Picture.h"
#include "sheets/SoundSheet.h"
#include "sheets/Views.h"

#include <array>
#include <cstdio>

namespace
{

using namespace maker;

constexpr int kQuality = 92;

void Paste(Picture& sheet, Picture const& picture, int left, int top)
{
    for (int y = 0; y < picture.Height(); ++y)
    {
        for (int x = 0; x < picture.Width(); ++x)
        {
            sheet.At(left + x, top + y) = picture.At(x, y);
        }
    }
}

Picture Stretched(Picture const& picture, double tiles, int size)
{
    Picture result(size, size);
    for (int y = 0; y < size; ++y)
    {
        for (int x = 0; x < size; ++x)
        {
            result.At(x, y) = picture.Sample(tiles * (x + 0.5) / size, tiles * (y + 0.5) / size);
        }
    }
    return result;
}

// Both textures, and each laid two by two.
Picture DrawTextures(Picture const& rock, Picture const& sky)
{
    Picture sheet(1280, 1280);
    Paste(sheet, Stretched(rock, 1.0, 640), 0, 0);
    Paste(sheet, Stretched(rock, 2.0, 640), 640, 0);
    Paste(sheet, Stretched(sky, 1.0, 640), 0, 640);
    Paste(sheet, Stretched(sky, 2.0, 640), 640, 640);
    return sheet;
}

// The three levels of detail side by side; from above: lit, from within the field, on a pole, close by, in
// the haze.
Picture DrawAsteroids(Picture const& rock, Picture const& sky)
{
    constexpr int kSize = 400;
    constexpr std::array<int, 3> kSlices = {7, 5, 4};
    std::array<View, 5> const views = {{
        {{0.9, 0.5, -1.5}, {-0.9, -0.5, 1.5}, 45.0},
        {{-1.1, -1.1, -1.1}, {1.1, 1.1, 1.1}, 45.0},
        {{0.2, 0.2, -1.9}, {-0.2, -0.2, 1.9}, 45.0},
        {{0.30, 0.42, -0.52}, {-0.30, -0.36, 0.40}, 45.0},
        {{12.0, 6.0, -18.0}, {-12.0, -6.0, 18.0}, 5.0},
    }};
    Picture sheet(kSize * 3, kSize * static_cast<int>(views.size()));
    for (std::size_t row = 0; row < views.size(); ++row)
    {
        for (std::size_t column = 0; column < kSlices.size(); ++column)
        {
            Paste(sheet, RenderAsteroid(rock, sky, views[row], kSlices[column], kSize),
                  kSize * static_cast<int>(column), kSize * static_cast<int>(row));
        }
    }
    return sheet;
}

// The whole sky, and under it the views ahead, to the right, back, to the left, up and down.
Picture DrawSky(Picture const& sky)
{
    constexpr int kWidth = 480;
    constexpr int kHeight = 270;
    constexpr std::array<Vector, 6> kDirections = {
        {{0, 0, -1}, {1, 0, 0}, {0, 0, 1}, {-1, 0, 0}, {0, 1, 0}, {0, -1, 0}}};
    Picture sheet(3 * kWidth, 3 * kWidth / 2 + 2 * kHeight);
    Paste(sheet, RenderPanorama(sky, 3 * kWidth), 0, 0);
    for (int i = 0; i < 6; ++i)
    {
        View const view = {{}, kDirections[static_cast<std::size_t>(i)], 45.0};
        Paste(sheet, RenderSky(sky, view, kWidth, kHeight), i % 3 * kWidth, 3 * kWidth / 2 + i / 3 * kHeight);
    }
    return sheet;
}

bool DrawAll(std::string const& resources, std::string const& target)
{
    Picture rock(1, 1);
    Picture sky(1, 1);
    if (!ReadJpeg(resources + "/Images/roid-128.jpg", rock) ||
        !ReadJpeg(resources + "/Images/starfield-1024.jpg", sky))
    {
        return false;
    }
    return WriteJpeg(DrawTextures(rock, sky), target + "/textures.jpg", kQuality) &&
           WriteJpeg(DrawAsteroids(rock, sky), target + "/asteroids.jpg", kQuality) &&
           WriteJpeg(DrawSky(sky), target + "/sky.jpg", kQuality) &&
           DrawSoundSheet(resources + "/Sounds",
                          {"Fanfare.AIFF", "Starter.AIFF", "Controls.AIFF", "HiScore.AIFF", "Wham.AIFF",
                           "Graze.AIFF", "Attention.AIFF", "Rollover.AIFF", "Click.AIFF"},
                          target + "/sounds.png");
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3)
    {
        std::fputs("usage: draw-sheets RESOURCES FOLDER\n", stderr);
        return 2;
    }
    if (!DrawAll(argv[1], argv[2]))
    {
        std::fprintf(stderr, "draw-sheets: can't read the resources in %s or write to %s\n", argv[1],
                     argv[2]);
        return 1;
    }
    return 0;
}
