// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A picture file of the resources, decoded into a buffer of power-of-two size, upside down: row 0 of the
// buffer is the bottom of the picture, as texture coordinate t = 0 wants it.
#pragma once

#include "gfx/GBuffer.h"
#include "platform/image/ImageImporter.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <vector>

class QTImage : public GBuffer
{
public:
    // The picture of that name in the resources' "Images" folder; null when there is none that can be read.
    static std::shared_ptr<QTImage> imageWithName(char const* name);

    bool SetImageWithName(char const* name);
    bool SetImageFromFSSpec(std::filesystem::path const& file);
    bool SetImageInfo();  // size, depth and type; false when the file is no picture
    bool LoadImageData(); // the file's bytes
    bool CreateImportRefFromData(std::vector<std::byte> const& data);

    // Points the importer at the buffer; scale: stretches the picture over all of it, upside down.
    bool SetImportGWorldWithScale(bool scale);

    // Decodes into a buffer of the next powers of two, at most 1024 each way, and forgets the file's bytes.
    // True also when drawing fails; the buffer then stays as it was.
    bool CreateImageWithBitdepth(int depth);

    void ReleaseImageData();
    void ReleaseImageBuffer();
    void Reset();

    platform::FourCharCode GetType() const { return m_type; }
    float GetImageWidth() const { return m_imageWidth; }   // pixels, the picture's own
    float GetImageHeight() const { return m_imageHeight; } // pixels, the picture's own
    short GetImageDepth() const { return m_imageDepth; }   // bits per pixel
    bool WasDrawn() const { return m_drawn; }

private:
    bool EnsureBuffer(platform::Size size, int depth);

    platform::FourCharCode m_type = 0;
    float m_imageWidth = 0.0F;
    float m_imageHeight = 0.0F;
    short m_imageDepth = 0;
    bool m_drawn = false;
    std::filesystem::path m_file;
    std::unique_ptr<platform::ImageImporter> m_importer;
    std::vector<std::byte> m_data;
};
