// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/window/Application.h"

#include "platform/base/Bundle.h"
#include "platform/base/Locale.h"
#include "platform/base/Log.h"
#include "platform/base/RunLoop.h"
#include "platform/settings/Preferences.h"
#include "platform/text/TextLayout.h"
#include "platform/window/Display.h"
#include "platform/window/InterfaceFile.h"
#include "platform/window/KeyTranslation.h"
#include "platform/window/MouseTranslation.h"
#include "platform/window/OpenGLView.h"
#include "platform/window/Window.h"
#include "platform/window/WindowList.h"

#include <SDL.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <csignal>
#include <exception>
#include <optional>
#include <thread>

namespace platform
{

namespace
{

constexpr char const* kInterfaceName = "Main.toml";
constexpr double kSaveInterval = 0.4;   // seconds: a change is on the disk well within one
constexpr double kLongestSleep = 0.05;  // seconds without a look at the signals
constexpr double kPreciseSleep = 0.002; // seconds: SDL's own waiting is no finer

Application* theApplication = nullptr;

volatile std::sig_atomic_t endWasSignalled = 0;

extern "C" void NoteSignal(int)
{
    endWasSignalled = 1;
}

void CatchEndingSignals()
{
    endWasSignalled = 0;
    for (int const signal : {
             SIGTERM, SIGINT
#if !defined(_WIN32)
                 ,
                 SIGHUP
#endif
         })
    {
        std::signal(signal, NoteSignal);
    }
#if !defined(_WIN32)
    std::signal(SIGPIPE, SIG_IGN); // whoever read the log may have gone
#endif
}

// A layout of another script has no such letter at all: there the place on the keyboard counts.
bool IsKeyNamed(std::string const& name, SDL_Keysym const& key)
{
    bool const isOtherScript = key.sym > 0x7F && (key.sym & SDLK_SCANCODE_MASK) == 0;
    return isOtherScript ? SDL_GetScancodeFromName(name.c_str()) == key.scancode
                         : SDL_GetKeyFromName(name.c_str()) == key.sym;
}

bool Matches(KeyEquivalent const& equivalent, SDL_Keysym const& key)
{
    auto const held = [&key](int mask) { return (key.mod & mask) != 0; };
    return IsKeyNamed(equivalent.key, key) && equivalent.control == held(KMOD_CTRL) &&
           equivalent.alt == held(KMOD_ALT) && equivalent.shift == held(KMOD_SHIFT) && !held(KMOD_GUI);
}

// The text that came with a key that went down: SDL queues it right behind the key.
std::string TakeTypedText()
{
    SDL_Event next;
    SDL_PumpEvents();
    if (SDL_PeepEvents(&next, 1, SDL_PEEKEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT) == 1 &&
        next.type == SDL_TEXTINPUT)
    {
        return next.text.text;
    }
    return {};
}

class DesktopApplication final : public Application
{
public:
    DesktopApplication() { theApplication = this; }
    ~DesktopApplication() { theApplication = nullptr; }
    DesktopApplication(DesktopApplication const&) = delete;
    DesktopApplication& operator=(DesktopApplication const&) = delete;

    bool loadInterface(ViewClasses const& viewClasses);
    int run() override;
    void terminate() override { m_running = false; }
    Window* keyWindow() override;

private:
    bool makeViewAndWindow(ViewClasses const& viewClasses);
    void pumpEvents();
    void dispatch(SDL_Event const& event);
    void dispatchWindowEvent(SDL_WindowEvent const& event);
    void dispatchKeyDown(SDL_KeyboardEvent const& event);
    bool performKeyEquivalent(SDL_KeyboardEvent const& event);
    void send(unsigned windowIdentifier, std::optional<Event> const& event);
    static void waitForWork();

