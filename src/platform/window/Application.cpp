// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/window/Application.h"

#include "platform/base/Bundle.h"
#include "platform/base/Locale.h"
#include "platform/base/Log.h"
#include "platform/base/RunLoop.h"
#include "platform/input/Gamepads.h"
#include "platform/settings/Preferences.h"
#include "platform/window/Display.h"
#include "platform/window/EventDispatcher.h"
#include "platform/window/InterfaceFile.h"
#include "platform/window/KeyboardWatch.h"
#include "platform/window/OpenGLView.h"
#include "platform/window/Window.h"

#include <SDL.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <exception>
#include <thread>
#include <utility>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace platform
{

namespace
{

constexpr char const* kInterfaceName = "Main.ini";
constexpr double kTidyInterval = 0.4;  // seconds, so that a change is on the disk within one
constexpr double kLongestSleep = 0.05; // seconds between two looks at signals and events
constexpr double kPadInterval = 0.005; // seconds between two looks at the gamepads
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

// Once a large block was freed, the GNU C library keeps all blocks up to its size for later, decoded pictures
// included. Limits that are set stay. The driver asks for many blocks of 142 KB while it starts: they are to
// come from memory that it has just freed, as new pages cost more than all else about them.
void GiveBackLargeBlocks()
{
#ifdef __GLIBC__
    constexpr int kLargeBlock = 256 * 1024;
    constexpr int kKeptAtTheEnd = 8 * 1024 * 1024;
    mallopt(M_MMAP_THRESHOLD, kLargeBlock);
    mallopt(M_TRIM_THRESHOLD, kKeptAtTheEnd);
#endif
}

// Whole pages that lie between blocks in use, in a race as well: it takes 0.06 ms.
void GiveBackFreePages()
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
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
    void tidyUp();
    void waitForNextPass();
    void pollGamepads();
    void pumpEvents();

    InterfaceFile m_interface;
    // Destroyed after the view, which may own another window: while that closes, SDL 2.26 on Wayland still
    // uses every window that was ever shown.
    std::unique_ptr<Window> m_window;
    std::unique_ptr<OpenGLView> m_view;
    EventDispatcher m_dispatcher{*m_view, m_interface.commands};
    KeyboardWatch m_keyboardWatch;
    std::unique_ptr<Gamepads> m_gamepads; // null until the first frame was drawn
};

bool Application::load()
{
    // No thread starts before the display is open: that changes the environment, and may fork.
    return loadInterface() && OpenDisplay() && makeWindow();
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
    return m_window->setContentView(m_view.get());
}

void Application::run()
{
    // Before the view's timers: after a slow save a frame comes first, then the events that arrived
    // meanwhile.
    auto const tidying = Timer::scheduledTimer(kTidyInterval, [this] { tidyUp(); });
    m_view->awakeFromNib();
    // Behind the view's timers: the first frame is drawn before anything looks for pads.
    auto const pads = Timer::scheduledTimer(kPadInterval, [this] { pollGamepads(); });
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
    pads->invalidate();
    tidying->invalidate();
    Preferences::standard().synchronize();
}

void Application::tidyUp()
{
    GiveBackFreePages();
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

void Application::pollGamepads()
{
    if (!m_gamepads)
    {
        m_gamepads = std::make_unique<Gamepads>(*m_view);
    }
    Gamepads::poll();
}

void Application::pumpEvents()
{
    SDL_Event event;
    while (endIsWanted == 0 && SDL_PollEvent(&event) != 0)
    {
        m_dispatcher.dispatch(event);
        if (m_gamepads)
        {
            m_gamepads->dispatch(event);
        }
    }
}

} // namespace

int ApplicationMain(std::unique_ptr<OpenGLView> view)
{
    int status = 1;
    endIsWanted = 0;
    CatchEndingSignals();
    GiveBackLargeBlocks();
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
