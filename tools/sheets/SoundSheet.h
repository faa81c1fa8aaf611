// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A picture of the effects: for each its name, its waveform and its spectrogram, all on one scale of time.
#pragma once

#include <string>
#include <vector>

namespace maker
{

// Reads the files from a folder. False when one of them can't be read or the picture can't be written.
bool DrawSoundSheet(std::string const& folder, std::vector<std::string> const& files,
                    std::string const& path);

} // namespace maker
