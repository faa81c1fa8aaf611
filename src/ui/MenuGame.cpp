// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The menus that drive the race: main, pause, end of race and best times.
#include "ui/MenuGame.h"

#include "audio/GameMusic.h"
#include "core/Game.h"
#include "platform/base/Bundle.h"
#include "platform/window/Application.h"
#include "settings/GameSettings.h"
#include "ui/MenuText.h"
#include "ui/Overlay.h"

#include <algorithm>
#include <string>
#include <utility>

namespace
{

using platform::Bundle::localizedString;

constexpr char const* kFontName = "Helvetica";
constexpr int kFontSize = 20;

constexpr int kTimeCount = 5; // best times kept; 0 is an empty slot

enum Caption
{
    kTitle,
    kAuthorship,
    kNews,
    kContest,
};

std::array<int, kTimeCount> StoredTimes()
{
    std::array<int, kTimeCount> times{};
    GameSettings::GetIntArrayParam(setting::kRaceTimes, times.data(), kTimeCount);
    return times;
}

void StoreTimes(std::array<int, kTimeCount> const& times)
{
    GameSettings::SetIntArrayParam(setting::kRaceTimes, times.data(), kTimeCount);
}

std::string RankWord(std::ptrdiff_t rank)
{
    switch (rank)
    {
    case 0:
        // Translators: FIRST to FIFTH follow "Your time is ranked: ".
        return localizedString("FIRST");
    case 1:
        return localizedString("SECOND");
    case 2:
        return localizedString("THIRD");
    case 3:
        return localizedString("FOURTH");
    default:
        return localizedString("FIFTH");
    }
}

void StartRace()
{
    Game::pGame->SwitchToState(kStatePlaying);
    Menu::ClearCurrent();
}

void ShowMainMenu()
{
    Game::pGame->SwitchToState(kStateMenu);
    Menu::SetCurrent(new MenuMain);
}

} // namespace

MenuMain::MenuMain() : Menu(0, 0, 5, kFontName, kFontSize)
{
    SetLocalizedItem(*this, 0, "Start Race");
    SetLocalizedItem(*this, 1, "View Best Times");
    SetLocalizedItem(*this, 2, "Options");
    SetLocalizedItem(*this, 3, "Credits");
    SetLocalizedItem(*this, 4, "Quit");

    // Translators: the name of the game; it stays as it is.
    AddCaption(kTitle, 2 * kFontSize, "Quarrow");
    AddCaption(kAuthorship, 12, "A game by the Quarrow team");
    AddCaption(kNews, 13, "News and updates: www.quarrow.example");
    AddCaption(kContest, 13,
               "Entered in the Game Makers' Contest: visit contest.example for more information");
    m_captions[kAuthorship]->SetBorderColor(0.0F, 0.0F, 0.0F, 0.0F);
    for (int const index : {kNews, kContest})
    {
        Overlay& caption = *m_captions[static_cast<std::size_t>(index)];
        caption.SetBorderColor(0.0F, 0.0F, 0.0F, 0.0F);
        caption.SetTextColor(1.0F, 0.4F, 0.4F, 1.0F);
    }
}

MenuMain::~MenuMain() = default;

void MenuMain::AddCaption(int index, int fontSize, char const* english)
{
    auto& caption = m_captions[static_cast<std::size_t>(index)];
    caption = std::make_unique<Overlay>(0, 0, fontSize, kFontName);
    caption->SetString(localizedString(english).c_str());
}

bool MenuMain::MouseUp(int item)
{
    switch (item)
    {
    case 0:
        StartRace();
        return true;
    case 1:
        SetCurrent(new MenuFastestTimes);
        return true;
    case 2:
        SetCurrent(new MenuOptions);
        return true;
    case 3:
        SetCurrent(new MenuCredits);
        return true;
    case 4:
        platform::Terminate();
        return true;
    default:
        return false;
    }
}

void MenuMain::Reposition(int width, int height)
{
    m_captions[kTitle]->MoveTo(width / 2, height / 5);
    m_captions[kAuthorship]->MoveTo(width / 2, height / 5 + 3 * GetFontSize());
    m_captions[kNews]->MoveTo(width / 8, static_cast<int>(height * 9.0 / 10.0));
    m_captions[kContest]->MoveTo(width / 8, static_cast<int>(height * 9.5 / 10.0));
    Menu::Reposition(width, height);
}

void MenuMain::Render(int width, int height)
{
    for (auto const& caption : m_captions)
    {
        caption->Render(width, height);
    }
    Menu::Render(width, height);
}

// Two empty items follow the two that act; they highlight like any other.
MenuPaused::MenuPaused() : Menu(0, 0, 4, kFontName, kFontSize)
{
    SetLocalizedItem(*this, 0, "Continue Race");
    SetLocalizedItem(*this, 1, "Main Menu");
}

bool MenuPaused::MouseUp(int item)
{
    switch (item)
    {
    case 0:
        StartRace(); // resumes the one that is paused
        return true;
    case 1:
        GameMusic::StopTrack();
        ShowMainMenu();
        return true;
    default:
        return false;
    }
}

MenuEndGame::MenuEndGame(int seconds) : Menu(0, 0, 5, kFontName, kFontSize)
{
    // Translators: minutes and seconds.
    SetItem(0, LocalizedFormat("Total Time: %d:%02d", seconds / 60, seconds % 60).c_str());
    RankTime(seconds);
    SetLocalizedItem(*this, 3, "Restart Race");
    SetLocalizedItem(*this, 4, "Main Menu");
}

// A time equal to a stored one ranks after it.
void MenuEndGame::RankTime(int seconds)
{
    auto times = StoredTimes();
    auto* const place =
        std::ranges::find_if(times, [seconds](int time) { return seconds < time || time == 0; });
    if (place == times.end())
    {
        return;
    }
    // The times from there on move down by one, and the last is dropped.
    std::for_each(place, times.end(), [&seconds](int& time) { std::swap(time, seconds); });
    StoreTimes(times);
    SetItem(1, (localizedString("Your time is ranked: ") + RankWord(place - times.begin())).c_str());
}

bool MenuEndGame::DoesItemReactToMouse(int item) const
{
    return item > 2;
}

bool MenuEndGame::MouseUp(int item)
{
    switch (item)
    {
    case 3:
        StartRace();
        return true;
    case 4:
        ShowMainMenu();
        return true;
    default:
        return false;
    }
}

MenuFastestTimes::MenuFastestTimes() : Menu(0, 0, 8, kFontName, kFontSize)
{
    auto const times = StoredTimes();
    int rank = 0;
    bool anyShown = false;
    for (int const time : times)
    {
        if (time > 0)
        {
            // Translators: the rank, then minutes and seconds, as "#1:  1:23".
            SetItem(rank, LocalizedFormat("#%d:  %d:%02d", rank + 1, time / 60, time % 60).c_str());
            anyShown = true;
        }
        ++rank;
    }
    if (!anyShown)
    {
        SetLocalizedItem(*this, 2, "(No race times recorded yet)");
    }
    SetLocalizedItem(*this, 6, "Clear Fastest Times");
    SetLocalizedItem(*this, 7, "Main Menu");
}

bool MenuFastestTimes::DoesItemReactToMouse(int item) const
{
    return item > 5;
}

bool MenuFastestTimes::MouseUp(int item)
{
    switch (item)
    {
    case 6:
        StoreTimes({});
        SetCurrent(new MenuFastestTimes);
        return true;
    case 7:
        ShowMainMenu();
        return true;
    default:
        return false;
    }
}
