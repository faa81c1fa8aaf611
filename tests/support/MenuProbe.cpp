// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "support/MenuProbe.h"

#include "support/window/EventFactory.h"
#include "ui/Overlay.h"

namespace
{

constexpr platform::Color kWhite{1.0F, 1.0F, 1.0F, 1.0F};
constexpr platform::Color kGrey{0.7F, 0.7F, 0.7F, 1.0F};
constexpr platform::Color kInvisible{0.0F, 0.0F, 0.0F, 0.0F};

bool HasLook(Menu const& menu, int item, platform::Color text, platform::Color border)
{
    StringTexture const& texture = menu.GetItem(item).GetTexture();
    return texture.textColor() == text && texture.borderColor() == border;
}

} // namespace

namespace probe
{

std::string TextOf(Overlay const& overlay)
{
    return overlay.GetTexture().string().string();
}

std::string TextOf(Menu const& menu, int item)
{
    return TextOf(menu.GetItem(item));
}

std::vector<std::string> TextsOf(Menu const& menu)
{
    std::vector<std::string> texts;
    for (int item = 0; item < menu.GetItemCount(); ++item)
    {
        texts.push_back(TextOf(menu, item));
    }
    return texts;
}

float FontSizeOf(Overlay const& overlay)
{
    return overlay.GetTexture().string().attributes().fontSize;
}

std::string FontOf(Overlay const& overlay)
{
    return overlay.GetTexture().string().attributes().fontName;
}

Box BoxOf(Overlay const& overlay)
{
    Box box;
    overlay.GetDimensions(&box.x, &box.y, &box.width, &box.height);
    return box;
}

Box BoxOf(Menu const& menu, int item)
{
    return BoxOf(menu.GetItem(item));
}

bool IsHighlighted(Menu const& menu, int item)
{
    return HasLook(menu, item, kWhite, kWhite);
}

bool IsNormal(Menu const& menu, int item)
{
    return HasLook(menu, item, kGrey, kInvisible);
}

void RenderCurrent()
{
    Menu::RenderCurrent(kWidth, kHeight);
}

void Send(platform::Event const& event)
{
    GameEvent const wrapped = events::Wrapped(event);
    Menu::HandleEventCurrent(&wrapped);
}

void MoveOnto(int item)
{
    Box const box = BoxOf(*Menu::GetCurrent(), item);
    MoveTo(box.x + box.width / 2, kHeight - (box.y + box.height / 2));
}

void MoveTo(int x, int y)
{
    Send(events::MouseMoved(static_cast<float>(x), static_cast<float>(y)));
}

void ReleaseAt(int x, int y)
{
    Send(events::LeftUp(static_cast<float>(x), static_cast<float>(y)));
}

void Click(int item)
{
    Box const box = BoxOf(*Menu::GetCurrent(), item);
    ReleaseAt(box.x + box.width / 2, kHeight - (box.y + box.height / 2));
}

void Type(char16_t character)
{
    Send(events::KeyDown(std::u16string(1, character)));
}

void LetGo(char16_t character)
{
    Send(events::KeyUp(std::u16string(1, character)));
}

} // namespace probe
