// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Borrowed pixel memory that pictures are drawn into.
#pragma once

#include <cstddef>

namespace platform
{

// bitDepth 32: bytes B, G, R, A, premultiplied; 16: native-endian 1-5-5-5, alpha in the top bit.
// Rows from the first in memory, width * bitDepth / 8 bytes each, no padding.
struct PixelBuffer
{
    void* pixels = nullptr;
    int width = 0;
    int height = 0;
    int bitDepth = 32;

    std::size_t size() const
    {
        return static_cast<std::size_t>(width) * static_cast<std::size_t>(height) *
               static_cast<std::size_t>(bitDepth / 8);
    }
};

// Draws the source, scaled with interpolation, over the destination's whole area; what was there is replaced.
// The source's memory is read as 32-bit pixels whatever its depth; what that reaches beyond its end is
// transparent. False, and the destination as it was, when memory is missing or refused.
bool DrawScaled(PixelBuffer const& source, PixelBuffer const& destination);

} // namespace platform
