// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The application's resources and its texts in the player's language.
// Resources lie in the folder "resources" beside the program (build tree) or in "share/quarrow" of the
// installation that the program belongs to.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace platform::Bundle
{

// The path of the file of that name in a sub-folder of the resources ("Images", "Icons", "Sounds", "Music",
// "Interface"). Nothing when there is none.
std::optional<std::filesystem::path> pathForResource(std::string const& name, std::string const& folder);

// Where that file is, or would be if it were not missing.
std::filesystem::path placeOfResource(std::string const& name, std::string const& folder);

// The folder of the message catalogues.
std::filesystem::path pathOfCatalogues();

// The text in the language that SelectLanguage has set; the English text is the key and the fallback.
std::string localizedString(char const* english);

} // namespace platform::Bundle
