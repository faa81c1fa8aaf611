// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The chords and melodies of "Sable".
#pragma once

#include "music/Piece.h"

#include <string_view>

namespace maker::sable
{

// The bars in which the sections begin.
inline constexpr int kOpening = 0;
inline constexpr int kTheme = 8;
inline constexpr int kBridge = 24;
inline constexpr int kSecond = 32;
inline constexpr int kBreakdown = 48;
inline constexpr int kFinale = 56;
inline constexpr int kBars = 72;

struct BarHarmony
{
    std::string_view root;
    std::string_view chord;
};

inline constexpr BarHarmony kOpeningHarmony[] = {
    {"D2", "D3 A3 D4 E4"}, {"D2", "D3 A3 D4 F4"}, {"D2", "D3 Bb3 Eb4 G4"},  {"D2", "D3 A3 D4 F4"},
    {"D2", "D3 A3 D4 E4"}, {"D2", "D3 A3 D4 F4"}, {"Eb2", "D3 Bb3 Eb4 G4"}, {"A1", "C#3 A3 E4 G4"}};
inline constexpr BarHarmony kThemeHarmony[] = {
    {"D2", "D3 A3 D4 F4"},  {"D2", "D3 A3 D4 F4"},     {"Bb1", "D3 Bb3 D4 F4"}, {"Bb1", "D3 Bb3 D4 F4"},
    {"G1", "D3 Bb3 D4 G4"}, {"Eb2", "Eb3 Bb3 Eb4 G4"}, {"A1", "E3 A3 D4 G4"},   {"A1", "E3 A3 C#4 G4"}};
inline constexpr BarHarmony kBridgeHarmony[] = {
    {"D2", "D3 A3 E4 F4"}, {"Bb1", "D3 A3 Bb3 F4"}, {"A1", "C3 A3 C4 F4"},    {"G1", "D3 Bb3 D4 F4"},
    {"D2", "D3 A3 E4 F4"}, {"Bb1", "D3 A3 Bb3 F4"}, {"Eb2", "Eb3 Bb3 D4 G4"}, {"A1", "E3 A3 C#4 G4"}};
inline constexpr BarHarmony kSecondHarmony[] = {
    {"F2", "C3 Ab3 C4 F4"},     {"Db2", "Db3 Ab3 Db4 F4"}, {"Bb1", "Db3 Bb3 Db4 F4"},
    {"C2", "C3 Bb3 E4 G4"},     {"F2", "C3 Ab3 C4 F4"},    {"Db2", "Db3 Ab3 Db4 F4"},
    {"Gb2", "Db3 Bb3 Db4 Gb4"}, {"C2", "C3 Bb3 E4 G4"},    {"F2", "C3 Ab3 C4 F4"},
    {"Db2", "Db3 Ab3 Db4 F4"},  {"Bb1", "Db3 Bb3 Db4 F4"}, {"Bb1", "Db3 Bb3 Db4 Gb4"},
    {"G1", "Db3 Bb3 F4 G4"},    {"G1", "Db3 Bb3 F4 G4"},   {"A1", "C#3 A3 E4 G4"},
    {"A1", "C#3 A3 E4 G4"}};
inline constexpr BarHarmony kBreakdownHarmony[] = {
    {"D2", "D3 A3 D4 E4"}, {"D2", "D3 A3 D4 E4"},  {"D2", "Eb3 Bb3 D4 G4"},   {"D2", "Eb3 Bb3 D4 G4"},
    {"D2", "D3 A3 D4 F4"}, {"D2", "F3 Bb3 D4 F4"}, {"Eb2", "Eb3 Bb3 Eb4 G4"}, {"A1", "C#3 A3 E4 G4"}};

// Eight bars each.
inline constexpr BarHarmony const* kHarmonies[] = {kOpeningHarmony,   kThemeHarmony,  kThemeHarmony,
                                                   kBridgeHarmony,    kSecondHarmony, kSecondHarmony + 8,
                                                   kBreakdownHarmony, kThemeHarmony,  kThemeHarmony};

inline constexpr std::string_view kThemeFirst =
    "A4:1.5! G4:.5 F4:1 E4:1  D4:2.5 E4:.5 F4:1  D5:1.5! C5:.5 Bb4:1 A4:1  Bb4:2.5 A4:.5 G4:.5 F4:.5 "
    "G4:1.5 A4:.5 Bb4:1 D5:1  Eb5:2! D5:1 Bb4:1  A4:1 D5:1 E5:1 G5:1  F5:.5! E5:.5 C#5:3";
inline constexpr std::string_view kThemeAnswer =
    "A4:1.5! G4:.5 F4:1 E4:1  D4:1 F4:1 A4:1 D5:1  F5:1.5! E5:.5 D5:1 C5:1  D5:2.5 C5:.5 Bb4:.5 A4:.5 "
    "Bb4:1.5 C5:.5 D5:1 G5:1  G5:2! F5:1 Eb5:1  D5:1 E5:.5 D5:.5 C#5:1 E5:1  A5:3! r:1";
inline constexpr std::string_view kSecondFirst =
    "C5:.75! C5:.75 Db5:.5 C5:1 Ab4:1  F4:1.5 Ab4:.5 Db5:2  Db5:.75! Db5:.75 Eb5:.5 Db5:1 Bb4:1 "
    "C5:1 Bb4:.5 G4:.5 E4:2  F4:.75! Ab4:.75 C5:.5 F5:2  Eb5:.75 Db5:.75 Ab4:.5 F4:2 "
    "Gb4:1.5! Bb4:.5 Db5:1 Gb5:1  F5:.5 E5:.5 C5:1 Bb4:.5 G4:.5 E4:1";
inline constexpr std::string_view kSecondAnswer =
    "C5:.75! C5:.75 Db5:.5 C5:1 F5:1  Ab5:1.5! F5:.5 Db5:2  Bb4:.75! Db5:.75 F5:.5 Bb5:1 Ab5:1 "
    "Gb5:1 F5:1 Db5:1 Bb4:1  Db5:.75! Db5:.75 F5:.5 G5:2  F5:1 Db5:1 Bb4:1 G4:1 "
    "C#5:1.5! E5:.5 G5:1 Bb5:1  A5:3! r:1";
inline constexpr std::string_view kCounter =
    "D4:2 E4:2  F4:4  F4:2 G4:2  F4:2 D4:2  D4:3 Bb3:1  G4:2 F4:1 Eb4:1  D4:2 E4:2  E4:4";
inline constexpr std::string_view kBellLine =
    "D5:1 A5:1 F5:1 E5:1  D5:1 F5:1 D6:2  C6:1 A5:1 F5:1 C5:1  Bb4:1 D5:1 G5:2 "
    "A5:1 F5:1 D5:1 A4:1  Bb4:1 D5:1 F5:2  G5:1 Eb5:1 Bb4:1 G4:1  A4:1 C#5:1 E5:1 G5:1";

// The untuned parts.
void Drums(Piece& piece);

} // namespace maker::sable
