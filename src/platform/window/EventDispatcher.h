// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Hands the events of keyboard, mouse and windows to the window that they are for, and performs the commands
// of keys.
#pragma once

#include "platform/input/Event.h"
#include "platform/window/InterfaceFile.h"

#include <SDL.h>

#include <vector>

namespace platform
{

class OpenGLView;

class EventDispatcher
{
public:
    // Both outlive the dispatcher.
    EventDispatcher(OpenGLView& view, std::vector<Command> const& commands)
        : m_view(view),
          m_commands(commands)
    {
    }

    // Any event from SDL's queue.
    void dispatch(SDL_Event const& event);

private:
    void dispatchWindowEvent(SDL_WindowEvent const& event);
    static void dispatchMouse(SDL_Event const& event);
    void dispatchKeyDown(SDL_KeyboardEvent const& event);
    bool performCommand(SDL_KeyboardEvent const& event, Event const& key);

    OpenGLView& m_view;
    std::vector<Command> const& m_commands;
};

} // namespace platform
