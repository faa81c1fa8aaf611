// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "music/tracks/SerialKScore.h"

#include <algorithm>

namespace maker::serial
{

namespace
{

// How many sixteenths the theme holds each tone of a row: bars of 6 3 3, 4 2 6, 3 3 2 2 2 and 12.
constexpr std::array<int, 12> kDurations = {6, 3, 3, 4, 2, 6, 3, 3, 2, 2, 2, 12};

} // namespace

Row Inverted(Row row)
{
    for (int& tone : row)
        tone = -tone;
    return row;
}

Row Retrograde(Row row)
{
    std::reverse(row.begin(), row.end());
    return row;
}

Row Transposed(Row row, int semitones)
{
    for (int& tone : row)
        tone += semitones;
    return row;
}

Row Folded(Row row, int lowest)
{
    for (int& tone : row)
        tone = lowest + ((tone - lowest) % 12 + 12) % 12;
    return row;
}

Row FormOf(int bar)
{
    static Row const kForms[] = {
        Transposed(kPrime, 60),
        Transposed(Retrograde(kPrime), 60),
        Transposed(Inverted(kPrime), 67),
        Transposed(kPrime, 67),
        Transposed(Retrograde(Inverted(kPrime)), 64),
        Transposed(kPrime, 55),
        Transposed(Inverted(kPrime), 60),
    };
    return kForms[static_cast<std::size_t>(bar / 4) % std::size(kForms)];
}

Notes Theme(Row const& row)
{
    Notes notes;
    double beat = 0.0;
    for (std::size_t i = 0; i < row.size(); ++i)
    {
        double const beats = 0.25 * kDurations[i];
        notes.push_back({beat, 0.92 * beats, static_cast<double>(row[i]), i % 3 == 0 ? 1.0 : 0.8, 0.0});
        beat += beats;
    }
    return notes;
}

} // namespace maker::serial
