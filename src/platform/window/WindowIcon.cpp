// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/window/WindowIcon.h"

#include "platform/base/Bundle.h"
#include "platform/base/Log.h"

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

constexpr char const* kName = "quarrow-64.png";

Surface LoadIcon()
{
    auto const file = Bundle::pathForResource(kName, "Icons");
    Surface icon = file ? Surface(IMG_Load(file->c_str())) : nullptr;
    if (!icon)
    {
        LogFormat("The window's icon %s cannot be used", kName);
    }
    return icon;
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
