// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/base/Bundle.h"

#include <libintl.h>
#include <SDL.h>

#include <memory>
#include <vector>

namespace platform::Bundle
{

namespace
{

namespace fs = std::filesystem;

struct SdlFree
{
    void operator()(char* memory) const { SDL_free(memory); }
};

// Beside the program, or in the installation that it belongs to.
fs::path FindResources()
{
    std::unique_ptr<char, SdlFree> const base(SDL_GetBasePath());
    fs::path const folder = base ? base.get() : "";
    std::error_code error;
    for (fs::path const& candidate : {folder / "resources", folder / QUARROW_INSTALLED_RESOURCES})
    {
        if (fs::is_directory(candidate, error))
        {
            return fs::weakly_canonical(candidate, error);
        }
    }
    return {};
}

fs::path const& Resources()
{
    static fs::path const folder = FindResources();
    return folder;
}

} // namespace

std::optional<fs::path> pathForResource(std::string const& name, std::string const& folder)
{
    fs::path const path = placeOfResource(name, folder);
    std::error_code error;
    return fs::is_regular_file(path, error) ? std::optional(path) : std::nullopt;
}

fs::path placeOfResource(std::string const& name, std::string const& folder)
{
    return Resources() / folder / name;
}

fs::path pathOfCatalogues()
{
    return Resources() / "Locale";
}

std::string localizedString(char const* english)
{
    // The empty key stands for the catalogue's own header.
    return *english != '\0' ? gettext(english) : "";
}

} // namespace platform::Bundle
