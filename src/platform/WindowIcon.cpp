// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/WindowIcon.h"

#include "platform/Bundle.h"

#include <SDL.h>
#include <SDL_image.h>

#include <memory>

namespace platform
{

namespace
{

struct SurfaceDeleter
{
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};
using Surface = std::unique_ptr<SDL_Surface, SurfaceDeleter>;

Surface LoadIcon()
{
    auto const file = Bundle::pathForResource("quarrow-64.png", "Icons");
    return Surface(file ? IMG_Load(file->string().c_str()) : nullptr);
}

} // namespace

void SetWindowIcon(SDL_Window* window)
{
    static Surface const icon = LoadIcon();
    if (icon)
    {
        SDL_SetWindowIcon(window, icon.get());
    }
}

} // namespace platform
