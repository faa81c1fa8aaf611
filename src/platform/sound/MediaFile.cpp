// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/sound/MediaFile.h"

#include "platform/base/Bundle.h"
#include "platform/base/File.h"
#include "platform/base/Log.h"

#include <SDL.h>

namespace platform
{
namespace
{

// The module stays for the rest of the run: what it made may live as long.
OpenMedia* LoadModule()
{
    auto const path = Bundle::pathForModule(QUARROW_MEDIA_MODULE);
    void* const module = path ? SDL_LoadObject(path->c_str()) : nullptr;
    void* const function = module != nullptr ? SDL_LoadFunction(module, kOpenMediaName) : nullptr;
    if (function == nullptr)
    {
        LogFormat("cannot load %s: playing without sound (%s)", QUARROW_MEDIA_MODULE,
                  path ? SDL_GetError() : "it is missing");
    }
    return reinterpret_cast<OpenMedia*>(function);
}

} // namespace

std::unique_ptr<MediaFile> MediaFile::open(std::filesystem::path const& file)
{
    static OpenMedia* const openMedia = LoadModule();
    auto const bytes = openMedia != nullptr ? ReadWholeFile(file) : std::nullopt;
    return std::unique_ptr<MediaFile>(bytes ? openMedia(bytes->data(), bytes->size()) : nullptr);
}

} // namespace platform
