// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Nebulae. Their levels are low because pale blue text is read over them.
#include "images/Nebula.h"

#include "common/Maths.h"

#include <algorithm>

namespace maker
{

namespace
{

// Close to the haze into which distant asteroids fade, so that they sink into the sky.
Vector const kSpace = {0.0028, 0.0031, 0.0082};
Vector const kBlue = {0.007, 0.031, 0.060};
Vector const kRose = {0.034, 0.011, 0.031};
Vector const kAmber = {0.050, 0.029, 0.013};
Vector const kStarlight = {0.022, 0.022, 0.027};

double Bank(double noise, double from, double to)
{
    double const density = SmoothStep(from, to, noise);
    return density * density;
}

} // namespace

// One diagonal stripe round the tile. It crosses all four edges in their middles, where every face of the box
// meets the next in an equal stripe.
double Nebula::Band(double u, double v) const
{
    double const away = AwayFromEdges(u, v);
    double const across = u - v + 0.5 + 0.16 * away * m_bend.At(u, v);
    double const distance = (across - std::floor(across + 0.5)) / 0.15;
    return Exp(-distance * distance);
}

double Nebula::Dust(double u, double v, double band) const
{
    double const ridge = 1.0 - std::min(1.0, std::abs(m_lanes.At(u, v)) * 2.2);
    double const patch = SmoothStep(-0.15, 0.75, m_dust.At(u, v));
    return std::clamp(ridge * ridge * (0.25 + 0.75 * band) * SmoothStep(-0.6, 0.5, m_dust.At(v, u)) +
                          0.8 * patch,
                      0.0, 1.0);
}

Nebula::Sample Nebula::At(double u, double v) const
{
    double const away = 0.045 * AwayFromEdges(u, v);
    double const curledU = u + away * m_curlU.At(u, v);
    double const curledV = v + away * m_curlV.At(u, v);
    double const band = Band(curledU, curledV);
    double const wisps = std::max(0.12, 0.55 + 0.45 * m_wisps.At(curledU, curledV));
    double const dust = Dust(curledU, curledV, band);

    Sample sample;
    sample.band = band;
    sample.clear = 1.0 - 0.85 * dust;
    Vector const gas = kBlue * Bank(m_blue.At(curledU, curledV), -0.55, 1.0) +
                       kRose * Bank(m_rose.At(curledU, curledV), -0.45, 1.05) +
                       kAmber * (band * Bank(m_amber.At(curledU, curledV), -0.4, 0.9));
    Vector const light = gas * wisps + kStarlight * (band * (0.35 + 0.4 * wisps));
    // Dust takes blue light before red.
    Vector const pass = {1.0 - 0.72 * dust, 1.0 - 0.80 * dust, 1.0 - 0.85 * dust};
    sample.glow = kSpace + light * pass;
    return sample;
}

} // namespace maker
