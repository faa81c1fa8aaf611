// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "pictures/RaceScene.h"

#include "pictures/SceneWindow.h"
#include "platform/base/Random.h"
#include "ui/Menu.h"
#include "world/Camera.h"
#include "world/Universe.h"

namespace
{

constexpr unsigned kSeed = 2026;
constexpr double kRaced = 83.0; // seconds: the clock shows 1:23
constexpr TQ3Vector3D kNorth{0.0F, 0.0F, -1.0F};

} // namespace

RaceScene::RaceScene()
{
    Menu::ClearCurrent();
    platform::SeedRandom(kSeed);
    m_universe = std::make_unique<Universe>();
    m_universe->Tick(kRaced);
}

RaceScene::~RaceScene() = default;

void RaceScene::LookFrom(TQ3Vector3D const& place, TQ3Vector3D const& direction)
{
    Camera& camera = *m_universe->GetCamera();
    camera.Body::SetDefaults(); // TurnToFace() is right only for a ship that has not turned yet
    camera.MoveTo(place);
    camera.TurnToFace(place.x + direction.x, place.y + direction.y, place.z + direction.z);
}

void RaceScene::PlaceShip(TQ3Vector3D const& fromMarker, TQ3Vector3D const& direction)
{
    TQ3Vector3D const& marker = m_universe->GetWaypointPosition(0);
    LookFrom({marker.x + fromMarker.x, marker.y + fromMarker.y, marker.z + fromMarker.z}, direction);
}

Picture RaceScene::Draw(SceneWindow& window)
{
    m_universe->Tick(0.0); // brings the distance up to date
    return window.draw(
        [this](int width, int height)
        {
            m_universe->Render(width, height);
            Menu::RenderCurrent(width, height);
        });
}

std::vector<Situation> const& CockpitSituations()
{
    static std::vector<Situation> const all = {
        {"race-start", [](RaceScene&) {}},
        {"deep-field",
         [](RaceScene& scene)
         {
             scene.LookFrom({100.5F, 100.5F, 100.5F}, {1.0F, 0.3F, 0.1F});
             scene.universe().PlayerWantsToGo(0.6F);
         }},
        {"marker-ahead",
         [](RaceScene& scene) {
             scene.PlaceShip({0.0F, 0.0F, 4.0F}, kNorth);
         }},
        {"marker-behind",
         [](RaceScene& scene)
         {
             scene.PlaceShip({0.0F, 0.0F, -4.0F}, kNorth);
             scene.universe().PlayerWantsToGo(1.0F);
         }},
        {"marker-above",
         [](RaceScene& scene) {
             scene.PlaceShip({0.5F, -1.2F, 4.0F}, kNorth);
         }},
        {"marker-below",
         [](RaceScene& scene) {
             scene.PlaceShip({-0.5F, 1.2F, 4.0F}, kNorth);
         }},
    };
    return all;
}
