// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// One small reader for each file type.
#include "platform/image/ImageHeader.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace platform
{
namespace
{

// Bytes by offset; what lies beyond the end reads as 0 and is remembered.
class Reader
{
public:
    explicit Reader(std::span<std::byte const> bytes)
        : m_bytes(bytes),
          m_text(reinterpret_cast<char const*>(bytes.data()), bytes.size())
    {
    }

    bool overran() const { return m_overran; }

    std::uint32_t u8(std::size_t offset)
    {
        if (offset >= m_bytes.size())
        {
            m_overran = true;
            return 0;
        }
        return std::to_integer<std::uint32_t>(m_bytes[offset]);
    }
    std::uint32_t big16(std::size_t offset) { return (u8(offset) << 8U) | u8(offset + 1); }
    std::uint32_t big32(std::size_t offset) { return (big16(offset) << 16U) | big16(offset + 2); }
    std::uint32_t little16(std::size_t offset) { return u8(offset) | (u8(offset + 1) << 8U); }
    std::uint32_t little24(std::size_t offset) { return little16(offset) | (u8(offset + 2) << 16U); }
    std::uint32_t little32(std::size_t offset) { return little16(offset) | (little16(offset + 2) << 16U); }

    bool has(std::size_t offset, std::string_view text) const
    {
        return m_text.size() >= offset && m_text.substr(offset).starts_with(text);
    }
    bool hasBeyond(std::size_t offset, std::string_view text) const
    {
        return m_text.find(text, offset) != std::string_view::npos;
    }

private:
    std::span<std::byte const> m_bytes;
    std::string_view m_text;
    bool m_overran = false;
};

int DepthOfChannels(std::uint32_t channels)
{
    constexpr std::array<int, 5> kDepths{8, 8, 32, 24, 32};
    return kDepths.at(std::min<std::uint32_t>(channels, 4));
}

// A size that does not fit an int is as absurd as 0.
ImageDescription Describe(std::uint32_t width, std::uint32_t height, int depth)
{
    constexpr std::uint32_t kMost = 0x7FFFFFFFU;
    return {width > kMost ? 0 : static_cast<int>(width), height > kMost ? 0 : static_cast<int>(height),
            depth};
}

void ReadPng(Reader& reader, ImageHeader& header)
{
    constexpr std::array<int, 7> kDepthOfColorType{8, 8, 24, 8, 32, 8, 32};
    std::uint32_t const colorType = std::min(reader.u8(25), 6U);
    header.description = Describe(reader.big32(16), reader.big32(20), kDepthOfColorType.at(colorType));
}

bool IsStartOfFrame(std::uint32_t marker)
{
    bool const isTable = marker == 0xC4 || marker == 0xC8 || marker == 0xCC;
    return marker >= 0xC0 && marker <= 0xCF && !isTable;
}

bool StandsAlone(std::uint32_t marker)
{
    return marker == 0x01 || (marker >= 0xD0 && marker <= 0xD8);
}

using namespace std::string_view_literals;
constexpr std::string_view kEndOfImage = "\xFF\xD9"sv;

void ReadJpeg(Reader& reader, ImageHeader& header)
{
    std::size_t offset = 2;
    while (!reader.overran())
    {
        std::uint32_t const marker = reader.u8(offset + 1);
        if (reader.u8(offset) != 0xFF || marker == 0xFF || StandsAlone(marker))
        {
            offset += (marker == 0xFF || reader.u8(offset) != 0xFF) ? 1 : 2;
            continue;
        }
        if (IsStartOfFrame(marker))
        {
            // The decoder paints what a cut-off file lacks in grey and calls it a success; such a file has no
            // size here.
            if (!reader.hasBeyond(offset, kEndOfImage))
            {
                return;
            }
            header.description = Describe(reader.big16(offset + 7), reader.big16(offset + 5),
                                          DepthOfChannels(reader.u8(offset + 9)));
            return;
        }
        header.invertedInk = header.invertedInk || (marker == 0xEE && reader.has(offset + 4, "Adobe"));
        offset += 2 + std::max(reader.big16(offset + 2), 2U);
    }
}

int DepthOfBits(std::uint32_t bits)
{
    return bits <= 8 ? 8 : (bits <= 24 ? 24 : 32);
}

void ReadBmp(Reader& reader, ImageHeader& header)
{
    if (reader.little32(14) < 40)
    {
        header.description =
            Describe(reader.little16(18), reader.little16(20), DepthOfBits(reader.little16(24)));
        return;
    }
    // A negative height means rows from the top.
    std::uint32_t const height = reader.little32(22);
    bool const isNegative = (height & 0x80000000U) != 0;
    header.description =
        Describe(reader.little32(18), isNegative ? ~height + 1U : height, DepthOfBits(reader.little16(28)));
}

void ReadWebp(Reader& reader, ImageHeader& header)
{
    if (!reader.has(8, "WEBP"))
    {
        return; // a sound or a film
    }
    if (reader.has(12, "VP8X"))
    {
        bool const hasAlpha = (reader.u8(20) & 0x10U) != 0;
        header.description = Describe(reader.little24(24) + 1, reader.little24(27) + 1, hasAlpha ? 32 : 24);
    }
    else if (reader.has(12, "VP8L"))
    {
        std::uint32_t const bits = reader.little32(21);
        bool const hasAlpha = (bits & 0x10000000U) != 0;
        header.description =
            Describe((bits & 0x3FFFU) + 1, ((bits >> 14U) & 0x3FFFU) + 1, hasAlpha ? 32 : 24);
    }
    else
    {
        header.description = Describe(reader.little16(26) & 0x3FFFU, reader.little16(28) & 0x3FFFU, 24);
    }
}

struct Format
{
    FourCharCode type;
    std::string_view magic; // the file's first bytes
    void (*read)(Reader&, ImageHeader&);
};

constexpr FourCharCode Code(char const (&text)[5])
{
    FourCharCode code = 0;
    for (int i = 0; i < 4; ++i)
    {
        code = (code << 8U) | static_cast<unsigned char>(text[i]);
    }
    return code;
}

constexpr std::array<Format, 4> kFormats{{
    {Code("JPEG"), "\xFF\xD8\xFF"sv, ReadJpeg},
    {Code("PNGf"), "\x89PNG\r\n\x1A\n"sv, ReadPng},
    {Code("WEBP"), "RIFF"sv, ReadWebp},
    {Code("BMPf"), "BM"sv, ReadBmp},
}};

} // namespace

std::optional<ImageHeader> ReadImageHeader(std::span<std::byte const> bytes)
{
    Reader reader(bytes);
    auto const format = std::find_if(kFormats.begin(), kFormats.end(),
                                     [&](Format const& candidate) { return reader.has(0, candidate.magic); });
    if (format == kFormats.end())
    {
        return std::nullopt;
    }
    ImageHeader header;
    header.type = format->type;
    format->read(reader, header);
    bool const hasSize = header.description.width > 0 && header.description.height > 0;
    return !reader.overran() && hasSize ? std::optional(header) : std::nullopt;
}

bool IsKnownImageType(FourCharCode type)
{
    return std::any_of(kFormats.begin(), kFormats.end(),
                       [&](Format const& format) { return format.type == type; });
}

} // namespace platform
