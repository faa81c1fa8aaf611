// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A picture in linear or display light, row by row from the top, and its way from and to JPEG files.
#pragma once

#include "common/Vector.h"

#include <string>
#include <vector>

namespace maker
{

class Picture
{
public:
    Picture(int width, int height);

    int Width() const { return m_width; }
    int Height() const { return m_height; }

    // x and y must lie inside.
    Vector& At(int x, int y)
    {
        return m_pixels[static_cast<std::size_t>(y) * m_stride + static_cast<std::size_t>(x)];
    }
    Vector const& At(int x, int y) const { return const_cast<Picture*>(this)->At(x, y); }

    // The colour at u, v (0 to 1 across the picture, v downwards), interpolated between the four nearest
    // pixels and repeated beyond the edges, as the game's textures are.
    Vector Sample(double u, double v) const;

private:
    int m_width;
    int m_height;
    std::size_t m_stride;
    std::vector<Vector> m_pixels;
};

// A picture with the mean of the colours at three by three places of each pixel; colourAt(x, y) takes pixels.
template <class ColourAt>
Picture Sampled(int width, int height, ColourAt const& colourAt)
{
    constexpr int kSamples = 3;
    Picture picture(width, height);
    for (int y = 0; y < height; ++y)
    {
        for (int x = 0; x < width; ++x)
        {
            Vector sum;
            for (int i = 0; i < kSamples * kSamples; ++i)
            {
                int const row = i / kSamples;
                int const column = i % kSamples;
                sum = sum + colourAt(x + (column + 0.5) / kSamples, y + (row + 0.5) / kSamples);
            }
            picture.At(x, y) = sum * (1.0 / (kSamples * kSamples));
        }
    }
    return picture;
}

// Linear light (0 to 1) to the display's value (0 to 1): the sRGB curve.
double ToDisplay(double linear);

// Writes display values (0 to 1, clipped) with every colour at full resolution. False when the file can't be
// written.
bool WriteJpeg(Picture const& picture, std::string const& path, int quality);

// False when the file is missing; the picture is then as it was. A file that is no JPEG ends the program.
bool ReadJpeg(std::string const& path, Picture& picture);

} // namespace maker
