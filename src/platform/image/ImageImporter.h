// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Decodes a picture with SDL_image and draws it, scaled and flipped, into a caller's buffer.
#pragma once

#include "platform/image/PixelBuffer.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>

namespace platform
{

// Four characters, most significant first, that tell a file's type: 'JPEG', 'PNGf', 'BMPf' or 'WEBP'.
using FourCharCode = std::uint32_t;

struct ImageDescription
{
    int width = 0;  // pixels
    int height = 0; // pixels
    int depth = 0;  // bits per pixel: 8, 24 or 32
};

class ImageImporter
{
public:
    // Null for a file that cannot be read or decoded. The type is 0 for a picture of another type than those
    // above.
    static std::unique_ptr<ImageImporter> forFile(std::filesystem::path const& file);

    // An importer for bytes of that type; null for an unknown type.
    static std::unique_ptr<ImageImporter> forType(FourCharCode type);

    ~ImageImporter();
    ImageImporter(ImageImporter const&) = delete;
    ImageImporter& operator=(ImageImporter const&) = delete;

    // Decodes these bytes; false when they do not begin like a picture of the importer's type. Where the rest
    // cannot be decoded, draw() fails.
    bool setData(std::span<std::byte const> bytes);

    // All 0 before there are data.
    ImageDescription description() const;
    FourCharCode type() const { return m_type; }

    // False for a buffer without memory.
    bool setTarget(PixelBuffer const& target);

    void setMatrix(PictureMatrix const& matrix) { m_matrix = matrix; }

    // Draws over the target; false, and the target as it was, without a decoded picture or a target.
    bool draw();

private:
    struct Decoded;
    explicit ImageImporter(FourCharCode type);

    FourCharCode m_type;
    std::unique_ptr<Decoded> m_decoded; // null until there is a picture
    PixelBuffer m_target;
    PictureMatrix m_matrix;
};

} // namespace platform
