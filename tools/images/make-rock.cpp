// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Writes the texture of the asteroids: make-rock FILE.
#include "common/Maths.h"
#include "common/Program.h"
#include "images/Picture.h"
#include "images/Rock.h"

namespace
{

using namespace maker;

constexpr int kSize = 128;
constexpr int kQuality = 96;

// In turns. The ground goes on across the map's edges; they lie where it is calm, away from any crater's rim,
// so that the step between the outermost columns is no larger than others.
constexpr double kLongitudeOfEdges = 0.8;

// The map that a latitude-longitude sphere expects: the upper edge is the pole at +z, the right edge meets
// the left.
Vector DirectionAt(double u, double v)
{
    double const ring = Sine(0.5 * v);
    double const turn = u + kLongitudeOfEdges;
    return {ring * Cosine(turn), ring * Sine(turn), Cosine(0.5 * v)};
}

Picture PaintRock()
{
    Rock const rock;
    return Sampled(kSize, kSize,
                   [&](double x, double y) { return rock.Colour(DirectionAt(x / kSize, y / kSize)); });
}

} // namespace

int main(int argc, char** argv)
{
    return maker::RunMaker(argc, argv,
                           [](std::string const& file) { return WriteJpeg(PaintRock(), file, kQuality); });
}
