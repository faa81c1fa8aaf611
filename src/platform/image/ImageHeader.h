// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A picture's type, size and depth, told from its first bytes without decoding it: an absurd size is refused
// before it costs memory. ImageImporter is the caller.
#pragma once

#include "platform/image/ImageImporter.h"

#include <optional>

namespace platform
{

struct ImageHeader
{
    FourCharCode type = 0;
    ImageDescription description;
    bool invertedInk = false; // a four-colour JPEG that stores white paper as 255
};

// Nothing for bytes that no decoder knows, or that end before the size is told.
std::optional<ImageHeader> ReadImageHeader(std::span<std::byte const> bytes);

// True for a type that ReadImageHeader can answer.
bool IsKnownImageType(FourCharCode type);

} // namespace platform
