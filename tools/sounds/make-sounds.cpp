// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Writes the nine effects. tools/make-resources calls it with the folder to write them to.
#include "sounds/Effects.h"
#include "synth/SoundFile.h"

#include <array>
#include <cstdio>
#include <string>

namespace
{

using namespace maker;

struct Effect
{
    char const* file;
    Stereo (*make)();
};

constexpr std::array<Effect, 9> kEffects = {{
    {"Fanfare.AIFF", &MakeFanfare},
    {"Starter.AIFF", &MakeStarter},
    {"Controls.AIFF", &MakeControls},
    {"HiScore.AIFF", &MakeHiScore},
    {"Wham.AIFF", &MakeWham},
    {"Graze.AIFF", &MakeGraze},
    {"Attention.AIFF", &MakeAttention},
    {"Rollover.AIFF", &MakeRollover},
    {"Click.AIFF", &MakeClick},
}};

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
    {
        std::fputs("usage: make-sounds FOLDER\n", stderr);
        return 2;
    }
    for (Effect const& effect : kEffects)
    {
        std::string const path = std::string(argv[1]) + "/" + effect.file;
        if (!WriteAiff(effect.make(), path))
        {
            std::fprintf(stderr, "make-sounds: can't write %s\n", path.c_str());
            return 1;
        }
    }
    return 0;
}
