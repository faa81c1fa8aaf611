// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Writes the tile of sky that the sky box repeats: make-stars FILE.
#include "common/Program.h"
#include "common/Random.h"
#include "images/Nebula.h"
#include "images/Picture.h"
#include "images/Stars.h"

#include <algorithm>

namespace
{

using namespace maker;

constexpr int kSize = 1024;
// A lower quality drops the faint grain of the dark parts inside the blocks of the JPEG, and their edges
// show.
constexpr int kQuality = 99;

// Light beyond 1 bleeds into the other colours, so that a bright star has a white core.
Vector Exposed(Vector const& light)
{
    double const excess = std::max(0.0, std::max({light.x, light.y, light.z}) - 0.8) * 0.5;
    return {std::min(1.0, light.x + excess), std::min(1.0, light.y + excess),
            std::min(1.0, light.z + excess)};
}

// Half a step of noise keeps the dark slopes of the nebulae from showing as bands.
Vector Encoded(Vector const& light, Random& random)
{
    Vector const exposed = Exposed(light);
    double const first = random.Noise();
    double const second = random.Noise();
    double const grain = (first + second) * 0.5 / 255.0;
    return {ToDisplay(exposed.x) + grain, ToDisplay(exposed.y) + grain, ToDisplay(exposed.z) + grain};
}

Picture PaintSky()
{
    Nebula const nebula;
    Picture sky(kSize, kSize);
    for (int y = 0; y < kSize; ++y)
    {
        for (int x = 0; x < kSize; ++x)
        {
            sky.At(x, y) = nebula.At((x + 0.5) / kSize, (y + 0.5) / kSize).glow;
        }
    }
    AddStars(sky, nebula);
    Random random(7);
    for (int y = 0; y < kSize; ++y)
    {
        for (int x = 0; x < kSize; ++x)
        {
            sky.At(x, y) = Encoded(sky.At(x, y), random);
        }
    }
    return sky;
}

} // namespace

int main(int argc, char** argv)
{
    return maker::RunMaker(argc, argv,
                           [](std::string const& file) { return WriteJpeg(PaintSky(), file, kQuality); });
}
