// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The credits: a static page of lines with one way back.
#include "ui/MenuGame.h"
#include "ui/MenuText.h"

#include <iterator>

namespace
{

constexpr char const* kFontName = "Helvetica";
constexpr int kFontSize = 13;
constexpr int kItemCount = 17; // the last stays empty
constexpr int kBack = 15;

// Marks a text for the catalogue where it is not looked up at once.
#define MARK_FOR_CATALOGUE(text) text

constexpr char const* kLines[] = {
    MARK_FOR_CATALOGUE("Conceived, designed and programmed by the Quarrow team (MIT licence)"),
    MARK_FOR_CATALOGUE(" * News and updates: www.quarrow.example"),
    MARK_FOR_CATALOGUE("Sound effects: synthesised by the game's own programs (CC0)"),
    MARK_FOR_CATALOGUE("Icon: drawn by the Quarrow team (CC0)"),
    MARK_FOR_CATALOGUE("Thanks also to those who made the libraries under the game:"),
    MARK_FOR_CATALOGUE("     Mesa and GLU for OpenGL, Pango and Cairo for text (MIT, SGI-B, LGPL)"),
    MARK_FOR_CATALOGUE("     SDL and SDL_image for window, full screen, input and pictures (zlib)"),
    MARK_FOR_CATALOGUE("     FFmpeg and OpenAL Soft for music and sound (LGPL)"),
    MARK_FOR_CATALOGUE("     toml++ and GNU gettext for settings and languages (MIT, LGPL), and all who answer in their forums"),
    MARK_FOR_CATALOGUE("Music: composed and rendered by the game's own programs, by the Quarrow team (CC0)"),
    MARK_FOR_CATALOGUE("     'Sable', the Quarrow team, music@quarrow.example"),
    MARK_FOR_CATALOGUE("     'Electro0032', the Quarrow team, music@quarrow.example"),
    MARK_FOR_CATALOGUE("     'SerialK', the Quarrow team, music@quarrow.example"),
    MARK_FOR_CATALOGUE("     'Aai_Tookai', the Quarrow team, music@quarrow.example"),
    MARK_FOR_CATALOGUE("Thank you for playing!"),
    MARK_FOR_CATALOGUE("Back to Main Menu"),
};

#undef MARK_FOR_CATALOGUE

} // namespace

MenuCredits::MenuCredits() : Menu(0, 0, kItemCount, kFontName, kFontSize)
{
    static_assert(std::size(kLines) == kBack + 1);
    int item = 0;
    for (char const* line : kLines)
    {
        SetLocalizedItem(*this, item, line);
        ++item;
    }
}

bool MenuCredits::MouseUp(int item)
{
    if (item != kBack)
    {
        return false;
    }
    SetCurrent(new MenuMain);
    return true;
}

bool MenuCredits::DoesItemReactToMouse(int item) const
{
    return item == kBack;
}

// A left-aligned column instead of the centred one of the other menus.
void MenuCredits::Reposition(int width, int height)
{
    SetOffset(width / 10, height / 6);
    RememberLayout(width, height);
}
