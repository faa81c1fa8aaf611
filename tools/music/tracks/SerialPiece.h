// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// "SerialK" as a class: its sections and parts. SerialK.cpp plays the tuned parts and mixes, SerialKDrums.cpp
// drums.
#pragma once

#include "tracks/Piece.h"
#include "tracks/SerialRows.h"

namespace music::serial
{

inline constexpr int kAssembly = 0;
inline constexpr int kRun = 12;
inline constexpr int kCanon = 24;
inline constexpr int kClock = 40;
inline constexpr int kPress = 52;
inline constexpr int kFull = 60;
inline constexpr int kApart = 76;
inline constexpr int kBars = 84;

class SerialPiece : private Piece
{
public:
    SerialPiece() : Piece(126.0, 3.0, kBars) {}

    StereoLoop Compose();

private:
    void Kick();
    void Snare();
    void Machinery();
    void Ticking();
    void Bass();
    void Pistons();
    void Leads();
    void Clockwork();
    void PressChords();
    void Wires();
    void Drone();
    void Rushes();
};

} // namespace music::serial
