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

constexpr char const* kLines[] = {
    MarkForCatalogue("Conceived, designed and programmed by the Quarrow team (MIT licence)"),
    // Translators: keep the blank, the asterisk and the blank.
    MarkForCatalogue(" * News and updates: www.quarrow.example"),
    MarkForCatalogue("Sound effects: synthesised by the game's own programs (CC0)"),
    MarkForCatalogue("Icon: drawn by the Quarrow team (CC0)"),
    MarkForCatalogue("Thanks also to those who made the libraries under the game:"),
    // Translators: keep the five blanks that open this line and those like it.
    MarkForCatalogue("     Mesa and GLU for OpenGL, Pango and Cairo for text (MIT, SGI-B, LGPL)"),
    MarkForCatalogue("     SDL and SDL_image for window, full screen, input and pictures (zlib)"),
    MarkForCatalogue("     libsndfile and OpenAL Soft for music and sound (LGPL)"),
    MarkForCatalogue("     GLib and gettext, and all who answer in the forums (LGPL)"),
    MarkForCatalogue("Music: composed by the Quarrow team, rendered by the game's own programs (CC0)"),
    MarkForCatalogue("     'Sable', the Quarrow team, music@quarrow.example"),
    MarkForCatalogue("     'Electro0032', the Quarrow team, music@quarrow.example"),
    MarkForCatalogue("     'SerialK', the Quarrow team, music@quarrow.example"),
    MarkForCatalogue("     'Aai_Tookai', the Quarrow team, music@quarrow.example"),
    MarkForCatalogue("Thank you for playing!"),
    MarkForCatalogue("Back to Main Menu"),
};

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
