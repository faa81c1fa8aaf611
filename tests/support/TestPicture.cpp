// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "support/TestPicture.h"

#include <unistd.h>

#include <fstream>
#include <vector>

namespace
{

class LittleEndian
{
public:
    void u16(std::uint32_t value)
    {
        m_bytes.push_back(static_cast<char>(value & 0xFFU));
        m_bytes.push_back(static_cast<char>((value >> 8U) & 0xFFU));
    }
    void u32(std::uint32_t value)
    {
        u16(value & 0xFFFFU);
        u16(value >> 16U);
    }
    void save(std::filesystem::path const& file) const
    {
        std::ofstream(file, std::ios::binary)
            .write(m_bytes.data(), static_cast<std::streamsize>(m_bytes.size()));
    }

private:
    std::vector<char> m_bytes;
};

constexpr std::uint32_t kFileHeader = 14;
constexpr std::uint32_t kInfoHeader = 108; // version 4: the first with a mask for alpha
constexpr std::uint32_t kBitFields = 3;

void WriteHeaders(LittleEndian& out, std::uint32_t width, std::uint32_t height)
{
    out.u16(0x4D42); // "BM"
    out.u32(kFileHeader + kInfoHeader + width * height * 4);
    out.u32(0);
    out.u32(kFileHeader + kInfoHeader);

    out.u32(kInfoHeader);
    out.u32(width);
    out.u32(height);
    out.u16(1);  // plane
    out.u16(32); // bits per pixel
    out.u32(kBitFields);
    out.u32(width * height * 4);
    out.u32(2835); // pixels per metre
    out.u32(2835);
    out.u32(0);
    out.u32(0);
    for (std::uint32_t const mask : {0x00FF0000U, 0x0000FF00U, 0x000000FFU, 0xFF000000U})
    {
        out.u32(mask);
    }
    out.u32(0x73524742); // sRGB, for which end points and gammas are ignored
    for (int i = 0; i < 12; ++i)
    {
        out.u32(0);
    }
}

std::filesystem::path NewFile()
{
    static int count = 0;
    ++count;
    return std::filesystem::temp_directory_path() /
           ("quarrow-test-" + std::to_string(getpid()) + "-" + std::to_string(count) + ".bmp");
}

} // namespace

TestPicture::TestPicture(int width, int height, Painter const& painter) : m_file(NewFile())
{
    LittleEndian out;
    WriteHeaders(out, static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height));
    for (int y = height - 1; y >= 0; --y) // the file's rows run upwards
    {
        for (int x = 0; x < width; ++x)
        {
            out.u32(painter(x, y));
        }
    }
    out.save(m_file);
}

TestPicture::~TestPicture()
{
    std::error_code ignored;
    std::filesystem::remove(m_file, ignored);
}

void TestPicture::truncate(std::uintmax_t bytes) const
{
    std::filesystem::resize_file(m_file, bytes);
}

TestPicture::Painter Plain(TestPicture::Colour colour)
{
    return [colour](int, int) { return colour; };
}
