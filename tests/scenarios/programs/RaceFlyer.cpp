// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The whole game with a pilot: while a race runs, xdotool sends the pilot's moves to the X server as mouse
// and keyboard input, and the game gets them as it gets a player's. With an argument the frames of races do
// not wait for the display.
#include "core/Game.h"
#include "core/kGLView.h"
#include "platform/base/RunLoop.h"
#include "platform/window/Application.h"
#include "platform/window/OpenGLContext.h"
#include "support/flight/Pilot.h"
#include "world/Universe.h"

#include <cstdio>
#include <memory>
#include <utility>

namespace
{

constexpr double kInterval = 0.03; // seconds between two moves
constexpr int kScreenWidth = 1280; // the game runs full screen
constexpr int kScreenHeight = 720;

class Flyer
{
public:
    Flyer(kGLView const& view, bool waits) : m_view(view), m_waits(waits) {}

    void Move()
    {
        bool const racing = Game::pGame != nullptr && Game::pGame->GetState() == kStatePlaying;
        if (!racing)
        {
            m_pilot.reset();
            return;
        }
        if (!m_pilot)
        {
            m_pilot = std::make_unique<Pilot>(*Game::pGame->GetUniverse(), kScreenWidth, kScreenHeight);
            m_view.openGLContext()->setWaitsForDisplay(m_waits);
        }
        PilotInput const input = m_pilot->NextInput();
        std::fprintf(m_xdotool.get(), "mousemove %d %d\n", input.mouseX, kScreenHeight - input.mouseY);
        if (input.throttle != 0)
        {
            std::fprintf(m_xdotool.get(), "key %s\n", input.throttle > 0 ? "w" : "s");
        }
        std::fflush(m_xdotool.get());
    }

private:
    kGLView const& m_view;
    bool m_waits;
    std::unique_ptr<FILE, int (*)(FILE*)> m_xdotool{popen("xdotool -", "w"), pclose};
    std::unique_ptr<Pilot> m_pilot;
};

} // namespace

int main(int argc, char**)
{
    auto view = std::make_unique<kGLView>();
    Flyer flyer(*view, argc == 1);
    auto const timer = platform::Timer::scheduledTimer(kInterval, [&flyer] { flyer.Move(); });
    return platform::ApplicationMain(std::move(view));
}
