// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The four tracks: opening them, and what one costs while it plays on a device of its own pace
// (ALSOFT_DRIVERS=null).
#include "audio/CBMovie.h"
#include "audio/GameSoundNSMovie.h"
#include "platform/Bundle.h"
#include "platform/Movie.h"

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <memory>
#include <thread>
#include <vector>

namespace
{

using Clock = std::chrono::steady_clock;

constexpr char const* kTracks[] = {"Sable.mp3", "Electro0032.mp3", "SerialK.mp3", "Aai_Tookai.mp3"};

double Seconds(Clock::duration duration)
{
    return std::chrono::duration<double>(duration).count();
}

double ProcessorSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double UsedKibibytes()
{
    auto const info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd) / 1024.0;
}

void OpenFourTracks(benchmark::State& state)
{
    for ([[maybe_unused]] auto const _ : state)
    {
        std::vector<std::unique_ptr<GameSoundNSMovie>> tracks;
        for (char const* const name : kTracks)
        {
            tracks.push_back(std::make_unique<GameSoundNSMovie>(name));
        }
        benchmark::DoNotOptimize(tracks.data());
    }
}
BENCHMARK(OpenFourTracks)->Name("music/open four tracks")->Unit(benchmark::kMillisecond);

// Ten seconds of frames at 60 a second; the time is that of one task.
void PlayedFrame(benchmark::State& state)
{
    // The device is there anyway, for the effects.
    GameSoundNSMovie("Sable.mp3").Play();
    double const usedBefore = UsedKibibytes();
    auto const path = platform::Bundle::pathForResource("Sable.mp3", "Music");
    auto const movie = path ? CBMovie::initWithFile(*path, false) : nullptr;
    if (!movie)
    {
        state.SkipWithError("no Sable.mp3");
        return;
    }
    movie->setLoopMode(kLoopNormal);
    movie->start();
    std::vector<double> tasks;
    auto const begin = Clock::now();
    double const processorBefore = ProcessorSeconds();
    for ([[maybe_unused]] auto const _ : state)
    {
        std::this_thread::sleep_for(std::chrono::microseconds(16667));
        auto const before = Clock::now();
        movie->moviesTask();
        tasks.push_back(Seconds(Clock::now() - before));
        state.SetIterationTime(tasks.back());
    }
    state.counters["cpu_percent"] =
        100.0 * (ProcessorSeconds() - processorBefore) / Seconds(Clock::now() - begin);
    std::sort(tasks.begin(), tasks.end());
    state.counters["p99_us"] = 1e6 * tasks[tasks.size() * 99 / 100];
    state.counters["worst_us"] = 1e6 * tasks.back();
    auto const encoded = static_cast<double>(std::filesystem::file_size(*path)) / 1024.0;
    state.counters["KiB_beside_file"] = UsedKibibytes() - usedBefore - encoded;
    movie->stop();
}
BENCHMARK(PlayedFrame)
    ->Name("music/task of a playing track")
    ->UseManualTime()
    ->Iterations(600)
    ->Unit(benchmark::kMicrosecond);

} // namespace
