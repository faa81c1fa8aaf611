// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// "Sable" as a class: its sections and parts. Sable.cpp plays the tuned parts and mixes, SableDrums.cpp
// drums.
#pragma once

#include "tracks/Piece.h"
#include "tracks/SableScore.h"

namespace music::sable
{

inline constexpr int kOpening = 0;
inline constexpr int kTheme = 8;
inline constexpr int kBridge = 24;
inline constexpr int kSecond = 32;
inline constexpr int kBreakdown = 48;
inline constexpr int kFinale = 56;
inline constexpr int kBars = 72;

class SablePiece : private Piece
{
public:
    SablePiece() : Piece(140.0, 4.0, kBars), m_harmony(WholeHarmony()) {}

    StereoLoop Compose();

private:
    static std::vector<BarHarmony> WholeHarmony();
    void Kick();
    void Snare();
    void Cymbals();
    void Toms();
    void Bass();
    void Drone();
    void Pad();
    void Arpeggio();
    void Lead();
    void Counter();
    void Bells();
    void Rushes();

    BarHarmony const& Harmony(int bar) const { return m_harmony[static_cast<std::size_t>(bar)]; }

    std::vector<BarHarmony> m_harmony;
};

} // namespace music::sable
