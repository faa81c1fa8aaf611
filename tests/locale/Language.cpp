// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "locale/Language.h"

#include "platform/base/Locale.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace
{

constexpr char const* kVariables[] = {"LC_ALL", "LC_CTYPE", "LC_MESSAGES", "LANG", "LANGUAGE"};

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

// "de_DE.UTF-8" for "de".
std::string LocaleOf(std::string const& language)
{
    for (auto const& entry : std::filesystem::directory_iterator(QUARROW_LOCALES))
    {
        std::string const name = entry.path().filename();
        if (name.starts_with(language) && name.ends_with(".UTF-8"))
        {
            return name;
        }
    }
    return "C";
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

Spoken::Spoken(Values const& values)
{
    setenv("LOCPATH", QUARROW_LOCALES, 1);
    for (char const* const name : kVariables)
    {
        char const* const before = std::getenv(name);
        m_before[name] = before != nullptr ? std::optional<std::string>(before) : std::nullopt;
        auto const value = values.find(name);
        Set(name, value != values.end() ? std::optional(value->second) : std::nullopt);
    }
    platform::SelectLanguage();
}

Spoken::Spoken(std::string const& name) : Spoken(Values{{"LANG", LocaleOf(name)}})
{
}

Spoken::~Spoken()
{
    for (auto const& [name, value] : m_before)
    {
        Set(name.c_str(), value);
    }
    platform::SelectLanguage();
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
