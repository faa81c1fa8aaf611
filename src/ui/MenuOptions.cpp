// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The options and their pages for graphics and sound. A click stores the next value of a fixed cycle at once.
// Word and next value follow from ranges of the stored value, so that any value in the settings file has
// them.
#include "audio/GameSound.h"
#include "platform/base/Bundle.h"
#include "settings/GameSettings.h"
#include "ui/MenuGame.h"
#include "ui/MenuKeyboard.h"
#include "ui/MenuText.h"

namespace
{

using platform::Bundle::localizedString;

constexpr char const* kFontName = "Helvetica";
constexpr int kFontSize = 20;

enum GraphicsItem
{
    kViewDistance,
    kDetail,
    kDensity,
    kGraphicsSpacer,
    kGraphicsBack,
};

enum SoundItem
{
    kEffects,
    kMusic,
    kSoundSpacer,
    kSoundBack,
};

char const* ViewDistanceWord(float fogEndHigh)
{
    if (fogEndHigh < 50.0F)
    {
        // Translators: LOW, NORMAL and HIGH follow "View Distance:  " and "Asteroid Detail:  ", NORMAL and
        // HALF "Asteroid Density:  ". They have to agree with each label that they follow.
        return MarkForCatalogue("LOW");
    }
    return fogEndHigh < 65.0F ? MarkForCatalogue("NORMAL") : MarkForCatalogue("HIGH");
}

float NextViewDistance(float fogEndHigh)
{
    if (fogEndHigh < 50.0F)
    {
        return 50.0F;
    }
    return fogEndHigh < 65.0F ? 65.0F : 40.0F;
}

char const* DetailWord(int smoothness)
{
    if (smoothness <= 6)
    {
        return MarkForCatalogue("LOW");
    }
    return smoothness <= 8 ? MarkForCatalogue("NORMAL") : MarkForCatalogue("HIGH");
}

int NextDetail(int smoothness)
{
    if (smoothness <= 6)
    {
        return 7;
    }
    return smoothness <= 8 ? 9 : 5;
}

char const* DensityWord(float density)
{
    return density < 0.5F ? MarkForCatalogue("HALF") : MarkForCatalogue("NORMAL");
}

// A thinner field lets the player see farther inside it, so the fog's nearest end goes with the density.
void SwitchDensity()
{
    bool const isHalf = GameSettings::GetFloatParam(setting::kAsteroidsDensityCenter) < 0.5F;
    GameSettings::SetFloatParam(setting::kAsteroidsDensityCenter, isHalf ? 0.5F : 0.25F);
    GameSettings::SetFloatParam(setting::kFogEndLow, isHalf ? 20.0F : 30.0F);
}

void SwitchEffects()
{
    bool const turnOn = GameSettings::GetFloatParam(setting::kSoundVolume) == 0.0F;
    GameSound::SetVolume(turnOn);
    GameSettings::SetFloatParam(setting::kSoundVolume, turnOn ? 1.0F : 0.0F);
}

char const* EffectsWord(float volume)
{
    return volume == 0.0F ? MarkForCatalogue("OFF") : MarkForCatalogue("ON");
}

char const* MusicWord(float volume)
{
    if (volume == 0.0F)
    {
        // Translators: OFF and ON follow "Sound Volume:  "; OFF, SOFT, MEDIUM and LOUD
        // follow "Music Volume:  ".
        return MarkForCatalogue("OFF");
    }
    if (volume < 0.5F)
    {
        return MarkForCatalogue("SOFT");
    }
    return volume < 1.0F ? MarkForCatalogue("MEDIUM") : MarkForCatalogue("LOUD");
}

float NextMusicVolume(float volume)
{
    if (volume == 0.0F)
    {
        return 0.2F;
    }
    if (volume < 0.5F)
    {
        return 0.5F;
    }
    return volume < 1.0F ? 1.0F : 0.0F;
}

void SetLabelAndWord(Menu& menu, int item, std::string const& label, char const* word)
{
    menu.SetItem(item, (label + localizedString(word)).c_str());
}

} // namespace

