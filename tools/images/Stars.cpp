// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Stars by number as in a real sky: the count above a brightness falls with a power of it.
#include "images/Stars.h"

#include "common/Maths.h"
#include "common/Random.h"
#include "images/Blackbody.h"

namespace maker
{

namespace
{

constexpr int kStars = 9000;
constexpr double kFaintest = 0.013; // peak in linear light
constexpr double kBrightest = 2.6;
constexpr double kSlope = 1.18; // stars above a brightness: its power of -kSlope
constexpr double kCore = 0.72;  // deviation of a star's disc in pixels

struct Star
{
    double x = 0.0; // x and y in pixels
    double y = 0.0;
    double peak = 0.0;
    Vector colour;
};

// Cool stars are many among the faint ones; the bright ones that we see from afar are as often hot.
double Temperature(Random& random)
{
    double const kind = random.Unit();
    double const within = random.Unit();
    if (kind < 0.30)
    {
        return Mix(3000.0, 4300.0, within);
    }
    if (kind < 0.62)
    {
        return Mix(4300.0, 6500.0, within);
    }
    if (kind < 0.84)
    {
        return Mix(6500.0, 10000.0, within);
    }
    return Mix(10000.0, 22000.0, within);
}

Star RandomStar(Random& random, int size)
{
    Star star;
    star.x = random.Range(0.0, size);
    star.y = random.Range(0.0, size);
    double const rank = random.Range(Power(kFaintest / kBrightest, kSlope), 1.0);
    star.peak = kFaintest * Power(rank, -1.0 / kSlope);
    Vector const pure = BlackbodyColour(Temperature(random));
    double const grey = (pure.x + pure.y + pure.z) / 3.0;
    // A little more colour than the eye would see: on a small disc it is hard to make out.
    Vector const vivid = Mixed({grey, grey, grey}, pure, 1.25);
    star.colour = {std::max(vivid.x, 0.0), std::max(vivid.y, 0.0), std::max(vivid.z, 0.0)};
    return star;
}

// Where a star's light has faded out, in pixels from its centre.
double Reach(Star const& star)
{
    return star.peak > 0.25 ? 3.0 + 13.0 * std::sqrt(star.peak) : 3.0;
}

double LightAt(Star const& star, double distance2, double reach)
{
    double const disc = star.peak * Exp(-distance2 / (2.0 * kCore * kCore));
    if (star.peak <= 0.25)
    {
        return disc;
    }
    double const edge = std::max(0.0, 1.0 - distance2 / (reach * reach));
    double const halo = 0.020 * star.peak / (1.0 + distance2 / 2.5) * edge * edge;
    return disc + halo;
}

void Draw(Picture& sky, Star const& star)
{
    double const reach = Reach(star);
    int const size = sky.Width();
    for (int y = static_cast<int>(star.y - reach); y <= static_cast<int>(star.y + reach); ++y)
    {
        for (int x = static_cast<int>(star.x - reach); x <= static_cast<int>(star.x + reach); ++x)
        {
            double const dx = x + 0.5 - star.x;
            double const dy = y + 0.5 - star.y;
            double const light = LightAt(star, dx * dx + dy * dy, reach);
            Vector& pixel = sky.At((x + size) % size, (y + size) % size);
            pixel = pixel + star.colour * light;
        }
    }
}

// The sky box folds the tile along its edges and would show half a star there.
bool Folded(Star const& star, int size)
{
    double const margin = star.peak > 0.25 ? Reach(star) * 0.6 : (star.peak > 0.05 ? 2.2 : 1.3);
    return std::min({star.x, star.y, size - star.x, size - star.y}) < margin;
}

} // namespace

void AddStars(Picture& sky, Nebula const& nebula)
{
    Random random(41);
    int placed = 0;
    while (placed < kStars)
    {
        Star star = RandomStar(random, sky.Width());
        double const chance = random.Unit();
        Nebula::Sample const place = nebula.At(star.x / sky.Width(), star.y / sky.Height());
        double const crowd = star.peak > 0.3 ? 0.5 : 0.16 + 0.84 * place.band;
        if (chance > crowd || Folded(star, sky.Width()))
        {
            continue;
        }
        star.peak *= star.peak > 0.3 ? 1.0 : place.clear;
        Draw(sky, star);
        ++placed;
    }
}

} // namespace maker
