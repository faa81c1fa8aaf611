// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Borrowed pixel memory that pictures are drawn into.
#pragma once

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
};

// Whether pictures can be drawn into a buffer of that size and depth.
bool CanDrawInto(PixelBuffer const& buffer);

// A point (x, y) of the picture goes to (x * scaleX + translateX, y * scaleY + translateY) of the target.
struct PictureMatrix
{
    double scaleX = 1.0;
    double scaleY = 1.0;
    double translateX = 0.0;
    double translateY = 0.0;
};

// Replaces what the picture's rectangle covers of the target; pixels beyond it stay. The picture has 32 bits
// per pixel. False when memory is missing.
bool DrawPicture(PixelBuffer const& picture, PictureMatrix const& matrix, PixelBuffer const& target);

// Draws the source, scaled with interpolation, over the destination's whole area; what was there is replaced.
// The source's memory is read as 32-bit pixels whatever its depth; pixels beyond its end are
// transparent. False when memory is missing.
bool DrawScaled(PixelBuffer const& source, PixelBuffer const& destination);

} // namespace platform
