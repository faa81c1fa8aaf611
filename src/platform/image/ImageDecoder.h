// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Turns a picture's bytes into pixels. ImageImporter is the caller.
#pragma once

#include "platform/image/ImageHeader.h"
#include "platform/image/PixelSurface.h"

#include <cstddef>
#include <span>

namespace platform
{

// header: what ReadImageHeader said of the bytes. Premultiplied pixels of the size that it tells, or null.
Pixels DecodeImage(std::span<std::byte const> bytes, ImageHeader const& header);

} // namespace platform