    InterfaceFile m_interface;
    std::unique_ptr<OpenGLView> m_view;
    std::unique_ptr<Window> m_window; // goes before the view, whose context draws into it
    KeyTranslator m_keys;
    bool m_running = true;
};

bool DesktopApplication::loadInterface(ViewClasses const& viewClasses)
{
    auto const path = Bundle::pathForResource(kInterfaceName, "Interface");
    if (!path)
    {
        LogFormat("The interface file %s is missing", kInterfaceName);
        return false;
    }
    auto interface = InterfaceFile::load(*path);
    if (!interface)
    {
        return false;
    }
    m_interface = std::move(*interface);
    if (!viewClasses.contains(m_interface.viewClass))
    {
        Log("The interface file " + path->string() + " cannot be used: there is no view class '" +
            m_interface.viewClass + "'");
        return false;
    }
    return makeViewAndWindow(viewClasses);
}

bool DesktopApplication::makeViewAndWindow(ViewClasses const& viewClasses)
{
    Rect const content{{}, m_interface.contentSize};
    if (!OpenDisplay())
    {
        return false;
    }
    // Threads only from here on: the start of the display changes the environment, and may fork.
    PrepareText();
    m_view = viewClasses.at(m_interface.viewClass)();
    if (!m_view->initWithFrame(content))
    {
        return false;
    }
    m_window = Window::initWithContentRect(content, WindowStyle::Titled);
    if (!m_window)
    {
        return false;
    }
    m_window->setTitle(m_interface.windowTitle + " " QUARROW_VERSION);
    m_window->setContentView(m_view.get());
    m_view->awakeFromNib();
    return true;
}

int DesktopApplication::run()
{
    RunLoop& loop = RunLoop::current();
    auto const saver = Timer::scheduledTimer(kSaveInterval, [] { Preferences::standard().synchronize(); });
    while (m_running && endWasSignalled == 0)
    {
        pumpEvents();
        if (m_running)
        {
            loop.runTimersOnce(RunLoop::Mode::Default);
            waitForWork();
        }
    }
    saver->invalidate();
    Preferences::standard().synchronize();
    return 0;
}

Window* DesktopApplication::keyWindow()
{
    Window* const key = WindowList::key();
    return key != nullptr ? key : m_window.get();
}

void DesktopApplication::waitForWork()
{
    double const wait =
        std::min(RunLoop::current().secondsUntilNextTimer(RunLoop::Mode::Default), kLongestSleep);
    if (wait <= 0.0)
    {
        return;
    }
    if (wait <= kPreciseSleep)
    {
        std::this_thread::sleep_for(std::chrono::duration<double>(wait));
        return;
    }
    SDL_WaitEventTimeout(nullptr, static_cast<int>(wait * 1000.0));
}

void DesktopApplication::pumpEvents()
{
    SDL_Event event;
    while (m_running && SDL_PollEvent(&event) != 0)
    {
        dispatch(event);
    }
}

void DesktopApplication::dispatch(SDL_Event const& event)
{
    switch (event.type)
    {
    case SDL_QUIT:
        terminate();
        break;
    case SDL_WINDOWEVENT:
        dispatchWindowEvent(event.window);
        break;
    case SDL_KEYDOWN:
        dispatchKeyDown(event.key);
        break;
    case SDL_KEYUP:
        send(event.key.windowID, m_keys.keyUp(event.key.keysym));
        break;
    case SDL_MOUSEMOTION:
        if (Window const* const window = WindowList::withIdentifier(event.motion.windowID))
        {
            send(event.motion.windowID, TranslateMouseMotion(event.motion, *window));
        }
        break;
    case SDL_MOUSEBUTTONUP:
        if (Window const* const window = WindowList::withIdentifier(event.button.windowID))
        {
            send(event.button.windowID, TranslateMouseUp(event.button, *window));
        }
        break;
    case SDL_MOUSEWHEEL:
        if (Window const* const window = WindowList::withIdentifier(event.wheel.windowID))
        {
            send(event.wheel.windowID, TranslateMouseWheel(event.wheel, *window));
        }
        break;
    default:
        break;
    }
}

void DesktopApplication::dispatchWindowEvent(SDL_WindowEvent const& event)
{
    if (event.event == SDL_WINDOWEVENT_CLOSE)
    {
        terminate();
    }
    else if (event.event == SDL_WINDOWEVENT_SIZE_CHANGED)
    {
        if (Window* const window = WindowList::withIdentifier(event.windowID))
        {
            window->drawableSizeChanged();
        }
    }
}

void DesktopApplication::dispatchKeyDown(SDL_KeyboardEvent const& event)
{
    std::string const typed = TakeTypedText();
    if (!performKeyEquivalent(event))
    {
        send(event.windowID, m_keys.keyDown(event.keysym, typed));
    }
}

// A command's key never reaches the view; while it is held, its repeats do nothing.
bool DesktopApplication::performKeyEquivalent(SDL_KeyboardEvent const& event)
{
    for (Command const& command : m_interface.commands)
    {
        bool const matches = std::ranges::any_of(command.keys, [&event](KeyEquivalent const& key)
                                                 { return Matches(key, event.keysym); });
        if (!matches)
        {
            continue;
        }
        if (command.action == "terminate")
        {
            terminate();
        }
        else if (event.repeat == 0)
        {
            m_view->toggleFullScreen();
        }
        return true;
    }
    return false;
}

// Without a window manager keys may come for no window in particular; they are the key window's.
void DesktopApplication::send(unsigned windowIdentifier, std::optional<Event> const& event)
{
    Window* const window = windowIdentifier != 0 ? WindowList::withIdentifier(windowIdentifier) : keyWindow();
    if (event && window != nullptr)
    {
        window->sendEvent(*event);
    }
}

int LoadAndRun(ViewClasses const& viewClasses)
{
    CatchEndingSignals();
    DesktopApplication application;
    return application.loadInterface(viewClasses) ? application.run() : 1;
}

} // namespace

Application* Application::shared()
{
    return theApplication;
}

int ApplicationMain(ViewClasses const& viewClasses)
{
    int status = 1;
    try
    {
        SelectLanguage();
        status = LoadAndRun(viewClasses);
    }
    catch (std::exception const& problem)
    {
        Log(problem.what());
    }
    CloseDisplay();
    return status;
}

} // namespace platform
