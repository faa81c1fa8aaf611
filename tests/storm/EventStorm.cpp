// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// event_storm EVENTS SEED: the whole game, from its start to its end, under that many random events. A game
// that is quit is followed by another, in a process of its own, until all events have been sent. Fails when
// one crashes or hangs, and when a long storm has not been in every menu.
#include "core/Game.h"
#include "core/kGLView.h"
#include "platform/base/RunLoop.h"
#include "platform/window/Application.h"
#include "platform/window/Window.h"
#include "storm/RandomEvents.h"
#include "ui/MenuGame.h"
#include "ui/MenuKeyboard.h"

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <typeinfo>

namespace
{

constexpr int kEventsPerFrame = 50;    // on average
constexpr unsigned kLongestRun = 600;  // seconds: a game that takes longer hangs
constexpr long kEventsForAll = 200000; // so many reach every menu

// The menus in the order of WhereWeAre().
constexpr std::array kPlaceNames = {
    "main menu", "pause menu", "end of race", "fastest times",         "options", "graphics", "sound",
    "keyboard",  "credits",    "race",        "before the first frame"};
constexpr std::size_t kRace = 9;
constexpr std::size_t kNothingYet = 10;

// Shared by all processes of the storm.
struct Tally
{
    long events = 0;
    std::array<long, kPlaceNames.size()> places{}; // events had there
};

template <typename... Menus>
std::size_t IndexOf(Menu* menu)
{
    std::array<bool, sizeof...(Menus)> const is = {dynamic_cast<Menus*>(menu) != nullptr...};
    return static_cast<std::size_t>(std::ranges::find(is, true) - is.begin());
}

std::size_t WhereWeAre()
{
    if (Game::pGame == nullptr)
    {
        return kNothingYet;
    }
    if (Game::pGame->GetState() == kStatePlaying)
    {
        return kRace;
    }
    return IndexOf<MenuMain, MenuPaused, MenuEndGame, MenuFastestTimes, MenuOptions, MenuGraphics, MenuSound,
                   MenuKeyboard, MenuCredits>(Menu::GetCurrent());
}

// One game under its part of the storm.
class Run
{
public:
    // view: its window gets the events.
    Run(kGLView const& view, unsigned seed, long limit, Tally& tally)
        : m_view(view),
          m_events(seed),
          m_limit(limit),
          m_tally(tally)
    {
    }

    // Between two frames.
    void PushBatch()
    {
        SDL_Window* const window = SDL_GetWindowFromID(m_view.window()->identifier());
        while (!m_events.OneIn(kEventsPerFrame) && m_tally.events < m_limit)
        {
            ++m_tally.events;
            m_events.PushNext(window);
            Visit();
        }
        if (m_tally.events >= m_limit)
        {
            platform::Terminate();
        }
    }

private:
    // No random flight reaches the finish.
    void Visit()
    {
        std::size_t const place = WhereWeAre();
        if (place < kPlaceNames.size())
        {
            ++m_tally.places[place];
        }
        if (place == kRace && m_events.OneIn(1000))
        {
            Game::pGame->SwitchToState(kStateRaceOver);
        }
    }

    kGLView const& m_view;
    RandomEvents m_events;
    long m_limit;
    Tally& m_tally;
};

int Play(unsigned seed, long limit, Tally& tally)
{
    alarm(kLongestRun);
    auto view = std::make_unique<kGLView>();
    Run run(*view, seed, limit, tally);
    auto const timer = platform::Timer::scheduledTimer(0.0, [&run] { run.PushBatch(); });
    int const status = platform::ApplicationMain(std::move(view));
    timer->invalidate();
    return status;
}

// False, with a line that says how to have it again, when it did not end in order.
bool PlayInAProcess(unsigned seed, long limit, Tally& tally)
{
    std::fflush(stdout);
    pid_t const game = fork();
    if (game == 0)
    {
        std::exit(Play(seed, limit, tally));
    }
    int status = 0;
    waitpid(game, &status, 0);
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0)
    {
        return true;
    }
    std::printf("the game with seed %u ended with wait status %d after %ld events\n", seed, status,
                tally.events);
    return false;
}

void Print(Tally const& tally, unsigned runs)
{
    std::printf("%ld events in %u games\n", tally.events, runs);
    for (std::size_t i = 0; i < kPlaceNames.size(); ++i)
    {
        std::printf("%10ld  in: %s\n", tally.places[i], kPlaceNames[i]);
    }
}

Tally& SharedTally()
{
    void* const memory =
        mmap(nullptr, sizeof(Tally), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    return *new (memory) Tally;
}

} // namespace

int main(int argumentCount, char** arguments)
{
    if (argumentCount != 3)
    {
        std::fputs("usage: event_storm EVENTS SEED\n", stderr);
        return 2;
    }
    long const events = std::atol(arguments[1]);
    auto const seed = static_cast<unsigned>(std::atol(arguments[2]));
    Tally& tally = SharedTally();
    unsigned runs = 0;
    bool isFine = true;
    while (isFine && tally.events < events)
    {
        isFine = PlayInAProcess(seed + runs, events, tally);
        ++runs;
    }
    Print(tally, runs);
    if (isFine && events >= kEventsForAll && std::ranges::count(tally.places, 0) > 0)
    {
        std::puts("a place has had no event");
        isFine = false;
    }
    return isFine ? 0 : 1;
}
