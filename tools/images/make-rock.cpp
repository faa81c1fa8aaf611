// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Writes the texture of the asteroids. tools/make-resources calls it with the file to write.
#include "common/Maths.h"
#include "images/Picture.h"
#include "images/Rock.h"

#include <cstdio>

namespace
{

using namespace maker;

constexpr int kSize = 128;
constexpr int kSamples = 3; // across and down each pixel
constexpr int kQuality = 96;

// The map that a latitude-longitude sphere expects: the upper edge is the pole at +z, the right edge meets
// the left.
Vector DirectionAt(double u, double v)
{
    double const ring = Sine(0.5 * v);
    return {ring * Cosine(u), ring * Sine(u), Cosine(0.5 * v)};
}

Vector PixelColour(Rock const& rock, int x, int y)
{
    Vector sum;
    for (int i = 0; i < kSamples * kSamples; ++i)
    {
        int const row = i / kSamples;
        int const column = i % kSamples;
        double const u = (x + (column + 0.5) / kSamples) / kSize;
        double const v = (y + (row + 0.5) / kSamples) / kSize;
        sum = sum + rock.Colour(DirectionAt(u, v));
    }
    return sum * (1.0 / (kSamples * kSamples));
}

Picture PaintRock()
{
    Rock const rock;
    Picture picture(kSize, kSize);
    for (int y = 0; y < kSize; ++y)
    {
        for (int x = 0; x < kSize; ++x)
        {
            picture.At(x, y) = PixelColour(rock, x, y);
        }
    }
    return picture;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
    {
        std::fputs("usage: make-rock FILE\n", stderr);
        return 2;
    }
    if (!WriteJpeg(PaintRock(), argv[1], kQuality))
    {
        std::fprintf(stderr, "make-rock: can't write %s\n", argv[1]);
        return 1;
    }
    return 0;
}
