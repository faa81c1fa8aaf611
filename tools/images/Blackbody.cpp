// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Temperature to chromaticity by the cubic fits of Kim et al. (2002) to the Planckian locus, then to linear
// sRGB.
#include "images/Blackbody.h"

#include <algorithm>

namespace maker
{

namespace
{

double LocusX(double t)
{
    double const r = 1000.0 / t;
    if (t < 4000.0)
    {
        return ((-0.2661239 * r - 0.2343589) * r + 0.8776956) * r + 0.179910;
    }
    return ((-3.0258469 * r + 2.1070379) * r + 0.2226347) * r + 0.240390;
}

double LocusY(double t, double x)
{
    if (t < 2222.0)
    {
        return ((-1.1063814 * x - 1.34811020) * x + 2.18555832) * x - 0.20219683;
    }
    if (t < 4000.0)
    {
        return ((-0.9549476 * x - 1.37418593) * x + 2.09137015) * x - 0.16748867;
    }
    return ((3.0817580 * x - 5.87338670) * x + 3.75112997) * x - 0.37001483;
}

} // namespace

Vector BlackbodyColour(double kelvin)
{
    double const x = LocusX(kelvin);
    double const y = LocusY(kelvin, x);
    Vector const xyz = {x / y, 1.0, (1.0 - x - y) / y};
    Vector const rgb = {Dot(xyz, {3.2406, -1.5372, -0.4986}), Dot(xyz, {-0.9689, 1.8758, 0.0415}),
                        Dot(xyz, {0.0557, -0.2040, 1.0570})};
    Vector const visible = {std::max(rgb.x, 0.0), std::max(rgb.y, 0.0), std::max(rgb.z, 0.0)};
    return visible * (1.0 / std::max({visible.x, visible.y, visible.z}));
}

} // namespace maker
