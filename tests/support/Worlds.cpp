// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "support/Worlds.h"

#include "platform/base/Random.h"
#include "support/TestSettings.h"
#include "world/Camera.h"
#include "world/Universe.h"

namespace test
{

std::unique_ptr<AsteroidField> SeededField(float edge, float centre, float minR, float maxR)
{
    ScopedSetting const settings[] = {{setting::kAsteroidsDensityEdge, edge},
                                      {setting::kAsteroidsDensityCenter, centre},
                                      {setting::kAsteroidsMinR, minR},
                                      {setting::kAsteroidsMaxR, maxR}};
    platform::SeedRandom(11);
    return std::make_unique<AsteroidField>(nullptr);
}

std::unique_ptr<Universe> EmptyWorld()
{
    ScopedSetting const edge(setting::kAsteroidsDensityEdge, 0.0F);
    ScopedSetting const centre(setting::kAsteroidsDensityCenter, 0.0F);
    platform::SeedRandom(1); // a draw of exactly 0 would fill a cell; this sequence has none
    return std::make_unique<Universe>();
}

std::unique_ptr<Universe> FullWorld(float asteroidRadius)
{
    ScopedSetting const edge(setting::kAsteroidsDensityEdge, 1.0F);
    ScopedSetting const centre(setting::kAsteroidsDensityCenter, 1.0F);
    ScopedSetting const minR(setting::kAsteroidsMinR, asteroidRadius);
    ScopedSetting const maxR(setting::kAsteroidsMaxR, asteroidRadius);
    return std::make_unique<Universe>();
}

std::unique_ptr<Universe> SeededWorld(unsigned seed)
{
    platform::SeedRandom(seed);
    return std::make_unique<Universe>();
}

void LayShip(Camera& ship, TQ3Vector3D const& position)
{
    ship.Body::SetDefaults();
    ship.SetDefaults();
    ship.Body::SetRotationRate({0.0F, 1.0F, 0.0F}, 0.0F);
    ship.SetPos(position);
    ship.SetRotation(0.0F);
}

} // namespace test
