// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// What a player sees of a menu (an item's text, place and look), and the mouse and keys to use it.
#pragma once

#include "platform/input/Event.h"
#include "ui/Menu.h"

#include <string>
#include <vector>

class Overlay;

namespace probe
{

struct Box
{
    int x = 0; // from the window's top left
    int y = 0;
    int width = 0;
    int height = 0;
    bool operator==(Box const&) const = default;
};

std::string TextOf(Overlay const& overlay);
std::string TextOf(Menu const& menu, int item);
std::vector<std::string> TextsOf(Menu const& menu);
float FontSizeOf(Overlay const& overlay);
std::string FontOf(Overlay const& overlay);

Box BoxOf(Overlay const& overlay);
Box BoxOf(Menu const& menu, int item);

// White text in a white frame, and grey text without one.
bool IsHighlighted(Menu const& menu, int item);
bool IsNormal(Menu const& menu, int item);

// The current menu, when it is of that class.
template <typename Kind>
Kind* Current()
{
    return dynamic_cast<Kind*>(Menu::GetCurrent());
}

// Draws the current menu into a window of 800 x 600, so that it is laid out and measured.
constexpr int kWidth = 800;
constexpr int kHeight = 600;
void RenderCurrent();

// Makes a new menu of that class the current one, drawn.
template <typename Kind, typename... Arguments>
Kind& Show(Arguments... arguments)
{
    auto* const menu = new Kind(arguments...);
    Menu::SetCurrent(menu);
    RenderCurrent();
    return *menu;
}

// Events for the current menu. Items are hit in their middle; points are pixels from the bottom left.
void Send(platform::Event const& event);
void MoveOnto(int item);
void MoveTo(int x, int y);
void ReleaseAt(int x, int y);
void Click(int item);
void Type(char16_t character);
void LetGo(char16_t character); // releases the key

} // namespace probe
