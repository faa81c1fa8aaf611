// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "gfx/QTImage.h"

#include "math/util.h"
#include "platform/base/Bundle.h"
#include "platform/base/File.h"
#include "platform/base/Log.h"

#include <algorithm>
#include <cinttypes>
#include <cstdint>

namespace
{

constexpr unsigned kLargestSide = 1024;

float BufferSide(float imageSide)
{
    return static_cast<float>(std::min(Power2Ceiling(static_cast<unsigned>(imageSide)), kLargestSide));
}

char TypeCharacter(platform::FourCharCode type, unsigned shift)
{
    return static_cast<char>((type >> shift) & 0xFFU);
}

} // namespace

std::shared_ptr<QTImage> QTImage::imageWithName(char const* name)
{
    auto image = std::make_shared<QTImage>();
    return image->SetImageWithName(name) ? image : nullptr;
}

bool QTImage::SetImageWithName(char const* name)
{
    auto const file = platform::Bundle::pathForResource(name, "Images");
    return file && SetImageFromFSSpec(*file);
}

bool QTImage::SetImageFromFSSpec(std::filesystem::path const& file)
{
    Reset();
    m_file = file;
    return SetImageInfo();
}

bool QTImage::SetImageInfo()
{
    // Kept for CreateImageWithBitdepth(): it has decoded the picture already.
    m_importer = platform::ImageImporter::forFile(m_file);
    if (!m_importer)
    {
        return false;
    }
    platform::ImageDescription const description = m_importer->description();
    m_imageWidth = static_cast<float>(description.width);
    m_imageHeight = static_cast<float>(description.height);
    m_imageDepth = static_cast<short>(description.depth);
    m_type = m_importer->type();
    if (m_type == 0)
    {
        m_importer.reset();
        platform::LogFormat("error getting type %d", -1);
        return false;
    }
    return true;
}

bool QTImage::LoadImageData()
{
    auto data = platform::ReadWholeFile(m_file);
    if (!data)
    {
        return false;
    }
    m_data = std::move(*data);
    return true;
}

bool QTImage::CreateImportRefFromData(std::vector<std::byte> const& data)
{
    m_importer = platform::ImageImporter::forType(m_type);
    if (!m_importer)
    {
        platform::LogFormat("err: open error for data handle of type %c%c%c%c", TypeCharacter(m_type, 24),
                            TypeCharacter(m_type, 16), TypeCharacter(m_type, 8), TypeCharacter(m_type, 0));
        return false;
    }
    if (!m_importer->setData(data))
    {
        m_importer.reset();
        platform::LogFormat("err: set error = %d", -1);
        return false;
    }
    return true;
}

bool QTImage::SetImportGWorldWithScale(bool scale)
{
    if (!m_importer || !m_importer->setTarget(Pixels()))
    {
        platform::LogFormat("err: GraphicsImportSetGWorld(%" PRIxPTR ", %" PRIxPTR ")",
                            reinterpret_cast<std::uintptr_t>(m_importer.get()),
                            reinterpret_cast<std::uintptr_t>(GetPixels()));
        return false;
    }
    if (scale)
    {
        double const scaleX = static_cast<double>(GetWidth()) / m_imageWidth;
        double const scaleY = static_cast<double>(GetHeight()) / m_imageHeight;
        m_importer->setMatrix({scaleX, -scaleY, 0.0, GetHeight()});
    }
    return true;
}

bool QTImage::CreateImageWithBitdepth(int depth)
{
    bool const ready = EnsureBuffer({BufferSide(m_imageWidth), BufferSide(m_imageHeight)}, depth) &&
                       (!m_data.empty() || LoadImageData()) &&
                       (m_importer || CreateImportRefFromData(m_data)) && SetImportGWorldWithScale(true);
    if (!ready)
    {
        return false;
    }
    m_drawn = m_importer->draw();
    ReleaseImageData();
    return true;
}

bool QTImage::EnsureBuffer(platform::Size size, int depth)
{
    bool const fits =
        CreateCGContext() && GetWidth() == size.width && GetHeight() == size.height && GetBitDepth() == depth;
    if (fits)
    {
        return true;
    }
    ReleaseImageBuffer();
    return CreateImageBuffer(size, depth);
}

void QTImage::ReleaseImageData()
{
    m_importer.reset();
    m_data = std::vector<std::byte>();
}

void QTImage::ReleaseImageBuffer()
{
    if (GetPixels() != nullptr)
    {
        ReleasePixels();
        m_drawn = false;
    }
}

void QTImage::Reset()
{
    ReleaseImageData();
    ReleaseImageBuffer();
}
