// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The game, which changes settings and best times all the time and saves them: in generation n each of them
// has the value n. It prints each generation once it is on the disk.
#include "core/Game.h"
#include "core/kGLView.h"
#include "platform/base/RunLoop.h"
#include "platform/settings/Preferences.h"
#include "platform/window/Application.h"
#include "settings/GameSettings.h"

#include <array>
#include <cstdio>
#include <memory>
#include <string>

namespace
{

constexpr double kInterval = 0.002; // seconds between two generations
constexpr int kTimeCount = 5;

class Scribbler
{
public:
    // From the first frame on: until then nothing is registered.
    void WriteNext()
    {
        if (Game::pGame == nullptr)
        {
            return;
        }
        int const generation = GameSettings::GetIntParam(setting::kFpsFontSize) + 1;
        std::array<int, kTimeCount> times{};
        times.fill(generation);
        GameSettings::SetIntParam(setting::kFpsFontSize, generation);
        GameSettings::SetFloatParam(setting::kLodDistFar, static_cast<float>(generation));
        GameSettings::SetStringParam(setting::kFpsFontName, std::to_string(generation).c_str());
        GameSettings::SetIntArrayParam(setting::kRaceTimes, times.data(), kTimeCount);
        if (platform::Preferences::standard().synchronize())
        {
            std::printf("on the disk: %d\n", generation);
            std::fflush(stdout);
        }
    }
};

} // namespace

int main()
{
    Scribbler scribbler;
    auto const timer = platform::Timer::scheduledTimer(kInterval, [&scribbler] { scribbler.WriteNext(); });
    return platform::ApplicationMain(std::make_unique<kGLView>());
}
