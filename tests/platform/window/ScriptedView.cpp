// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/window/ScriptedView.h"

#include "platform/window/Application.h"
#include "platform/window/Window.h"

#include <csignal>
#include <cstring>

namespace
{

constexpr Uint32 kPushed = 1; // the mouse of moves that a script makes; the display's own is 0

// The window may report a move of the display's pointer whenever it opens.
int DropOtherMoves(void*, SDL_Event* event)
{
    return event->type == SDL_MOUSEMOTION && event->motion.which != kPushed ? 0 : 1;
}

} // namespace

ScriptedView::ScriptedView(std::vector<Step> script, TestView* record)
    : m_script(std::move(script)),
      m_record(record)
{
}

ScriptedView::~ScriptedView()
{
    if (m_timer)
    {
        m_timer->invalidate();
    }
    m_record->told = told;
    m_record->events = events;
    m_record->shapes = shapes;
}

void ScriptedView::awakeFromNib()
{
    SDL_SetEventFilter(DropOtherMoves, nullptr);
    window()->makeKeyAndOrderFront();
    window()->makeFirstResponder(this);
    window()->setAcceptsMouseMovedEvents(true);
    m_timer = platform::Timer::scheduledTimer(0.0, [this] { takeStep(); });
}

void ScriptedView::push(SDL_Event event) const
{
    event.window.windowID = window()->identifier(); // at the same offset in every kind of event
    if (event.type == SDL_MOUSEMOTION)
    {
        event.motion.which = kPushed;
    }
    SDL_PushEvent(&event);
}

void ScriptedView::pressKey(SDL_Keycode code, int modifiers, char const* text, bool isRepeat) const
{
    SDL_Event event{};
    event.type = SDL_KEYDOWN;
    event.key.repeat = isRepeat ? 1 : 0;
    event.key.keysym.sym = code;
    event.key.keysym.scancode = SDL_GetScancodeFromKey(code);
    event.key.keysym.mod = static_cast<Uint16>(modifiers);
    push(event);
    if (*text != '\0')
    {
        SDL_Event typed{};
        typed.type = SDL_TEXTINPUT;
        std::strncpy(typed.text.text, text, sizeof typed.text.text - 1);
        push(typed);
    }
}

void ScriptedView::close() const
{
    SDL_Event event{};
    event.type = SDL_WINDOWEVENT;
    event.window.event = SDL_WINDOWEVENT_CLOSE;
    push(event);
}

void ScriptedView::takeStep()
{
    if (m_next < m_script.size())
    {
        m_script[m_next](*this);
        ++m_next;
    }
    else if (m_closesAtEnd)
    {
        close();
    }
}

void ApplicationTest::SetUp()
{
    for (int const number : {SIGTERM, SIGINT, SIGHUP, SIGPIPE})
    {
        m_handlers.emplace_back(number, std::signal(number, SIG_DFL));
    }
}

void ApplicationTest::TearDown()
{
    for (auto const& [number, handler] : m_handlers)
    {
        std::signal(number, handler);
    }
}

int ApplicationTest::run(std::vector<Step> const& script)
{
    return platform::ApplicationMain(std::make_unique<ScriptedView>(script, &record));
}