MenuOptions::MenuOptions() : Menu(0, 0, 4, kFontName, kFontSize)
{
    SetLocalizedItem(*this, 0, "Graphics");
    SetLocalizedItem(*this, 1, "Mouse, Keyboard");
    SetLocalizedItem(*this, 2, "Sound");
    SetLocalizedItem(*this, 3, "Back to Main Menu");
}

bool MenuOptions::MouseUp(int item)
{
    switch (item)
    {
    case 0:
        SetCurrent(new MenuGraphics);
        return true;
    case 1:
        SetCurrent(new MenuKeyboard);
        return true;
    case 2:
        SetCurrent(new MenuSound);
        return true;
    case 3:
        SetCurrent(new MenuMain);
        return true;
    default:
        return false;
    }
}

MenuGraphics::MenuGraphics() : Menu(0, 0, 5, kFontName, kFontSize)
{
    for (int const item : {kViewDistance, kDetail, kDensity})
    {
        SetStringForItem(item);
    }
    SetLocalizedItem(*this, kGraphicsBack, "Back to Options");
}

void MenuGraphics::SetStringForItem(int item)
{
    switch (item)
    {
    case kViewDistance:
        // Translators: a label before LOW, NORMAL or HIGH; keep the two blanks at its end.
        SetLabelAndWord(*this, item, localizedString("View Distance:  "),
                        ViewDistanceWord(GameSettings::GetFloatParam(setting::kFogEndHigh)));
        break;
    case kDetail:
        // Translators: how finely the asteroids are shaped; a label before LOW, NORMAL or HIGH.
        SetLabelAndWord(*this, item, localizedString("Asteroid Detail:  "),
                        DetailWord(GameSettings::GetIntParam(setting::kAsteroidsSmoothness)));
        break;
    case kDensity:
        // Translators: how many asteroids there are; a label before HALF or NORMAL.
        SetLabelAndWord(*this, item, localizedString("Asteroid Density:  "),
                        DensityWord(GameSettings::GetFloatParam(setting::kAsteroidsDensityCenter)));
        break;
    default:
        break;
    }
}

bool MenuGraphics::MouseUp(int item)
{
    switch (item)
    {
    case kViewDistance:
        GameSettings::SetFloatParam(setting::kFogEndHigh,
                                    NextViewDistance(GameSettings::GetFloatParam(setting::kFogEndHigh)));
        break;
    case kDetail:
        GameSettings::SetIntParam(setting::kAsteroidsSmoothness,
                                  NextDetail(GameSettings::GetIntParam(setting::kAsteroidsSmoothness)));
        break;
    case kDensity:
        SwitchDensity();
        break;
    case kGraphicsBack:
        SetCurrent(new MenuOptions);
        return true;
    default:
        return false;
    }
    SetStringForItem(item);
    return true;
}

MenuSound::MenuSound() : Menu(0, 0, 4, kFontName, kFontSize)
{
    SetStringForItem(kEffects);
    SetStringForItem(kMusic);
    SetLocalizedItem(*this, kSoundBack, "Back to Options");
}

void MenuSound::SetStringForItem(int item)
{
    switch (item)
    {
    case kEffects:
        // Translators: the sound effects; a label before OFF or ON.
        SetLabelAndWord(*this, item, localizedString("Sound Volume:  "),
                        EffectsWord(GameSettings::GetFloatParam(setting::kSoundVolume)));
        break;
    case kMusic:
        SetLabelAndWord(*this, item, localizedString("Music Volume:  "),
                        MusicWord(GameSettings::GetFloatParam(setting::kMusicVolume)));
        break;
    default:
        break;
    }
}

bool MenuSound::MouseUp(int item)
{
    switch (item)
    {
    case kEffects:
        SwitchEffects();
        break;
    case kMusic:
        GameSettings::SetFloatParam(setting::kMusicVolume,
                                    NextMusicVolume(GameSettings::GetFloatParam(setting::kMusicVolume)));
        break;
    case kSoundBack:
        SetCurrent(new MenuOptions);
        return true;
    default:
        return false;
    }
    SetStringForItem(item);
    return true;
}
