// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The melodies, figures and roots of "Aai_Tookai".
#pragma once

#include "music/Piece.h"

#include <array>
#include <string_view>

namespace maker::tookai
{

// The bars in which the sections begin.
inline constexpr int kOpening = 0;
inline constexpr int kTheme = 8;
inline constexpr int kEpisode = 24;
inline constexpr int kQuiet = 40;
inline constexpr int kFinale = 56;
inline constexpr int kClosing = 80;
inline constexpr int kBars = 88;

// Lines are written in overtones, with lengths in eighths.
inline constexpr std::string_view kThemeFirst =
    "12:2! 11:2 10:3  9:2 10:1 11:1 12:3  14:2! 13:2 12:3  11:2 12:2 10:3";
inline constexpr std::string_view kThemeOverG = "8:2! 9:2 11:3  12:2 11:1 10:1 9:3";
inline constexpr std::string_view kThemeEnd = "14:2! 13:1 12:1 11:3  12:1 10:1 9:1 8:3 r:1";
inline constexpr std::string_view kThemeRise = "14:2! 16:1 14:1 13:3  12:1 14:1 16:1 18:3 r:1";
inline constexpr std::string_view kHalfSpeed =
    "12:4 11:4 10:6  9:4 10:2 11:2 12:6  14:4 13:4 12:6  11:4 12:4 10:6";

inline constexpr std::string_view kSkips = "16:1! 14:1 12:1 14:1 11:1 12:2  14:1! 12:1 11:1 12:1 9:1 10:2";
inline constexpr std::string_view kTurns = "10:1! 12:1 11:1 9:1 10:1 11:1 12:1  14:2! 13:1 12:1 11:2 r:1";

inline constexpr std::array<double, 7> kThumbs = {8.0, 12.0, 10.0, 14.0, 11.0, 12.0, 9.0};
inline constexpr std::array<double, 7> kThumbsAnswer = {8.0, 10.0, 12.0, 11.0, 14.0, 13.0, 12.0};

inline constexpr double kD4 = 62.0;

enum class Root
{
    D,
    G,
    A
};

// Where the scale stands in each bar of a group of eight.
inline constexpr std::array<Root, 8> kThemeRoots = {Root::D, Root::D, Root::D, Root::D,
                                                    Root::G, Root::G, Root::D, Root::D};
inline constexpr std::array<Root, 8> kEpisodeRoots = {Root::A, Root::A, Root::G, Root::G,
                                                      Root::D, Root::D, Root::A, Root::D};

// The untuned parts.
void Drums(Piece& piece);

} // namespace maker::tookai
