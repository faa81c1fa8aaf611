// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The base of every screen of choices: a column of text items over the scene, with highlighting under the
// pointer, clicks and keys. At most one menu is current.
#pragma once

#include "platform/base/Geometry.h"

#include <memory>
#include <optional>
#include <vector>

class GameEvent;
class GameSound;
class Overlay;

class Menu
{
public:
    // The current menu, which is destroyed when another takes its place.
    static void SetCurrent(Menu* menu); // takes ownership
    static void ClearCurrent();
    static void RenderCurrent(int width, int height); // lays it out first when the size has changed
    static void HandleEventCurrent(GameEvent const* event);
    static Menu* GetCurrent() { return m_pmenuCurrent; }

    // x, y: the anchor, in window pixels from the top left; item 0 stands there and each further one two font
    // sizes below. fontName: shorter than 32 bytes.
    Menu(int x, int y, int itemCount, char const* fontName, int fontSize);
    Menu(Menu const&) = delete;
    Menu& operator=(Menu const&) = delete;

    // item: the index under the released button, or -1. True when the click did something. The menu may be
    // gone afterwards.
    virtual bool MouseUp(int item) = 0;

    // False for captions, which never highlight.
    virtual bool DoesItemReactToMouse(int item) const;

    // ch: the first UTF-16 unit of a key event, up or down.
    virtual bool KeyDown(unsigned short ch);

    // True while the next key, whichever it is, is for KeyDown.
    virtual bool WaitsForKey() const { return false; }

    // Lays the menu out for a window of that size: the anchor in its middle.
    virtual void Reposition(int width, int height);

    virtual ~Menu();

    virtual void HandleEvent(GameEvent const* event);
    virtual void Render(int width, int height);

    void SetItem(int item, char const* text); // UTF-8; item: a valid index

    // Moves the anchor, and all items with it.
    void SetOffset(int x, int y);

    // The item at a point with its origin at the bottom left, or -1; edges count as inside.
    int PointToIOverlay(int mouseX, int mouseY) const;

    // The middle of the item under the pointer (step 0), or of the next below it (1) or above it (-1) that
    // reacts and has a text, round the ends; origin at the bottom left. Nothing where there is none.
    std::optional<platform::Point> ClickPlace(int step) const;

    int GetItemCount() const { return static_cast<int>(m_items.size()); }
    Overlay const& GetItem(int item) const { return *m_items[static_cast<std::size_t>(item)]; }

protected:
    void RememberLayout(int width, int height);
    int GetFontSize() const { return m_fontSize; }
    char const* GetFontName() const { return m_fontName; }

private:
    void SelectItemAt(int mouseX, int mouseY);
    bool CanBeClicked(int item) const;
    platform::Point MiddleOf(int item) const;
    void ShowItemNormal(int item);
    void ShowItemHighlighted(int item);

    static void PlayMouseover();
    static void PlayClick();

    static Menu* m_pmenuCurrent;
    static GameSound* m_psndMouseover; // both made on first use and kept
    static GameSound* m_psndClick;

    std::vector<std::unique_ptr<Overlay>> m_items;
    int m_selected = -1; // the item under the pointer
    char m_fontName[32] = {};
    int m_fontSize;
    int m_lastWidth = 0;
    int m_lastHeight = 0;
    int m_anchorX;
    int m_anchorY;
};
