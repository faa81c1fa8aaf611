// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// How the application starts and ends, with the tests' view in the game's window.
#include "platform/window/Application.h"

#include "platform/base/Clock.h"
#include "platform/settings/Preferences.h"
#include "platform/window/ScriptedView.h"
#include "platform/window/Window.h"
#include "support/CapturedLog.h"
#include "support/window/VirtualPad.h"

#include <glib.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <SDL.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace
{

using platform::Preferences;
using platform::Timer;
using testing::ElementsAre;
using testing::HasSubstr;

std::filesystem::path SettingsFile()
{
    return std::filesystem::path(g_get_user_config_dir()) / "quarrow" / "settings.ini";
}

std::string SettingsText()
{
    std::ostringstream text;
    text << std::ifstream(SettingsFile()).rdbuf();
    return text.str();
}

TEST_F(ApplicationTest, ClosedWindowIsAnOrderlyEnd)
{
    EXPECT_EQ(run({}), 0);
}

TEST_F(ApplicationTest, WindowHasTitleOfTheInterfaceFileWithTheVersionAndItsSize)
{
    std::string title;
    platform::Size size;
    run({[&](ScriptedView& view)
         {
             title = SDL_GetWindowTitle(SDL_GetWindowFromID(view.window()->identifier()));
             size = view.frame().size;
         }});
    EXPECT_EQ(title, "Quarrow " QUARROW_VERSION);
    EXPECT_EQ(size.width, 1024.0F);
    EXPECT_EQ(size.height, 768.0F);
}

TEST_F(ApplicationTest, DesktopsWishToQuitIsAnOrderlyEnd)
{
    bool wentOn = false;
    int const status = run({[](ScriptedView&)
                            {
                                SDL_Event event{};
                                event.type = SDL_QUIT;
                                SDL_PushEvent(&event);
                            },
                            [&](ScriptedView&) { wentOn = true; }});
    EXPECT_EQ(status, 0);
    EXPECT_FALSE(wentOn);
}

class EndingSignal : public ApplicationTest, public testing::WithParamInterface<int>
{
};

TEST_P(EndingSignal, SavesThePreferencesAndEndsWithZero)
{
    bool wentOn = false;
    int const status = run({[](ScriptedView&)
                            {
                                Preferences::standard().setValue("LastSignal", GetParam());
                                std::raise(GetParam());
                            },
                            [&](ScriptedView&) { wentOn = true; }});
    EXPECT_EQ(status, 0);
    EXPECT_FALSE(wentOn);
    EXPECT_THAT(SettingsText(), HasSubstr("LastSignal=" + std::to_string(GetParam()) + "\n"));
}

INSTANTIATE_TEST_SUITE_P(Signals, EndingSignal, testing::Values(SIGTERM, SIGINT, SIGHUP),
                         [](auto const& number) { return "Signal" + std::to_string(number.param); });

TEST_F(ApplicationTest, NobodyWhoReadsTheLogIsNoReasonToEnd)
{
    bool wentOn = false;
    EXPECT_EQ(run({[](ScriptedView&) { std::raise(SIGPIPE); }, [&](ScriptedView&) { wentOn = true; }}), 0);
    EXPECT_TRUE(wentOn);
}

TEST_F(ApplicationTest, ChangedPreferencesReachTheDiskWithinASecond)
{
    Preferences::standard().synchronize();
    std::filesystem::remove(SettingsFile());
    std::uint64_t changed = platform::UpTime();
    double saved = 0.0; // seconds after the change
    auto const watch = Timer::scheduledTimer(0.0,
                                             [&]
                                             {
                                                 saved =
                                                     platform::SecondsBetween(changed, platform::UpTime());
                                                 if (std::filesystem::exists(SettingsFile()) || saved > 10.0)
                                                 {
                                                     std::raise(SIGTERM);
                                                 }
                                             });
    run({[&changed](ScriptedView& view)
         {
             changed = platform::UpTime();
             Preferences::standard().setValue("SavedMeanwhile", 1);
             view.stay();
         }});
    watch->invalidate();
    EXPECT_LT(saved, 1.0);
}

TEST_F(ApplicationTest, NothingIsSavedWhileTheViewNeedsEvenFrames)
{
    Preferences::standard().synchronize();
    std::filesystem::remove(SettingsFile());
    bool isSavedMeanwhile = false;
    std::shared_ptr<Timer> look;
    run({[&](ScriptedView& view)
         {
             view.stay();
             view.isBusy = true;
             Preferences::standard().setValue("SetInARace", 1);
             look = Timer::scheduledTimer(1.0,
                                          [&]
                                          {
                                              isSavedMeanwhile = std::filesystem::exists(SettingsFile());
                                              std::raise(SIGTERM);
                                          });
         }});
    look->invalidate();
    EXPECT_FALSE(isSavedMeanwhile);
    EXPECT_TRUE(std::filesystem::exists(SettingsFile())) << "the end saves";
}

// Draws each millisecond, as the game does, until gamepads were looked for.
class DrawingView : public TestView
{
public:
    explicit DrawingView(std::vector<bool>* frames) : m_frames(frames) {}
    ~DrawingView() override { m_timer->invalidate(); }

    void awakeFromNib() override
    {
        m_timer = Timer::scheduledTimer(0.001, [this] { draw(); });
    }

private:
    void draw()
    {
        m_frames->push_back(SDL_WasInit(SDL_INIT_GAMECONTROLLER) != 0);
        if (m_frames->back())
        {
            std::raise(SIGTERM);
        }
    }

    std::vector<bool>* m_frames; // whether gamepads had been looked for before each of them
    std::shared_ptr<Timer> m_timer;
};

TEST_F(ApplicationTest, GamepadsAreLookedForBehindTheFirstFrame)
{
    std::vector<bool> frames;
    EXPECT_EQ(platform::ApplicationMain(std::make_unique<DrawingView>(&frames)), 0);
    EXPECT_FALSE(frames.front());
    EXPECT_TRUE(frames.back());
}

TEST_F(ApplicationTest, UnpluggedGamepadIsToldToTheView)
{
    std::optional<VirtualPad> pad;
    std::shared_ptr<Timer> player;
    auto const unplugWhenOpen = [&](ScriptedView const& view)
    {
        if (!pad && SDL_WasInit(SDL_INIT_GAMECONTROLLER) != 0)
        {
            pad.emplace();
        }
        else if (pad && pad->isOpen())
        {
            pad.reset();
            player->invalidate();
            view.close();
        }
    };
    EXPECT_EQ(run({[&](ScriptedView& view)
                   {
                       view.stay();
                       player = Timer::scheduledTimer(0.0, [&] { unplugWhenOpen(view); });
                   }}),
              0);
    EXPECT_THAT(record.told, ElementsAre("become", "playerDidLeave"));
}

// A view that fails as if the driver had no OpenGL.
class ImpossibleView : public TestView
{
public:
    bool initWithFrame(platform::Rect) override { return false; }
};

TEST_F(ApplicationTest, ViewThatCannotBeMadeEndsTheStart)
{
    EXPECT_EQ(platform::ApplicationMain(std::make_unique<ImpossibleView>()), 1);
}

TEST_F(ApplicationTest, DriverThatShowsNothingIsNoDisplay)
{
    ASSERT_EQ(SDL_WasInit(SDL_INIT_VIDEO), 0U) << "the application closes the display that it opens";
    for (char const* const driver : {"dummy", "offscreen"})
    {
        setenv("SDL_VIDEODRIVER", driver, 1);
        CapturedLog log;
        int const status = run({});
        EXPECT_THAT(log.allLines(), ElementsAre(HasSubstr("display")));
        unsetenv("SDL_VIDEODRIVER");
        EXPECT_EQ(status, 1) << driver;
    }
}

} // namespace
