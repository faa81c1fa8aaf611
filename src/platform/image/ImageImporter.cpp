// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The size is told from the header before anything is decoded; the decoded picture is kept and drawn through
// Cairo.
#include "platform/image/ImageImporter.h"

#include "platform/base/File.h"
#include "platform/image/ImageDecoder.h"
#include "platform/image/ImageHeader.h"
#include "platform/image/PixelSurface.h"

#include <utility>

namespace platform
{
namespace
{

constexpr std::size_t kLargestFile = std::size_t{64} << 20U; // bytes

} // namespace

struct ImageImporter::Decoded
{
    ImageDescription description;
    Pixels pixels; // null until there are data
};

ImageImporter::ImageImporter(FourCharCode type) : m_type(type), m_decoded(std::make_unique<Decoded>())
{
}

ImageImporter::~ImageImporter() = default;

std::unique_ptr<ImageImporter> ImageImporter::forFile(std::filesystem::path const& file)
{
    auto const bytes = ReadWholeFile(file);
    auto const header = bytes ? ReadImageHeader(*bytes) : std::nullopt;
    if (!header || !IsUsableSize(header->description.width, header->description.height))
    {
        return nullptr;
    }
    std::unique_ptr<ImageImporter> importer(new ImageImporter(header->type));
    importer->m_decoded->description = header->description;
    return importer;
}

std::unique_ptr<ImageImporter> ImageImporter::forType(FourCharCode type)
{
    return IsKnownImageType(type) ? std::unique_ptr<ImageImporter>(new ImageImporter(type)) : nullptr;
}

bool ImageImporter::setData(std::span<std::byte const> bytes)
{
    m_decoded->pixels = nullptr;
    auto const header = bytes.size() <= kLargestFile ? ReadImageHeader(bytes) : std::nullopt;
    if (!header || header->type != m_type ||
        !IsUsableSize(header->description.width, header->description.height))
    {
        return false;
    }
    Pixels pixels = DecodeImage(bytes, *header);
    if (!pixels)
    {
        return false;
    }
    *m_decoded = {header->description, std::move(pixels)};
    return true;
}

ImageDescription ImageImporter::description() const
{
    return m_decoded->description;
}

FourCharCode ImageImporter::type() const
{
    return m_type;
}

bool ImageImporter::setTarget(PixelBuffer const& target)
{
    if (!IsUsable(target))
    {
        return false;
    }
    m_target = target;
    return true;
}

void ImageImporter::setMatrix(double scaleX, double scaleY, double translateX, double translateY)
{
    m_scaleX = scaleX;
    m_scaleY = scaleY;
    m_translateX = translateX;
    m_translateY = translateY;
}

bool ImageImporter::draw()
{
    Picture const picture{m_decoded->pixels.get(), m_decoded->description.width,
                          m_decoded->description.height};
    return DrawPicture(picture, {m_scaleX, m_scaleY, m_translateX, m_translateY}, m_target);
}

} // namespace platform
