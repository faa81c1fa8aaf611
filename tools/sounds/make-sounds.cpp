// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Writes the nine effects: make-sounds FOLDER.
#include "common/Program.h"
#include "sounds/Effects.h"
#include "synth/SoundFile.h"

#include <algorithm>
#include <array>

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

bool WriteAll(std::string const& folder)
{
    return std::all_of(kEffects.begin(), kEffects.end(),
                       [&](Effect const& effect)
                       { return WriteAiff(effect.make(), folder + "/" + effect.file); });
}

} // namespace

int main(int argc, char** argv)
{
    return maker::RunMaker(argc, argv, WriteAll);
}
