// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// What the tests of the player's language share: the game in a locale that the build has made, and the
// languages and texts of the game.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace language
{

using Values = std::map<std::string, std::string>;

// The game in the language that an environment asks for; as before when the object goes.
class Spoken
{
public:
    // Of the variables that name the locale only these are set.
    explicit Spoken(Values const& values);

    // In a language of po/LINGUAS ("de", "pt_BR").
    explicit Spoken(std::string const& name);

    ~Spoken();
    Spoken(Spoken const&) = delete;
    Spoken& operator=(Spoken const&) = delete;

private:
    std::map<std::string, std::optional<std::string>> m_before;
};

// Those of po/LINGUAS.
std::vector<std::string> Shipped();

// The English texts, from the template.
std::vector<std::string> Keys();

} // namespace language
