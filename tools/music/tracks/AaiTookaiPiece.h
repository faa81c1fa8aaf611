// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// "Aai_Tookai" as a class: its sections and parts. AaiTookai.cpp plays the tuned parts and mixes,
// AaiTookaiDrums.cpp drums.
#pragma once

#include "tracks/Piece.h"

#include <array>
#include <string_view>

namespace music::tookai
{

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

class AaiTookaiPiece : private Piece
{
public:
    AaiTookaiPiece() : Piece(320.0, 7.0, kBars) {}

    StereoLoop Compose();

private:
    static Root RootOf(int bar)
    {
        auto const place = static_cast<std::size_t>(bar % 8);
        return bar >= kEpisode && bar < kQuiet ? kEpisodeRoots[place] : kThemeRoots[place];
    }

    // The pitch of overtone 8 in that bar; all roots are themselves pure intervals above D.
    static double RootPitch(int bar)
    {
        switch (RootOf(bar))
        {
        case Root::G:
            return OvertonePitch(8.0 * 4.0 / 3.0, kD4 - 12.0);
        case Root::A:
            return OvertonePitch(6.0, kD4);
        case Root::D:
            break;
        }
        return kD4;
    }

    static Notes Theme(bool rising)
    {
        Notes notes = OvertoneLine(kThemeFirst, kD4);
        double const g = OvertonePitch(8.0 * 4.0 / 3.0, kD4);
        Append(notes, Moved(OvertoneLine(kThemeOverG, g), 28.0));
        Append(notes, Moved(OvertoneLine(rising ? kThemeRise : kThemeEnd, kD4), 42.0));
        return notes;
    }

    static void Append(Notes& notes, Notes const& more)
    {
        notes.insert(notes.end(), more.begin(), more.end());
    }

    void HandDrums();
    void KickAndClaps();
    void Rattles();
    void ThumbPiano();
    void Bass();
    void Strings();
    void Glass();
    void Flute();
    void SecondFlute();
    void Marimba();
    void Bells();
};

} // namespace music::tookai
