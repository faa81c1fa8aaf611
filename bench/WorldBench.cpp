// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The race world: making it and taking it down, walking its cells for a frame, asking whether a path is free.
#include "bench/CallReplay.h"
#include "bench/Viewpoint.h"
#include "math/Plane.h"
#include "math/util.h"
#include "platform/base/OpenGL.h"
#include "platform/base/Random.h"
#include "settings/GameSettings.h"
#include "support/gl/RecordingGL.h"
#include "world/Camera.h"
#include "world/Universe.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>

namespace
{

constexpr int kWidth = 1280;
constexpr int kHeight = 720;
constexpr unsigned kSeed = 2026;

struct World
{
    World()
    {
        platform::SeedRandom(kSeed);
        universe = std::make_unique<Universe>();
    }
    ~World()
    {
        auto const sky = static_cast<GLuint>(universe->GetSkyTexture());
        glDeleteTextures(1, &sky);
    }
    World(World const&) = delete;
    World& operator=(World const&) = delete;

    std::unique_ptr<Universe> universe;
};

// The cells that a frame's walk covers: those of the view's box that are not in empty, negative space.
double CellsInView(Universe const& universe)
{
    Camera const& camera = *universe.GetCamera();
    TQ3Vector3D facing;
    camera.GetFacingNormal(&facing);
    TQ3Vector3D apex;
    Vector3D_Subtract(&camera.GetPosition(), &facing, &apex);
    Frustum const frustum(0.7853982F, static_cast<float>(kWidth) / kHeight, &apex, &facing, &camera.GetUp(),
                          universe.PointToFrustumDepth(camera.GetPosition()) + 1.0F);
    float low[3];
    float high[3];
    frustum.GetBoundingBox(&low[0], &high[0], &low[1], &high[1], &low[2], &high[2]);
    double cells = 1.0;
    for (int axis = 0; axis < 3; ++axis)
    {
        cells *= std::max(0, CeilToInt(high[axis]) - FloorToInt(std::max(low[axis], 0.0F)));
    }
    return cells;
}

void Render(benchmark::State& state, Viewpoint const& viewpoint, bool withCockpit)
{
    World const world;
    LookFrom(viewpoint, *world.universe->GetCamera());
    world.universe->SetCockpitVisible(withCockpit);
    for ([[maybe_unused]] auto const _ : state)
    {
        world.universe->Render(kWidth, kHeight);
    }
    state.counters["cells"] = CellsInView(*world.universe);
}

// The calls that Render() makes, and nothing else.
void Replay(benchmark::State& state, Viewpoint const& viewpoint)
{
    World const world;
    LookFrom(viewpoint, *world.universe->GetCamera());
    world.universe->Render(kWidth, kHeight); // makes the texts
    recording::start();
    world.universe->Render(kWidth, kHeight);
    auto const calls = recording::stop();
    CallReplay const replay(calls);
    for ([[maybe_unused]] auto const _ : state)
    {
        replay.Run();
    }
    state.counters["calls"] = static_cast<double>(calls.size());
    state.counters["drawn"] = recording::count(calls, "glCallList");
}

void MakeWorld(benchmark::State& state)
{
    std::unique_ptr<World> world;
    for ([[maybe_unused]] auto const _ : state)
    {
        world = std::make_unique<World>();
        state.PauseTiming();
        world.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(MakeWorld)->Name("world/make")->Unit(benchmark::kMillisecond);

void TakeDownWorld(benchmark::State& state)
{
    for ([[maybe_unused]] auto const _ : state)
    {
        state.PauseTiming();
        auto world = std::make_unique<World>();
        state.ResumeTiming();
        world.reset();
    }
}
BENCHMARK(TakeDownWorld)->Name("world/take down")->Iterations(50)->Unit(benchmark::kMillisecond);

// One frame's path at full speed, in the depths, where half of the cells are filled. Each query starts
// elsewhere.
void PathQuery(benchmark::State& state)
{
    constexpr float kStep = 4.0F / 60.0F; // units: full speed, 60 frames a second
    World const world;
    int turn = 0;
    for ([[maybe_unused]] auto const _ : state)
    {
        auto const offset = static_cast<float>(turn++ % 1000) * 0.013F;
        TQ3Vector3D const start{114.5F + offset, 114.5F, 114.5F + offset * 0.5F};
        TQ3Vector3D const end{start.x + kStep * 0.8F, start.y + kStep * 0.4F, start.z + kStep * 0.44F};
        TQ3Vector3D hit;
        float fraction = 0.0F;
        benchmark::DoNotOptimize(world.universe->WillPathCollide(start, end, 0.1F, &hit, &fraction));
    }
}
BENCHMARK(PathQuery)->Name("world/path query")->Unit(benchmark::kMicrosecond);

// The frame after an hour's sleep, at full speed: 14,400 units. Towards the field from the starting place;
// through the field's edge, where little is in the way; in a lane of the depths that no asteroid reaches
// into.
void HourLongFrame(benchmark::State& state, TQ3Vector3D const& start, TQ3Vector3D const& direction)
{
    constexpr float kLength = 14400.0F;
    World const world;
    TQ3Vector3D step;
    Vector3D_Normalize(&direction, &step);
    Vector3D_Scale(&step, kLength, &step);
    TQ3Vector3D const end{start.x + step.x, start.y + step.y, start.z + step.z};
    bool hit = false;
    for ([[maybe_unused]] auto const _ : state)
    {
        TQ3Vector3D point;
        float fraction = 0.0F;
        hit = world.universe->WillPathCollide(start, end, 0.1F, &point, &fraction);
        benchmark::DoNotOptimize(hit);
    }
    state.counters["hit"] = hit ? 1 : 0;
}

// In a field of a few asteroids, where nothing ends the search early.
void HourLongFrameInAnAlmostEmptyField(benchmark::State& state)
{
    GameSettings::SetFloatParam(setting::kAsteroidsDensityEdge, 0.0002F);
    GameSettings::SetFloatParam(setting::kAsteroidsDensityCenter, 0.0002F);
    HourLongFrame(state, {-10.0F, 3.5F, 2.5F}, {1.0F, 0.9F, 0.8F});
    GameSettings::SetFloatParam(setting::kAsteroidsDensityEdge, 0.01F);
    GameSettings::SetFloatParam(setting::kAsteroidsDensityCenter, 0.5F);
}
BENCHMARK(HourLongFrameInAnAlmostEmptyField)
    ->Name("world/hour-long frame, in an almost empty field")
    ->Unit(benchmark::kMillisecond);

constexpr TQ3Vector3D kStartingPlace{-10.0F, -10.0F, -10.0F};
BENCHMARK_CAPTURE(HourLongFrame, FromTheStart, kStartingPlace, TQ3Vector3D{1.0F, 1.0F, 1.0F})
    ->Name("world/hour-long frame, from the start")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(HourLongFrame, AlongTheEdge, TQ3Vector3D{-10.0F, 3.5F, 2.5F}, TQ3Vector3D{1.0F, 0.0F, 0.0F})
    ->Name("world/hour-long frame, along the edge")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(HourLongFrame, InALane, TQ3Vector3D{120.0F, 120.5F, 120.5F}, TQ3Vector3D{1.0F, 0.0F, 0.0F})
    ->Name("world/hour-long frame, in a lane")
    ->Unit(benchmark::kMillisecond);

[[maybe_unused]] int const renderBenchmarks = []
{
    for (Viewpoint const& viewpoint : Viewpoints())
    {
        benchmark::RegisterBenchmark(("walk/" + Name(viewpoint)).c_str(), Render, viewpoint, false)
            ->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark(("render/" + Name(viewpoint)).c_str(), Render, viewpoint, true)
            ->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark(("replay/" + Name(viewpoint)).c_str(), Replay, viewpoint)
            ->Unit(benchmark::kMillisecond);
    }
    return 0;
}();

} // namespace
