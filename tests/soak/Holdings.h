// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// What the process holds at the moment, counted. The soak compares it between races.
#pragma once

#include <cstddef>
#include <ostream>

struct Holdings
{
    std::size_t memory = 0; // bytes in use
    std::size_t textures = 0;
    std::size_t lists = 0;   // display lists
    std::size_t sources = 0; // of the sound device
    std::size_t buffers = 0; // of the sound device
    std::size_t files = 0;   // open descriptors

    static Holdings Now();
};

std::ostream& operator<<(std::ostream& stream, Holdings const& holdings);
