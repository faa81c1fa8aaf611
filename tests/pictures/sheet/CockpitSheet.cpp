// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// cockpit_sheet FILE WIDTH HEIGHT: draws the cockpit in its six situations, each in a window of that size,
// side by side in pairs into a JPEG.
#include "core/Game.h"
#include "pictures/RaceScene.h"
#include "pictures/SceneWindow.h"
#include "settings/GameSettings.h"

#include <SDL.h>
#include <SDL_image.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <memory>

namespace
{

constexpr int kColumns = 2;
constexpr int kQuality = 90;

using Surface = std::unique_ptr<SDL_Surface, decltype(&SDL_FreeSurface)>;

void Paste(Picture const& picture, int left, int top, SDL_Surface& sheet)
{
    for (int y = 0; y < picture.height(); ++y)
    {
        auto* const row = static_cast<std::uint8_t*>(sheet.pixels) + (top + y) * sheet.pitch;
        std::memcpy(row + left * 3, picture.row(y), static_cast<std::size_t>(picture.width()) * 3);
    }
}

bool DrawSheet(char const* file, int width, int height)
{
    SceneWindow window(width, height);
    GameSettings::Initialize();
    Game::Init(width, height); // sets the fixed OpenGL state
    std::unique_ptr<Game> const game(Game::pGame);

    auto const& situations = CockpitSituations();
    int const rows = (static_cast<int>(situations.size()) + kColumns - 1) / kColumns;
    Surface const sheet(
        SDL_CreateRGBSurfaceWithFormat(0, kColumns * width, rows * height, 24, SDL_PIXELFORMAT_RGB24),
        SDL_FreeSurface);
    for (int i = 0; sheet && i < static_cast<int>(situations.size()); ++i)
    {
        RaceScene scene;
        situations[static_cast<std::size_t>(i)].arrange(scene);
        Paste(scene.Draw(window), i % kColumns * width, i / kColumns * height, *sheet);
    }
    return sheet && IMG_SaveJPG(sheet.get(), file, kQuality) == 0;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 4)
    {
        std::fputs("usage: cockpit_sheet FILE WIDTH HEIGHT\n", stderr);
        return 2;
    }
    try
    {
        if (DrawSheet(argv[1], std::atoi(argv[2]), std::atoi(argv[3])))
        {
            return 0;
        }
        std::fprintf(stderr, "cockpit_sheet: can't write %s\n", argv[1]);
    }
    catch (std::exception const& problem)
    {
        std::fprintf(stderr, "cockpit_sheet: %s\n", problem.what());
    }
    return 1;
}
