// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Many races in one process: started, flown a little, then crashed, paused, quit or finished. After the last
// the process holds no more memory and objects than after the twelfth.
#include "core/Game.h"
#include "platform/base/Random.h"
#include "platform/base/RunLoop.h"
#include "support/gl/RecordingGL.h"
#include "support/MenuProbe.h"
#include "support/Stage.h"
#include "support/window/EventFactory.h"
#include "ui/MenuGame.h"
#include "ui/MenuKeyboard.h"
#include "world/Camera.h"
#include "world/Universe.h"

#include <AL/al.h>
#include <gtest/gtest.h>
#include <malloc.h>

#include <filesystem>
#include <iostream>
#include <map>
#include <string>

// Of sanitizer builds, which have an allocator of their own.
extern "C" [[gnu::weak]] std::size_t __sanitizer_get_current_allocated_bytes();

namespace
{

constexpr double kStep = 1.0 / 60.0; // seconds
constexpr unsigned kSeed = 2026;     // of every race: the same field takes the same memory
constexpr int kKinds = 4;            // of races, and of music tracks
constexpr int kSettled = 12;         // races after which everything that is made once exists
constexpr std::size_t kMemorySlack = 65536;

// Bytes, without the recording OpenGL's list, which only grows.
std::size_t MemoryInUse()
{
    auto const& deletions = recording::contextDeletions();
    std::size_t const recorders = deletions.capacity() * sizeof deletions[0];
    if (__sanitizer_get_current_allocated_bytes != nullptr)
    {
        return __sanitizer_get_current_allocated_bytes() - recorders;
    }
    auto const heap = mallinfo2();
    return heap.uordblks + heap.hblkhd - recorders;
}

// Names are small numbers that are used again once they are free.
std::size_t CountNames(ALboolean (*exists)(ALuint))
{
    constexpr ALuint kMostNames = 20000;
    std::size_t count = 0;
    for (ALuint name = 1; name <= kMostNames; ++name)
    {
        count += exists(name) == AL_TRUE ? 1 : 0;
    }
    return count;
}

std::size_t OpenFiles()
{
    std::filesystem::directory_iterator const files("/proc/self/fd");
    return static_cast<std::size_t>(std::distance(begin(files), end(files)));
}

struct Holdings
{
    std::size_t memory;                         // bytes in use
    std::map<std::string, std::size_t> objects; // how many of each kind

    static Holdings Now()
    {
        return {MemoryInUse(),
                {{"textures", recording::textures().size()},
                 {"display lists", recording::lists().size()},
                 {"sound sources", CountNames(alIsSource)},
                 {"sound buffers", CountNames(alIsBuffer)},
                 {"open files", OpenFiles()}}};
    }
};

class Soak : public GameStage
{
protected:
    static void ShowFrame()
    {
        Game::pGame->GetUniverse()->Tick(kStep);
        Game::pGame->Render(probe::kWidth, probe::kHeight);
        platform::RunLoop::runTimersOnce();
    }

    static void Fly(int frames)
    {
        send(events::KeyDown(u"w"));
        send(events::Wheel(0.0F, 1.0F));
        for (int i = 0; i < frames; ++i)
        {
            send(events::MouseMoved(static_cast<float>(300 + i), 250.0F));
            ShowFrame();
        }
    }

    static void Click(int item)
    {
        ShowFrame(); // lays the menu out
        probe::Click(item);
    }

    template <typename Kind>
    static void Expect()
    {
        ASSERT_NE(probe::Current<Kind>(), nullptr);
    }

    static void Start()
    {
        Expect<MenuMain>();
        platform::SeedRandom(kSeed);
        Click(0);
        ASSERT_EQ(Game::pGame->GetState(), kStatePlaying);
        Fly(30);
    }

    // With full throttle where the field is densest.
    static void Crash()
    {
        Camera& ship = *Game::pGame->GetUniverse()->GetCamera();
        ship.MoveTo(105.5F, 105.5F, 105.5F);
        Game::pGame->GetUniverse()->PlayerWantsToGo(1.0F);
        int frames = 0;
        while (ship.GetTargetVPct() > 0.0F && frames < 20000)
        {
            ShowFrame();
            ++frames;
        }
        ASSERT_EQ(ship.GetTargetVPct(), 0.0F) << "nothing was in the way";
    }

    static void PauseAndResume()
    {
        send(events::KeyDown(u"\x1B"));
        Expect<MenuPaused>();
        Click(0);
        ASSERT_EQ(Game::pGame->GetState(), kStatePlaying);
        Fly(10);
    }

    static void Quit()
    {
        send(events::KeyDown(u"\x1B"));
        Expect<MenuPaused>();
        Click(1);
        Expect<MenuMain>();
    }

    static void Finish()
    {
        Universe& universe = *Game::pGame->GetUniverse();
        for (int i = 0; i < Universe::kWaypointCount; ++i)
        {
            universe.GetCamera()->MoveTo(universe.GetWaypointPosition(i));
            ShowFrame();
        }
        Expect<MenuEndGame>();
    }

    // Through every page, and back to the main menu.
    static void LeafThroughMenus()
    {
        Click(2);
        for (int page = 0; page < 3; ++page)
        {
            Expect<MenuOptions>();
            Click(page);
            Click(page == 0 ? 4 : page == 1 ? 5 : 3);
        }
        Expect<MenuOptions>();
        Click(3);
        Click(1);
        Expect<MenuFastestTimes>();
        Click(7);
        Expect<MenuMain>();
    }

    static void Race(int number)
    {
        Start();
        switch (number % kKinds)
        {
        case 0:
            Crash();
            Quit();
            break;
        case 1:
            PauseAndResume();
            Quit();
            break;
        case 2:
            Quit();
            break;
        default:
            Finish();
            Click(3); // once more
            ASSERT_EQ(Game::pGame->GetState(), kStatePlaying);
            Finish();
            Click(4);
            break;
        }
        LeafThroughMenus();
    }

    static Holdings AfterRaces(int first, int last)
    {
        for (int i = first; i < last && !HasFatalFailure(); ++i)
        {
            Race(i);
        }
        return Holdings::Now();
    }

    // more: a multiple of kKinds, so that the last race is of the same kind both times.
    static void CompareAfterMore(int more)
    {
        Holdings const settled = AfterRaces(0, kSettled);
        Holdings const after = AfterRaces(kSettled, kSettled + more);
        std::cout << "memory: " << settled.memory << " bytes after " << kSettled << " races, " << after.memory
                  << " after " << kSettled + more << '\n';
        EXPECT_LE(after.memory, settled.memory + kMemorySlack);
        EXPECT_EQ(after.objects, settled.objects);
        EXPECT_GT(after.objects.at("textures"), 0U);
        EXPECT_GT(after.objects.at("sound sources"), 0U);
    }
};

TEST_F(Soak, FortyMoreRacesHoldNoMoreThanTen)
{
    CompareAfterMore(40);
}

TEST_F(Soak, LongFiveHundredMoreRacesHoldNoMoreThanTen)
{
    CompareAfterMore(500);
}

} // namespace
