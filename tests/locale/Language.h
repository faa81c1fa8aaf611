// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// What the tests of the player's language share: an environment of their own, and the languages of the game.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace language
{

using Values = std::map<std::string, std::string>;

// The variables that name the user's locale, set for the object's lifetime. All others of them are unset.
class Environment
{
public:
    explicit Environment(Values const& values);
    ~Environment();
    Environment(Environment const&) = delete;
    Environment& operator=(Environment const&) = delete;

private:
    std::map<std::string, std::optional<std::string>> m_before;
};

// The game in a language ("de", "pt_BR"), as for a player whose system has not generated that locale. Back in
// English when the object goes.
class Spoken
{
public:
    explicit Spoken(std::string const& name);
    ~Spoken();
    Spoken(Spoken const&) = delete;
    Spoken& operator=(Spoken const&) = delete;

private:
    Environment m_environment;
};

// Makes the game's lookups answer from the folder's catalogues for the environment as it is.
void Select(std::filesystem::path const& folder);

// The folder of the catalogues that the build has made.
std::filesystem::path Catalogues();

// A new folder for catalogues of a test's own, gone with the object.
class Folder
{
public:
    Folder();
    ~Folder();
    Folder(Folder const&) = delete;
    Folder& operator=(Folder const&) = delete;

    std::filesystem::path const& path() const { return m_path; }

    // The catalogue of a language in it; its folder exists.
    std::filesystem::path Catalogue(std::string const& name) const;

private:
    std::filesystem::path m_path;
};

// Those of po/LINGUAS.
std::vector<std::string> Shipped();

// The English texts, from the template.
std::vector<std::string> Keys();

} // namespace language
