// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The twelve-tone row of "SerialK" and what is done with it.
#pragma once

#include "music/Piece.h"

#include <array>
#include <string_view>

namespace maker::serial
{

// The bars in which the sections begin.
inline constexpr int kAssembly = 0;
inline constexpr int kRun = 12;
inline constexpr int kCanon = 24;
inline constexpr int kClock = 40;
inline constexpr int kPress = 52;
inline constexpr int kFull = 60;
inline constexpr int kApart = 76;
inline constexpr int kBars = 84;

using Row = std::array<int, 12>; // pitches or, in the prime, semitones above its first tone

// Built from one cell of four tones, its transposition by a fifth, and a fan of thirds that is left over.
inline constexpr Row kPrime = {0, 3, 2, 6, 7, 10, 9, 13, 4, 5, 8, 11};

// The accented sixteenths.
inline constexpr std::string_view kWeights = "X..X..X.X.X.";

Row Inverted(Row row);
Row Retrograde(Row row);
Row Transposed(Row row, int semitones);

// Every tone moved by octaves into the twelve semitones from the lowest up.
Row Folded(Row row, int lowest);

// The row form that all parts use in a bar; it changes every four bars. Pitches are about middle C.
Row FormOf(int bar);

// The row in the theme's rhythm, four bars long.
Notes Theme(Row const& row);

// The untuned parts.
void Drums(Piece& piece);

} // namespace maker::serial
