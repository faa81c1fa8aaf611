// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The menus around a race: main, pause, end of race, best times, options with graphics and sound, and
// credits. The keys have a page of their own, MenuKeyboard.
#pragma once

#include "ui/Menu.h"

#include <array>
#include <memory>

// The title screen.
class MenuMain : public Menu
{
public:
    MenuMain();
    ~MenuMain() override;

    bool MouseUp(int item) override;
    void Reposition(int width, int height) override;
    void Render(int width, int height) override;

    // In drawing order: title, authorship, news, contest.
    static constexpr int kCaptionCount = 4;
    Overlay const& GetCaption(int index) const { return *m_captions[static_cast<std::size_t>(index)]; }

private:
    void AddCaption(int index, int fontSize, char const* english);

    std::array<std::unique_ptr<Overlay>, kCaptionCount> m_captions;
};

// Over the frozen race.
class MenuPaused : public Menu
{
public:
    MenuPaused();
    bool MouseUp(int item) override;
};

// The result: ranks the time among the five best and stores them.
class MenuEndGame : public Menu
{
public:
    explicit MenuEndGame(int seconds);
    bool MouseUp(int item) override;
    bool DoesItemReactToMouse(int item) const override;

private:
    void RankTime(int seconds);
};

// The five best times.
class MenuFastestTimes : public Menu
{
public:
    MenuFastestTimes();
    bool MouseUp(int item) override;
    bool DoesItemReactToMouse(int item) const override;
};

// Leads to the pages of settings.
class MenuOptions : public Menu
{
public:
    MenuOptions();
    bool MouseUp(int item) override;
};

// View distance, asteroid detail and density: a click moves to the next value.
class MenuGraphics : public Menu
{
public:
    MenuGraphics();
    bool MouseUp(int item) override;

private:
    void SetStringForItem(int item);
};

// Effects and music.
class MenuSound : public Menu
{
public:
    MenuSound();
    bool MouseUp(int item) override;

private:
    void SetStringForItem(int item);
};

// Authors, libraries and music.
class MenuCredits : public Menu
{
public:
    MenuCredits();
    bool MouseUp(int item) override;
    bool DoesItemReactToMouse(int item) const override;
    void Reposition(int width, int height) override;
};
