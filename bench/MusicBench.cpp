// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The four tracks: opening them, and what one costs while it plays on a device that plays in real time
// without a card (ALSOFT_DRIVERS=null). What the open device costs in silence is measured first and
// subtracted.
#include "audio/CBMovie.h"
#include "audio/GameSoundNSMovie.h"
#include "platform/base/Bundle.h"
#include "platform/sound/Movie.h"

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <memory>
#include <numeric>
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

// Ten seconds of frames.
constexpr int kFrames = 600;
constexpr std::chrono::microseconds kFrame{16667};

// Processor time of all threads while frames pass, in percent of one core. eachFrame: called once in each.
template <typename EachFrame>
double ProcessorPercent(EachFrame const& eachFrame)
{
    auto const begin = Clock::now();
    double const processorBefore = ProcessorSeconds();
    for (int i = 0; i < kFrames; ++i)
    {
        std::this_thread::sleep_for(kFrame);
        eachFrame();
    }
    return 100.0 * (ProcessorSeconds() - processorBefore) / Seconds(Clock::now() - begin);
}

// The time is that of one task.
void PlayedFrame(benchmark::State& state)
{
    GameSoundNSMovie("Sable.mp3").Play(); // opens the device
    auto const path = platform::Bundle::pathForResource("Sable.mp3", "Music");
    double const silentPercent = ProcessorPercent([] {});
    double const usedBefore = UsedKibibytes();
    auto const movie = path ? CBMovie::initWithFile(*path, false) : nullptr;
    if (!movie)
    {
        state.SkipWithError("no Sable.mp3");
        return;
    }
    movie->setLoopMode(kLoopNormal);
    movie->start();
    for ([[maybe_unused]] auto const _ : state)
    {
        std::vector<double> tasks;
        double const percent = ProcessorPercent(
            [&]
            {
                auto const before = Clock::now();
                movie->moviesTask();
                tasks.push_back(Seconds(Clock::now() - before));
            });
        std::sort(tasks.begin(), tasks.end());
        state.SetIterationTime(std::accumulate(tasks.begin(), tasks.end(), 0.0) / kFrames);
        state.counters["silent_percent"] = silentPercent;
        state.counters["track_percent"] = percent - silentPercent;
        state.counters["p99_us"] = 1e6 * tasks[tasks.size() * 99 / 100];
        state.counters["worst_us"] = 1e6 * tasks.back();
    }
    state.counters["KiB"] = UsedKibibytes() - usedBefore;
    movie->stop();
}
BENCHMARK(PlayedFrame)
    ->Name("music/task of a playing track")
    ->UseManualTime()
    ->Iterations(1)
    ->Unit(benchmark::kMicrosecond);

} // namespace
