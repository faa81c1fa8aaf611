// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/window/Application.h"

#include "platform/base/Bundle.h"
#include "platform/base/Locale.h"
#include "platform/base/Log.h"
#include "platform/base/RunLoop.h"
#include "platform/settings/Preferences.h"
#include "platform/text/TextLayout.h"
#include "platform/window/CommandKeys.h"
#include "platform/window/Display.h"
#include "platform/window/InterfaceFile.h"
#include "platform/window/KeyboardWatch.h"
#include "platform/window/KeyTranslation.h"
#include "platform/window/MouseTranslation.h"
#include "platform/window/OpenGLView.h"
#include "platform/window/Window.h"

#include <SDL.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <exception>
#include <thread>

namespace platform
{

namespace
{

constexpr char const* kInterfaceName = "Main.ini";
constexpr double kSaveInterval = 0.4;  // seconds, so that a change is on the disk within one
constexpr double kLongestSleep = 0.05; // seconds between two looks at signals and events
constexpr int kRest = 50;              // milliseconds between two passes while the window is minimised

// Process-wide, because a signal handler can reach nothing else.
volatile std::sig_atomic_t endIsWanted = 0;

extern "C" void NoteSignal(int)
{
    endIsWanted = 1;
}

void CatchEndingSignals()
{
    for (int const signal : {SIGTERM, SIGINT, SIGHUP})
    {
        std::signal(signal, NoteSignal);
    }
    std::signal(SIGPIPE, SIG_IGN); // comes when the program that reads the log has ended
}

// The text that came with a key that went down: SDL queues it right behind the key.
std::string TakeTypedText()
{
    SDL_Event next;
    SDL_PumpEvents();
    bool const hasNext = SDL_PeepEvents(&next, 1, SDL_PEEKEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT) == 1;
    return hasNext && next.type == SDL_TEXTINPUT ? next.text.text : "";
}

class Application
{
public:
    explicit Application(std::unique_ptr<OpenGLView> view) : m_view(std::move(view)) {}

    bool load();
    void run();

private:
    bool loadInterface();
    bool makeWindow();
    void save();
    void waitForNextPass();
    void pumpEvents();
    void dispatch(SDL_Event const& event);
    void dispatchWindowEvent(SDL_WindowEvent const& event);
    static void dispatchMouse(SDL_Event const& event);
    void dispatchKeyDown(SDL_KeyboardEvent const& event);
    bool performCommand(SDL_KeyboardEvent const& event, Event const& key);

