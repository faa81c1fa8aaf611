// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "ui/Menu.h"

#include "audio/GameSound.h"
#include "core/GameEvent.h"
#include "platform/base/OpenGL.h"
#include "ui/Overlay.h"

#include <cstdio>

Menu* Menu::m_pmenuCurrent = nullptr;
GameSound* Menu::m_psndMouseover = nullptr;
GameSound* Menu::m_psndClick = nullptr;

void Menu::SetCurrent(Menu* menu)
{
    delete m_pmenuCurrent;
    m_pmenuCurrent = menu;
}

void Menu::ClearCurrent()
{
    SetCurrent(nullptr);
}

void Menu::RenderCurrent(int width, int height)
{
    if (m_pmenuCurrent == nullptr)
    {
        return;
    }
    if (width != m_pmenuCurrent->m_lastWidth || height != m_pmenuCurrent->m_lastHeight)
    {
        glFlush(); // the driver draws the scene while a new menu's texts are laid out
        m_pmenuCurrent->Reposition(width, height);
    }
    m_pmenuCurrent->Render(width, height);
}

void Menu::HandleEventCurrent(GameEvent const* event)
{
    if (m_pmenuCurrent != nullptr)
    {
        m_pmenuCurrent->HandleEvent(event);
    }
}

Menu::Menu(int x, int y, int itemCount, char const* fontName, int fontSize)
    : m_fontSize(fontSize),
      m_anchorX(x),
      m_anchorY(y)
{
    std::snprintf(m_fontName, sizeof m_fontName, "%s", fontName);
    for (int i = 0; i < itemCount; ++i)
    {
        m_items.push_back(std::make_unique<Overlay>(x, y + 2 * i * fontSize, fontSize, fontName));
        ShowItemNormal(i);
    }
}

Menu::~Menu() = default;

bool Menu::DoesItemReactToMouse(int) const
{
    return true;
}

bool Menu::KeyDown(unsigned short)
{
    return false;
}

void Menu::Reposition(int width, int height)
{
    SetOffset(width / 2, height / 2);
    RememberLayout(width, height);
}

void Menu::Render(int width, int height)
{
    for (auto const& item : m_items)
    {
        item->Render(width, height);
    }
}

void Menu::HandleEvent(GameEvent const* event)
{
    int dx = 0;
    int dy = 0;
    int x = 0;
    int y = 0;
    if (event->IsMouseMove(dx, dy, x, y))
    {
        SelectItemAt(x, y);
    }
    else if (event->IsMouseUp(x, y))
    {
        // The menu may be gone once MouseUp returns: nothing of it is touched from here on.
        if (MouseUp(PointToIOverlay(x, y)))
        {
            PlayClick();
        }
    }
    else if (event->IsKey())
    {
        KeyDown(event->GetUniChar());
    }
}

void Menu::SelectItemAt(int mouseX, int mouseY)
{
    int const old = m_selected;
    m_selected = PointToIOverlay(mouseX, mouseY);
    if (m_selected == old)
    {
        return;
    }
    if (old >= 0 && DoesItemReactToMouse(old))
    {
        ShowItemNormal(old);
    }
    if (m_selected == -1 || !DoesItemReactToMouse(m_selected))
    {
        return;
    }
    ShowItemHighlighted(m_selected);
    PlayMouseover();
}

void Menu::SetItem(int item, char const* text)
{
    m_items[static_cast<std::size_t>(item)]->SetString(text);
}

void Menu::SetOffset(int x, int y)
{
    for (auto const& item : m_items)
    {
        int itemX = 0;
        int itemY = 0;
        int itemWidth = 0;
        int itemHeight = 0;
        item->GetDimensions(&itemX, &itemY, &itemWidth, &itemHeight);
        item->MoveTo(itemX - m_anchorX + x, itemY - m_anchorY + y);
    }
    m_anchorX = x;
    m_anchorY = y;
}

int Menu::PointToIOverlay(int mouseX, int mouseY) const
{
    int const fromTop = m_lastHeight - mouseY;
    for (int i = 0; i < GetItemCount(); ++i)
    {
        int x = 0;
        int y = 0;
        int width = 0;
        int height = 0;
        GetItem(i).GetDimensions(&x, &y, &width, &height);
        if (x <= mouseX && mouseX <= x + width && y <= fromTop && fromTop <= y + height)
        {
            return i;
        }
    }
    return -1;
}

// The items stand in a ring with the place of none, -1, between the last and the first.
std::optional<platform::Point> Menu::ClickPlace(int step) const
{
    int const ring = GetItemCount() + 1;
    int item = m_selected;
    for (int tries = 0; tries < ring; ++tries)
    {
        item = (item + 1 + step + ring) % ring - 1;
        if (CanBeClicked(item))
        {
            return MiddleOf(item);
        }
    }
    return std::nullopt;
}

bool Menu::CanBeClicked(int item) const
{
    return item >= 0 && DoesItemReactToMouse(item) && !GetItem(item).GetTexture().string().string().empty();
}

platform::Point Menu::MiddleOf(int item) const
{
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    GetItem(item).GetDimensions(&x, &y, &width, &height);
    int const middle = x + width / 2;
    int const fromTop = y + height / 2;
    return {static_cast<float>(middle), static_cast<float>(m_lastHeight - fromTop)};
}

void Menu::RememberLayout(int width, int height)
{
    m_lastWidth = width;
    m_lastHeight = height;
}

void Menu::ShowItemNormal(int item)
{
    Overlay& overlay = *m_items[static_cast<std::size_t>(item)];
    overlay.SetTextColor(0.7F, 0.7F, 0.7F, 1.0F);
    overlay.SetBorderColor(0.0F, 0.0F, 0.0F, 0.0F);
}

void Menu::ShowItemHighlighted(int item)
{
    Overlay& overlay = *m_items[static_cast<std::size_t>(item)];
    overlay.SetTextColor(1.0F, 1.0F, 1.0F, 1.0F);
    overlay.SetBorderColor(1.0F, 1.0F, 1.0F, 1.0F);
}

void Menu::PlayMouseover()
{
    if (m_psndMouseover == nullptr)
    {
        m_psndMouseover = new GameSound("Rollover.AIFF");
    }
    m_psndMouseover->Play();
}

void Menu::PlayClick()
{
    if (m_psndClick == nullptr)
    {
        m_psndClick = new GameSound("Click.AIFF");
    }
    m_psndClick->Play();
}
