// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// What lies between the stars: gas in three hues, a band of unresolved stars, and lanes of
// dark dust. All of it repeats with the tile.
#pragma once

#include "common/Vector.h"
#include "images/TileNoise.h"

namespace maker
{

class Nebula
{
public:
    struct Sample
    {
        Vector glow;        // linear light
        double band = 0.0;  // 0 to 1: how thickly stars stand here
        double clear = 1.0; // 0 to 1: the share of the light behind that the dust lets through
    };

    Sample At(double u, double v) const;

private:
    double Band(double u, double v) const;
    double Dust(double u, double v, double band) const;

    TileClouds m_bend{3, 3, 0.5, 100};
    TileClouds m_curlU{4, 4, 0.5, 200};
    TileClouds m_curlV{4, 4, 0.5, 300};
    TileClouds m_blue{4, 7, 0.58, 400};
    TileClouds m_rose{5, 7, 0.58, 520};
    TileClouds m_amber{5, 7, 0.60, 600};
    TileClouds m_wisps{5, 6, 0.6, 700};
    TileClouds m_dust{5, 7, 0.6, 800};
    TileClouds m_lanes{6, 6, 0.55, 900};
};

} // namespace maker
