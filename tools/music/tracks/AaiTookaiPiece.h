// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// "Aai_Tookai" as a class: its sections and parts. AaiTookai.cpp plays the tuned parts and mixes,
// AaiTookaiDrums.cpp drums.
#pragma once

#include "tracks/AaiTookaiScore.h"
#include "tracks/Piece.h"

namespace music::tookai
{

inline constexpr int kOpening = 0;
inline constexpr int kTheme = 8;
inline constexpr int kEpisode = 24;
inline constexpr int kQuiet = 40;
inline constexpr int kFinale = 56;
inline constexpr int kClosing = 80;
inline constexpr int kBars = 88;

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
