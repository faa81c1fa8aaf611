// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Cairo's view of a pixel buffer, and the one way in which pictures are drawn into it.
// PixelBuffer and ImageImporter are the callers.
#pragma once

#include "platform/base/CairoHandles.h"
#include "platform/image/PixelBuffer.h"

#include <cstdint>
#include <memory>

namespace platform
{

// The limits of any picture or buffer: Cairo's surfaces end at twice this side, memory at 256 MiB.
constexpr int kLongestPictureSide = 16384; // pixels
constexpr std::size_t kMostPicturePixels = std::size_t{64} * 1024 * 1024;

// A point (x, y) of the picture goes to (x * scaleX + translateX, y * scaleY + translateY) of the target.
struct PictureMatrix
{
    double scaleX = 1.0;
    double scaleY = 1.0;
    double translateX = 0.0;
    double translateY = 0.0;
};

// Native 32-bit numbers, alpha in the top byte: bytes B, G, R, A on the machines that we run on.
using Pixels = std::unique_ptr<std::uint32_t[]>;

// Zeroed; null when memory is refused.
Pixels AllocatePixels(int width, int height);

// Borrowed pixels, premultiplied, rows without padding.
struct Picture
{
    std::uint32_t const* pixels = nullptr;
    int width = 0;
    int height = 0;
};

bool IsUsableSize(int width, int height);

// True for memory of a depth and size that pictures can be drawn into.
bool IsUsable(PixelBuffer const& buffer);

// Replaces what the picture's rectangle covers of the target; pixels beyond it stay. False when memory is
// refused.
bool DrawPicture(Picture const& picture, PictureMatrix const& matrix, PixelBuffer const& target);

} // namespace platform
