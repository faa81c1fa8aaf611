// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "support/TestPicture.h"

#include <SDL.h>
#include <unistd.h>

#include <memory>

namespace
{

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
    std::unique_ptr<SDL_Surface, decltype(&SDL_FreeSurface)> const surface(
        SDL_CreateRGBSurfaceWithFormat(0, width, height, 32, SDL_PIXELFORMAT_ARGB8888), SDL_FreeSurface);
    auto* pixel = static_cast<Colour*>(surface->pixels);
    for (int y = 0; y < height; ++y)
    {
        for (int x = 0; x < width; ++x)
        {
            *pixel++ = painter(x, y);
        }
    }
    SDL_SaveBMP(surface.get(), m_file.c_str());
}

TestPicture::~TestPicture()
{
    std::error_code ignored;
    std::filesystem::remove(m_file, ignored);
}

TestPicture::Painter Plain(TestPicture::Colour colour)
{
    return [colour](int, int) { return colour; };
}
