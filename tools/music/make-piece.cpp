// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Renders one of the game's pieces of music to a WAV file: make-piece NAME FILE.
#include "music/tracks/Tracks.h"
#include "synth/Mastering.h"
#include "synth/SoundFile.h"

#include <cstdio>
#include <string_view>

namespace
{

struct Piece
{
    std::string_view name;
    maker::StereoLoop (*compose)();
    double lufs;
};

// The playlist plays the pieces at 1.0, 0.5, 0.7 and 0.7 of the music volume, that is 0, -6.02, -3.1 and
// -3.1 dB: their own levels are that much higher, so that all of them are heard alike.
constexpr Piece kPieces[] = {
    {"Sable", maker::Sable, -20.0},
    {"Electro0032", maker::Electro0032, -13.98},
    {"SerialK", maker::SerialK, -16.9},
    {"Aai_Tookai", maker::AaiTookai, -16.9},
};

// Encoding moves peaks by up to about a decibel; with this distance none comes near full scale.
constexpr double kCeiling = -3.0;

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3)
    {
        std::fprintf(stderr, "usage: %s NAME FILE\n", argv[0]);
        return 2;
    }
    for (Piece const& piece : kPieces)
    {
        if (piece.name != argv[1])
            continue;
        maker::StereoLoop loop = piece.compose();
        maker::Master(loop, piece.lufs, kCeiling);
        if (maker::WriteWav(loop, argv[2]))
            return 0;
        std::fprintf(stderr, "%s could not be written\n", argv[2]);
        return 1;
    }
    std::fprintf(stderr, "no piece is called %s\n", argv[1]);
    return 2;
}
