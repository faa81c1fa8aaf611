// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The Fourier transform.
#pragma once

#include "common/Maths.h"

#include <complex>
#include <vector>

namespace maker
{

using Waves = std::vector<std::complex<double>>;

// In place; the count of values must be a power of two.
inline void Transform(Waves& values)
{
    if (values.size() == 1)
    {
        return;
    }
    Waves even;
    Waves odd;
    for (std::size_t i = 0; i < values.size(); i += 2)
    {
        even.push_back(values[i]);
        odd.push_back(values[i + 1]);
    }
    Transform(even);
    Transform(odd);
    for (std::size_t i = 0; i < even.size(); ++i)
    {
        double const turn = static_cast<double>(i) / static_cast<double>(values.size());
        std::complex<double> const turned = odd[i] * std::complex<double>(Cosine(turn), -Sine(turn));
        values[i] = even[i] + turned;
        values[i + even.size()] = even[i] - turned;
    }
}

} // namespace maker
