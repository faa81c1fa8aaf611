// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The chords and melodies of "Electro0032".
#pragma once

#include "music/Piece.h"

#include <array>
#include <string_view>

namespace maker::electro
{

// The bars in which the sections begin.
inline constexpr int kIntro = 0;
inline constexpr int kVerse = 8;
inline constexpr int kBreak = 24;
inline constexpr int kBuild = 32;
inline constexpr int kHook = 36;
inline constexpr int kReturn = 52;
inline constexpr int kOutro = 60;
inline constexpr int kBars = 64;

struct BarHarmony
{
    std::string_view root;
    std::string_view chord;
};

inline constexpr std::array<BarHarmony, 4> kVerseHarmony = {
    {{"E2", "E3 G3 D4 F#4"}, {"A1", "G3 C#4 E4 F#4"}, {"C2", "E3 G3 D4 G4"}, {"B1", "D3 A3 D4 F#4"}}};
inline constexpr std::array<BarHarmony, 8> kBreakHarmony = {{{"A1", "E3 G3 B3 C4"},
                                                             {"B1", "D3 A3 B3 F#4"},
                                                             {"C2", "E3 B3 D4 G4"},
                                                             {"D2", "F#3 A3 B3 E4"},
                                                             {"A1", "E3 G3 B3 C4"},
                                                             {"B1", "D3 A3 B3 F#4"},
                                                             {"E2", "E3 G3 D4 F#4"},
                                                             {"B1", "D#3 A3 B3 G4"}}};
inline constexpr std::array<BarHarmony, 8> kHookHarmony = {{{"C2", "E3 G3 D4 G4"},
                                                            {"D2", "F#3 A3 D4 E4"},
                                                            {"E2", "G3 B3 D4 F#4"},
                                                            {"B1", "F#3 A3 D4 F#4"},
                                                            {"C2", "E3 G3 D4 G4"},
                                                            {"D2", "F#3 A3 D4 A4"},
                                                            {"E2", "G3 B3 D4 G4"},
                                                            {"A1", "G3 B3 C#4 E4"}}};

inline constexpr std::string_view kHookFirst =
    "B4:.75! D5:.75 E5:.5 G5:.75 F#5:.75 D5:.5  E5:1.5 D5:.5 B4:1 A4:1 "
    "B4:.75! D5:.75 E5:.5 B5:.75 A5:.75 F#5:.5  G5:.75 F#5:.75 D5:.5 F#5:2 "
    "B4:.75! D5:.75 E5:.5 G5:.75 A5:.75 B5:.5  A5:1.5 F#5:.5 D5:1 E5:1 "
    "G5:.75! F#5:.75 E5:.5 D5:.75 B4:.75 D5:.5  E5:2 C#5:1 r:1";
inline constexpr std::string_view kHookAnswer =
    "B4:.75! D5:.75 E5:.5 G5:.75 F#5:.75 D5:.5  E5:1.5 F#5:.5 A5:1 D6:1 "
    "B5:.75! A5:.75 G5:.5 F#5:.75 E5:.75 D5:.5  F#5:.75 E5:.75 D5:.5 B4:2 "
    "G5:.5! G5:.25 G5:.5 A5:.5 B5:.75 D6:.75 B5:.75  A5:.5! A5:.25 A5:.5 F#5:.5 E5:.75 D5:1.5 "
    "B5:.75! A5:.75 G5:.5 F#5:.75 E5:.75 D5:.5  E5:3! r:1";
inline constexpr std::string_view kPiano =
    "E5:1.5 D5:.5 B4:2  F#5:1.5 E5:.5 D5:2  G5:1.5 F#5:.5 E5:1 B4:1  A4:3 r:1 "
    "E5:1.5 D5:.5 C5:1 B4:1  D5:1.5 F#5:.5 A5:2  G5:1 F#5:1 E5:1 B4:1  D#5:2 B4:1 G4:1";
inline constexpr std::string_view kCall =
    "r:2 B4:.5 D5:.25 E5:.75 r:.5  r:2 C#5:.5 E5:.25 F#5:.75 r:.5  r:2 G5:.5 E5:.25 D5:.75 r:.5 "
    "r:1.5 F#5:.5! E5:.5 D5:.5 B4:1";

// Semitones above the root for each sixteenth of two bars; kRest is a rest. Accents: X is louder, x slides up
// to its pitch.
inline constexpr int kRest = -99;
inline constexpr std::array<int, 32> kAcid = {0,  kRest, 12, 0,  kRest, 0, 3,     0,  10, kRest, 0,
                                              12, kRest, 7,  10, 12,    0, kRest, 12, 0,  15,    kRest,
                                              12, kRest, 10, 0,  kRest, 7, 12,    10, 7,  5};
inline constexpr std::string_view kAcidAccents = "X.x.X...X..x..x.X...X..X...x..XX";

// The untuned parts.
void Drums(Piece& piece);

} // namespace maker::electro
