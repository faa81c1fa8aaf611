// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Pictures and their JPEG files.
#include "images/Picture.h"

#include "common/Maths.h"

#include <jpeglib.h>

#include <algorithm>
#include <cstdio>
#include <memory>

namespace maker
{

namespace
{

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

File Open(std::string const& path, char const* mode)
{
    return {std::fopen(path.c_str(), mode), &std::fclose};
}

unsigned char ToByte(double value)
{
    return static_cast<unsigned char>(std::clamp(value * 255.0 + 0.5, 0.0, 255.0));
}

std::vector<unsigned char> RowBytes(Picture const& picture, int y)
{
    std::vector<unsigned char> row;
    for (int x = 0; x < picture.Width(); ++x)
    {
        Vector const& pixel = picture.At(x, y);
        row.insert(row.end(), {ToByte(pixel.x), ToByte(pixel.y), ToByte(pixel.z)});
    }
    return row;
}

void Describe(jpeg_compress_struct& info, Picture const& picture, int quality)
{
    info.image_width = static_cast<JDIMENSION>(picture.Width());
    info.image_height = static_cast<JDIMENSION>(picture.Height());
    info.input_components = 3;
    info.in_color_space = JCS_RGB;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, quality, TRUE);
    info.optimize_coding = TRUE;
    // The slow integer transform gives the same numbers with and without vector instructions.
    info.dct_method = JDCT_ISLOW;
    for (int i = 0; i < 3; ++i)
    {
        info.comp_info[i].h_samp_factor = info.comp_info[i].v_samp_factor = 1;
    }
}

} // namespace

Picture::Picture(int width, int height)
    : m_width(width),
      m_height(height),
      m_stride(static_cast<std::size_t>(width)),
      m_pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height))
{
}

Vector Picture::Sample(double u, double v) const
{
    double const x = u * m_width - 0.5;
    double const y = v * m_height - 0.5;
    double const fx = x - std::floor(x);
    double const fy = y - std::floor(y);
    int const x0 = (static_cast<int>(std::floor(x)) % m_width + m_width) % m_width;
    int const y0 = (static_cast<int>(std::floor(y)) % m_height + m_height) % m_height;
    int const x1 = (x0 + 1) % m_width;
    int const y1 = (y0 + 1) % m_height;
    return Mixed(Mixed(At(x0, y0), At(x1, y0), fx), Mixed(At(x0, y1), At(x1, y1), fx), fy);
}

double ToDisplay(double linear)
{
    return linear <= 0.0031308 ? 12.92 * linear : 1.055 * Power(linear, 1.0 / 2.4) - 0.055;
}

bool WriteJpeg(Picture const& picture, std::string const& path, int quality)
{
    File const file = Open(path, "wb");
    if (!file)
    {
        return false;
    }
    jpeg_compress_struct info = {};
    jpeg_error_mgr errors = {};
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    jpeg_stdio_dest(&info, file.get());
    Describe(info, picture, quality);
    jpeg_start_compress(&info, TRUE);
    for (int y = 0; y < picture.Height(); ++y)
    {
        std::vector<unsigned char> row = RowBytes(picture, y);
        JSAMPROW rows = row.data();
        jpeg_write_scanlines(&info, &rows, 1);
    }
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    return std::fflush(file.get()) == 0 && std::ferror(file.get()) == 0;
}

bool ReadJpeg(std::string const& path, Picture& picture)
{
    File const file = Open(path, "rb");
    if (!file)
    {
        return false;
    }
    jpeg_decompress_struct info = {};
    jpeg_error_mgr errors = {};
    info.err = jpeg_std_error(&errors);
    jpeg_create_decompress(&info);
    jpeg_stdio_src(&info, file.get());
    jpeg_read_header(&info, TRUE);
    info.out_color_space = JCS_RGB;
    info.dct_method = JDCT_ISLOW;
    jpeg_start_decompress(&info);
    picture = Picture(static_cast<int>(info.output_width), static_cast<int>(info.output_height));
    std::vector<unsigned char> bytes(std::size_t{3} * info.output_width);
    for (int y = 0; y < picture.Height(); ++y)
    {
        JSAMPROW row = bytes.data();
        jpeg_read_scanlines(&info, &row, 1);
        for (int x = 0; x < picture.Width(); ++x, row += 3)
        {
            picture.At(x, y) = {row[0] / 255.0, row[1] / 255.0, row[2] / 255.0};
        }
    }
    jpeg_finish_decompress(&info);
    jpeg_destroy_decompress(&info);
    return true;
}

} // namespace maker
