// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Decodes a picture and draws it, scaled and flipped, into a caller's buffer. QTImage is the caller.
#pragma once

#include "platform/image/PixelBuffer.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>

namespace platform
{

// Four characters, most significant first, that tell a file's type: 'JPEG', 'PNGf', 'BMPf', 'WEBP'.
// Not GIF and TIFF: over some broken files of a few bytes their decoders ask for gigabytes.
using FourCharCode = std::uint32_t;

struct ImageDescription
{
    int width = 0;  // pixels
    int height = 0; // pixels
    int depth = 0;  // bits per pixel as stored: 8, 24 or 32
};

class ImageImporter
{
public:
    // Null for a file that cannot be read or decoded.
    static std::unique_ptr<ImageImporter> forFile(std::filesystem::path const& file);

    // An importer for bytes of that type; null for a type that no decoder knows.
    static std::unique_ptr<ImageImporter> forType(FourCharCode type);

    ~ImageImporter();
    ImageImporter(ImageImporter const&) = delete;
    ImageImporter& operator=(ImageImporter const&) = delete;

    // Decodes from these bytes from now on; false when they are no picture of the importer's type.
    bool setData(std::span<std::byte const> bytes);

    ImageDescription description() const;
    FourCharCode type() const;

    // False for a buffer without memory.
    bool setTarget(PixelBuffer const& target);

    // A point (x, y) of the picture goes to (x * scaleX + translateX, y * scaleY + translateY) of the target;
    // identity at first.
    void setMatrix(double scaleX, double scaleY, double translateX, double translateY);

    // Draws over the target; false, and the target as it was, without data or target.
    bool draw();

private:
    struct Decoded;
    explicit ImageImporter(FourCharCode type);

    FourCharCode m_type;
    std::unique_ptr<Decoded> m_decoded;
    PixelBuffer m_target;
    double m_scaleX = 1.0;
    double m_scaleY = 1.0;
    double m_translateX = 0.0;
    double m_translateY = 0.0;
};

} // namespace platform
