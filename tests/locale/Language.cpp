// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "locale/Language.h"

#include "platform/base/Bundle.h"
#include "platform/base/Locale.h"

#include <cstdlib>
#include <fstream>

namespace
{

constexpr char const* kVariables[] = {"LC_ALL", "LC_MESSAGES", "LANG", "LANGUAGE"};

void Set(char const* name, std::optional<std::string> const& value)
{
    if (value)
    {
        setenv(name, value->c_str(), 1);
    }
    else
    {
        unsetenv(name);
    }
}

// The text between a line's first and last quote, \" read as a quote.
std::string Quoted(std::string const& line)
{
    auto const first = line.find('"') + 1;
    std::string text = line.substr(first, line.rfind('"') - first);
    for (auto escape = text.find("\\\""); escape != std::string::npos; escape = text.find("\\\"", escape + 1))
    {
        text.erase(escape, 1);
    }
    return text;
}

} // namespace

namespace language
{

Environment::Environment(Values const& values)
{
    for (char const* const name : kVariables)
    {
        char const* const before = std::getenv(name);
        m_before[name] = before != nullptr ? std::optional<std::string>(before) : std::nullopt;
        auto const value = values.find(name);
        Set(name, value != values.end() ? std::optional(value->second) : std::nullopt);
    }
}

Environment::~Environment()
{
    for (auto const& [name, value] : m_before)
    {
        Set(name.c_str(), value);
    }
}

Spoken::Spoken(std::string const& name) : m_environment(Values{{"LANG", name + ".UTF-8"}})
{
    Select(Catalogues());
}

Spoken::~Spoken()
{
    Environment const english(Values{{"LANG", "C"}});
    Select(Catalogues());
}

void Select(std::filesystem::path const& folder)
{
    // The first look-up selects the program's own catalogues.
    static std::string const bound = platform::Bundle::localizedString("");
    platform::SelectLanguage("quarrow", folder);
}

std::filesystem::path Catalogues()
{
    return QUARROW_CATALOGUES;
}

Folder::Folder()
{
    std::string name = std::filesystem::temp_directory_path() / "quarrow-XXXXXX";
    m_path = mkdtemp(name.data());
}

Folder::~Folder()
{
    std::error_code error;
    std::filesystem::remove_all(m_path, error);
}

std::filesystem::path Folder::Catalogue(std::string const& name) const
{
    std::filesystem::path const folder = m_path / name / "LC_MESSAGES";
    std::filesystem::create_directories(folder);
    return folder / "quarrow.mo";
}

std::vector<std::string> Shipped()
{
    std::vector<std::string> names;
    std::ifstream file(QUARROW_SOURCE_DIR "/po/LINGUAS");
    for (std::string name; file >> name;)
    {
        names.push_back(name);
    }
    return names;
}

std::vector<std::string> Keys()
{
    std::vector<std::string> keys;
    std::ifstream file(QUARROW_SOURCE_DIR "/po/quarrow.pot");
    for (std::string line; std::getline(file, line);)
    {
        if (line.starts_with("msgid ") && !Quoted(line).empty())
        {
            keys.push_back(Quoted(line));
        }
    }
    return keys;
}

} // namespace language
