// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Menu texts in the player's language. The English text is the key; xgettext collects the literals.
#pragma once

#include <string>

class Menu;

// Marks a text for the catalogue that is looked up elsewhere.
constexpr char const* MarkForCatalogue(char const* english)
{
    return english;
}

// Sets a menu's item to the localised text.
void SetLocalizedItem(Menu& menu, int item, char const* english);

// The localised text of an English one with int conversions, filled in. A translation whose conversions
// differ from the English ones is not used.
std::string LocalizedFormat(char const* english, int first, int second);
std::string LocalizedFormat(char const* english, int first, int second, int third);

// True when both texts hold the same printf conversions in the same order.
bool HaveSameConversions(std::string const& a, std::string const& b);
