// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// "Electro0032" as a class: its sections and parts. Electro0032.cpp plays the tuned parts and mixes,
// Electro0032Drums.cpp drums.
#pragma once

#include "tracks/Electro0032Score.h"
#include "tracks/Piece.h"

namespace music::electro
{

inline constexpr int kIntro = 0;
inline constexpr int kVerse = 8;
inline constexpr int kBreak = 24;
inline constexpr int kBuild = 32;
inline constexpr int kHook = 36;
inline constexpr int kReturn = 52;
inline constexpr int kOutro = 60;
inline constexpr int kBars = 64;

class ElectroPiece : private Piece
{
public:
    ElectroPiece() : Piece(128.0, 4.0, kBars) {}

    StereoLoop Compose();

private:
    static BarHarmony const& Harmony(int bar)
    {
        auto const index = static_cast<std::size_t>(bar);
        if (bar >= kBreak && bar < kBuild)
            return kBreakHarmony[index - kBreak];
        if (bar >= kHook && bar < kReturn)
            return kHookHarmony[(index - kHook) % 8];
        return kVerseHarmony[index % 4];
    }

    void Kick();
    void SnareAndClap();
    void Hats();
    void Blips();
    void Acid();
    void Bass();
    void Stabs();
    void Pad();
    void Arpeggio();
    void Calls();
    void Piano();
    void Hook();
    void Rushes();
};

} // namespace music::electro