    InterfaceFile m_interface;
    std::unique_ptr<OpenGLView> m_view;
    std::unique_ptr<Window> m_window; // destroyed before the view, whose context draws into it
    KeyboardWatch m_keyboardWatch;
};

bool Application::load()
{
    if (!loadInterface() || !OpenDisplay())
    {
        return false;
    }
    // No thread starts before this: opening the display changes the environment, and may fork.
    PrepareText();
    return makeWindow();
}

bool Application::loadInterface()
{
    auto const path = Bundle::pathForResource(kInterfaceName, "Interface");
    if (!path)
    {
        LogFormat("The interface file %s is missing", kInterfaceName);
        return false;
    }
    auto interface = InterfaceFile::load(*path);
    if (interface)
    {
        m_interface = std::move(*interface);
    }
    return interface.has_value();
}

bool Application::makeWindow()
{
    if (!m_view->initWithFrame({{}, m_interface.contentSize}))
    {
        return false;
    }
    m_window = Window::initWithContentSize(m_interface.contentSize);
    if (!m_window)
    {
        return false;
    }
    m_window->setTitle(m_interface.windowTitle + " " QUARROW_VERSION);
    if (!m_window->setContentView(m_view.get()))
    {
        return false;
    }
    return true;
}

void Application::run()
{
    // Before the view's timers: after a slow save a frame comes first, then the events that arrived
    // meanwhile.
    auto const saver = Timer::scheduledTimer(kSaveInterval, [this] { save(); });
    m_view->awakeFromNib();
    while (endIsWanted == 0)
    {
        pumpEvents();
        if (endIsWanted == 0)
        {
            if (m_keyboardWatch.hasLostKeyboard())
            {
                m_view->playerDidLeave();
            }
            RunLoop::runTimersOnce();
            waitForNextPass();
        }
    }
    saver->invalidate();
    Preferences::standard().synchronize();
}

void Application::save()
{
    if (!m_view->needsEvenFrames())
    {
        Preferences::standard().synchronize();
    }
}

// While the window is minimised only an event ends the rest early.
void Application::waitForNextPass()
{
    Window const* const window = m_view->window();
    if (window != nullptr && window->isMiniaturized())
    {
        SDL_WaitEventTimeout(nullptr, kRest);
        return;
    }
    double const wait = std::min(RunLoop::secondsUntilNextTimer(), kLongestSleep);
    std::this_thread::sleep_for(std::chrono::duration<double>(wait));
}

void Application::pumpEvents()
{
    SDL_Event event;
    while (endIsWanted == 0 && SDL_PollEvent(&event) != 0)
    {
        dispatch(event);
    }
}

void Application::dispatch(SDL_Event const& event)
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

void Application::dispatchWindowEvent(SDL_WindowEvent const& event)
{
    if (event.event == SDL_WINDOWEVENT_CLOSE)
    {
        Terminate();
    }
    Window* const window = Window::withIdentifier(event.windowID);
    if (event.event == SDL_WINDOWEVENT_MINIMIZED && window == m_view->window())
    {
        m_view->playerDidLeave();
    }
    if (event.event == SDL_WINDOWEVENT_SIZE_CHANGED && window != nullptr)
    {
        window->drawableSizeChanged();
    }
}

void Application::dispatchMouse(SDL_Event const& event)
{
    Window* const window =
        Window::withIdentifier(event.motion.windowID); // the same offset in all three kinds
    auto const translated = window != nullptr ? TranslateMouse(event, *window) : std::nullopt;
    if (translated)
    {
        window->sendEvent(*translated);
    }
}

// Without a window manager keys may come with window identifier 0; they are for the window that shows the
// view.
void Application::dispatchKeyDown(SDL_KeyboardEvent const& event)
{
    Event key;
    key.charactersIgnoringModifiers = CharactersForKey(event.keysym, TakeTypedText());
    Window* const window = event.windowID != 0 ? Window::withIdentifier(event.windowID) : m_view->window();
    if (!performCommand(event, key) && !key.charactersIgnoringModifiers.empty() && window != nullptr)
    {
        window->sendEvent(key);
    }
}

// False when the key is no command's, or the view's; whatever the view wants, one key always ends the game.
// While a command's key is held, its repeats do nothing.
bool Application::performCommand(SDL_KeyboardEvent const& event, Event const& key)
{
    auto const command = std::ranges::find_if(m_interface.commands,
                                              [&event](Command const& c) { return HasKey(c, event.keysym); });
    if (command == m_interface.commands.end())
    {
        return false;
    }
    if (command->action == "terminate")
    {
        Terminate();
        return true;
    }
    if (m_view->wantsKey(key))
    {
        return false;
    }
    if (event.repeat == 0)
    {
        m_view->toggleFullScreen();
    }
    return true;
}

} // namespace

int ApplicationMain(std::unique_ptr<OpenGLView> view)
{
    int status = 1;
    endIsWanted = 0;
    CatchEndingSignals();
    try
    {
        SelectLanguage();
        Application application(std::move(view));
        if (application.load())
        {
            application.run();
            status = 0;
        }
    }
    catch (std::exception const& problem)
    {
        Log(problem.what());
    }
    CloseDisplay();
    return status;
}

void Terminate()
{
    endIsWanted = 1;
}

} // namespace platform
