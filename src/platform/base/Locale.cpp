// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// gettext answers in a language other than English only while the category of messages is set to an existing
// locale other than C. Which one hardly matters, because LANGUAGE goes before its name: so any will do where
// the user's own was never generated.
#include "platform/base/Locale.h"

#include "platform/base/CatalogueFile.h"
#include "platform/base/Log.h"

#include <libintl.h>

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <initializer_list>
#include <sstream>
#include <string_view>
#include <vector>

namespace platform
{
namespace
{

namespace fs = std::filesystem;

std::string Environment(char const* name)
{
    char const* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

std::string LocaleName()
{
    for (char const* const name : {"LC_ALL", "LC_MESSAGES", "LANG"})
    {
        std::string value = Environment(name);
        if (!value.empty())
        {
            return value;
        }
    }
    return "C";
}

bool IsPlainC(std::string_view name)
{
    return name == "C" || name == "POSIX";
}

// Locale names, the dearest first.
std::vector<std::string> Wishes()
{
    std::string const locale = LocaleName();
    std::string const languages = Environment("LANGUAGE");
    if (IsPlainC(locale) || languages.empty())
    {
        return {locale};
    }
    std::vector<std::string> wishes;
    std::istringstream list(languages);
    for (std::string wish; std::getline(list, wish, ':');)
    {
        wishes.push_back(wish);
    }
    return wishes;
}

bool MayBeInName(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

// "pt_BR" and "pt" for "pt_BR.UTF-8@euro"; none for what is no name of a locale.
std::vector<std::string> CatalogueNames(std::string const& wish)
{
    std::string const name = wish.substr(0, wish.find_first_of(".@"));
    if (name.empty() || !std::ranges::all_of(name, MayBeInName))
    {
        return {};
    }
    return {name, name.substr(0, name.find('_'))};
}

bool IsEnglish(std::string const& wish)
{
    auto const names = CatalogueNames(wish);
    return !names.empty() && (names.back() == "en" || IsPlainC(names.back()));
}

// The language of the user's choice, or "" for English, the language of the keys.
std::string ChooseLanguage(std::string const& domain, fs::path const& folder)
{
    for (std::string const& wish : Wishes())
    {
        if (IsEnglish(wish))
        {
            return "";
        }
        for (std::string const& name : CatalogueNames(wish))
        {
            fs::path const file = folder / name / "LC_MESSAGES" / (domain + ".mo");
            std::error_code error;
            if (!fs::exists(file, error))
            {
                continue;
            }
            if (IsSoundCatalogue(file))
            {
                return name;
            }
            LogFormat("The catalogue %s is damaged: the texts are in English\n", file.c_str());
            return "";
        }
    }
    return "";
}

// To the first of the locales that exists.
void SetCategory(int category, std::initializer_list<char const*> locales)
{
    for (char const* const locale : locales)
    {
        if (std::setlocale(category, locale) != nullptr)
        {
            return;
        }
    }
}

} // namespace

void SelectLanguage(std::string const& domain, std::filesystem::path const& folder)
{
    SetCategory(LC_CTYPE, {"", "C.UTF-8"});
    // Leaving a locale also makes gettext forget the answers that it keeps for it.
    std::setlocale(LC_MESSAGES, "C");
    std::string const language = ChooseLanguage(domain, folder);
    if (language.empty())
    {
        return;
    }
    setenv("LANGUAGE", language.c_str(), 1);
    bindtextdomain(domain.c_str(), folder.c_str());
    bind_textdomain_codeset(domain.c_str(), "UTF-8");
    SetCategory(LC_MESSAGES, {"", "en_US.UTF-8", "C.UTF-8"});
}

} // namespace platform
