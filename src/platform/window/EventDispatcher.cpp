// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/window/EventDispatcher.h"

#include "platform/input/KeyTranslation.h"
#include "platform/input/MouseTranslation.h"
#include "platform/window/Application.h"
#include "platform/window/CommandKeys.h"
#include "platform/window/OpenGLView.h"
#include "platform/window/Window.h"

#include <algorithm>

namespace platform
{

namespace
{

// The text that came with a key that went down: SDL queues it right behind the key.
std::string TakeTypedText()
{
    SDL_Event next;
    SDL_PumpEvents();
    bool const hasNext = SDL_PeepEvents(&next, 1, SDL_PEEKEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT) == 1;
    return hasNext && next.type == SDL_TEXTINPUT ? next.text.text : "";
}

} // namespace

void EventDispatcher::dispatch(SDL_Event const& event)
{
    switch (event.type)
    {
    case SDL_QUIT:
        return Terminate();
    case SDL_WINDOWEVENT:
        return dispatchWindowEvent(event.window);
    case SDL_KEYDOWN:
        return dispatchKeyDown(event.key);
    case SDL_MOUSEMOTION:
    case SDL_MOUSEBUTTONUP:
    case SDL_MOUSEWHEEL:
        return dispatchMouse(event);
    default:
        return;
    }
}

void EventDispatcher::dispatchWindowEvent(SDL_WindowEvent const& event)
{
    if (event.event == SDL_WINDOWEVENT_CLOSE)
    {
        Terminate();
    }
    Window* const window = Window::withIdentifier(event.windowID);
    if (event.event == SDL_WINDOWEVENT_MINIMIZED && window == m_view.window())
    {
        m_view.playerDidLeave();
    }
    if (event.event == SDL_WINDOWEVENT_SIZE_CHANGED && window != nullptr)
    {
        window->drawableSizeChanged();
    }
}

void EventDispatcher::dispatchMouse(SDL_Event const& event)
{
    Window* const window =
        Window::withIdentifier(event.motion.windowID); // the same offset in all three kinds
    if (window == nullptr)
    {
        return;
    }
    auto const pixels = [window](int x, int y) { return window->pixelsFromWindow(x, y); };
    if (auto const translated = TranslateMouse(event, pixels))
    {
        window->sendEvent(*translated);
    }
}

// Without a window manager keys may come with window identifier 0; they are for the window that shows the
// view.
void EventDispatcher::dispatchKeyDown(SDL_KeyboardEvent const& event)
{
    Event key;
    key.charactersIgnoringModifiers = CharactersForKey(event.keysym, TakeTypedText());
    Window* const window = event.windowID != 0 ? Window::withIdentifier(event.windowID) : m_view.window();
    if (!performCommand(event, key) && !key.charactersIgnoringModifiers.empty() && window != nullptr)
    {
        window->sendEvent(key);
    }
}

// False when the key is no command's, or the view's; whatever the view wants, one key always ends the game.
// While a command's key is held, its repeats do nothing.
bool EventDispatcher::performCommand(SDL_KeyboardEvent const& event, Event const& key)
{
    auto const command =
        std::ranges::find_if(m_commands, [&event](Command const& c) { return HasKey(c, event.keysym); });
    if (command == m_commands.end())
    {
        return false;
    }
    if (command->action == "terminate")
    {
        Terminate();
        return true;
    }
    if (m_view.wantsKey(key))
    {
        return false;
    }
    if (event.repeat == 0)
    {
        m_view.toggleFullScreen();
    }
    return true;
}

} // namespace platform
