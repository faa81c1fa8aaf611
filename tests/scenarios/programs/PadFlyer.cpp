// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The whole game with a gamepad that SDL makes up. What the player does with it comes from standard input, a
// line each: "plug", "unplug", "press" with SDL's name of a button, "stick" with the shares of the full
// deflection to the right and up, and "fly", which hands the pad to the pilot until the race is over.
#include "core/Game.h"
#include "core/kGLView.h"
#include "platform/base/RunLoop.h"
#include "platform/window/Application.h"
#include "support/flight/Pilot.h"
#include "support/window/VirtualPad.h"
#include "world/Universe.h"

#include <poll.h>
#include <SDL.h>

#include <algorithm>
#include <cmath>
#include <iostream>
#include <memory>
#include <optional>
#include <sstream>
#include <string>

namespace
{

constexpr double kInterval = 0.03; // seconds between two acts; the game looks at its pads more often
constexpr float kRest = 0.1F;      // the share of the deflection up to which a stick counts as at rest
constexpr int kViewSize = 2000;    // the pilot's

// The next line from standard input, empty when there is none yet.
std::string NextLine()
{
    pollfd input{0, POLLIN, 0};
    std::string line;
    if (std::cin.rdbuf()->in_avail() > 0 || poll(&input, 1, 0) > 0)
    {
        std::getline(std::cin, line);
    }
    return line;
}

// Of a place in the pilot's view: the share of the way from the middle to the edge, -1..1.
float FromMiddle(int place)
{
    return static_cast<float>(place) * 2.0F / kViewSize - 1.0F;
}

bool IsRacing()
{
    return Game::pGame != nullptr && Game::pGame->GetState() == kStatePlaying;
}

class Player
{
public:
    // Holds a button from one act to the next.
    void Act()
    {
        bool const isFree = !m_held;
        if (m_held)
        {
            m_pad->letGo(*m_held);
            m_held.reset();
        }
        if (m_pilot)
        {
            Fly(isFree);
        }
        else if (isFree)
        {
            Obey(NextLine());
        }
    }

private:
    void Obey(std::string const& line)
    {
        std::istringstream words(line);
        std::string word;
        words >> word;
        if (word == "plug")
        {
            m_pad.emplace();
        }
        else if (word == "unplug")
        {
            m_pad.reset();
        }
        else if (word == "press" && words >> word)
        {
            Press(SDL_GameControllerGetButtonFromString(word.c_str()));
        }
        else if (float x = 0.0F, y = 0.0F; word == "stick" && words >> x >> y)
        {
            m_pad->moveStick(x, y);
        }
        else if (word == "fly")
        {
            m_pilot = std::make_unique<Pilot>(*Game::pGame->GetUniverse(), kViewSize, kViewSize);
        }
    }

    void Fly(bool mayPress)
    {
        if (!IsRacing())
        {
            m_pilot.reset();
            m_pad->moveStick(0.0F, 0.0F);
            return;
        }
        PilotInput const input = m_pilot->NextInput();
        Steer(FromMiddle(input.mouseX), FromMiddle(input.mouseY));
        if (mayPress && input.throttle != 0)
        {
            Press(input.throttle > 0 ? SDL_CONTROLLER_BUTTON_RIGHTSHOULDER
                                     : SDL_CONTROLLER_BUTTON_LEFTSHOULDER);
        }
    }

    // The deflection that puts the pointer to that place of the view, by shares of the way to the edge.
    void Steer(float x, float y)
    {
        float const length = std::hypot(x, y);
        float const scale = length > 0.0F ? (kRest + (1.0F - kRest) * length) / length : 0.0F;
        m_pad->moveStick(std::clamp(scale * x, -1.0F, 1.0F), std::clamp(scale * y, -1.0F, 1.0F));
    }

    void Press(SDL_GameControllerButton button)
    {
        m_held = button;
        m_pad->hold(button);
    }

    std::optional<VirtualPad> m_pad;
    std::optional<SDL_GameControllerButton> m_held;
    std::unique_ptr<Pilot> m_pilot;
};

} // namespace

int main()
{
    std::ios::sync_with_stdio(false); // so that in_avail() knows of lines that were read ahead
    Player player;
    auto const timer = platform::Timer::scheduledTimer(kInterval, [&player] { player.Act(); });
    return platform::ApplicationMain(std::make_unique<kGLView>());
}
