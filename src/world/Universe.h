// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The race world: the player's ship, the asteroid field, the course with its marker and clock, the scene and
// the cockpit. There is a new one for every race.
#pragma once

#include "audio/GameSound.h"
#include "world/Camera.h"
#include "world/field/AsteroidField.h"
#include "world/race/Course.h"
#include "world/race/RaceClock.h"
#include "world/view/Cockpit.h"
#include "world/view/Scene.h"
#include "world/Waypoint.h"

class Universe
{
public:
    static constexpr int kFieldSize = AsteroidField::kSize;
    static constexpr int kLevelCount = AsteroidField::kLevelCount;
    static constexpr int kWaypointCount = Course::kWaypointCount;

    // Reads the settings and draws field and course from the random sequence. An OpenGL context is current.
    // skyTexture: that of the world before; 0 loads it.
    explicit Universe(unsigned long skyTexture = 0);

    // One frame: simulation and clock. dt: seconds, not 0.
    void Tick(double dt);

    // Draws the frame into the current context. width, height: pixels.
    void Render(int width, int height);

    void Pause() { m_clock.Pause(); }
    void Unpause() { m_clock.Unpause(); }
    bool IsPaused() const { return m_clock.IsPaused(); }
    double GetRaceTime() const { return m_clock.GetRaceTime(); }
    double GetTimeElapsed() const { return m_clock.GetTimeElapsed(); }

    void PlayerWantsToGo(float pct) { m_camera.SetTargetVPct(pct); } // throttle, 0..1

    // Turn request to the right (dx) and up (dy), each a share of the greatest turn rate.
    void PlayerWantsToTurn(float dx, float dy);

    // Makes waypoint n the current one, as if the one before it had been touched.
    void ActivateWaypoint(int n);
    void RandomizeWaypoints() { m_course.Randomize(); }
    int GetCurrentWaypoint() const { return m_course.GetCurrent(); }
    TQ3Vector3D const& GetWaypointPosition(int index) const { return m_course.GetWaypoint(index); }

    // True when a sphere of that radius on its way from start to end would hit an asteroid before the end.
    // Then hitPoint is where its centre would be at the nearest hit, and hitFraction is 0.
    bool WillPathCollide(TQ3Vector3D const& start, TQ3Vector3D const& end, float radius,
                         TQ3Vector3D* hitPoint, float* hitFraction) const;

    static int CoordToDensity(int c) { return AsteroidField::CoordToDensity(c); }
    Roid const* RoidAtCell(int x, int y, int z) const { return m_field.RoidAt(x, y, z); }

    float PointToFrustumDepth(TQ3Vector3D const& p) const { return m_scene.FogEndAt(p); }
    void InitCubeTexture() { m_scene.LoadSky(); }

    // Not released with the world: the next one takes it.
    unsigned long GetSkyTexture() const { return m_scene.GetSkyTexture(); }

    void RenderEnvironmentBox() const { m_scene.RenderSkyBox(); }

    void SetCockpitVisible(bool visible) { m_isCockpitHidden = !visible; }
    bool IsCockpitHidden() const { return m_isCockpitHidden; }
    void RenderCockpit(int width, int height);
    Cockpit const& GetCockpit() const { return m_cockpit; }
    Scene const& GetScene() const { return m_scene; }

    Camera* GetCamera() { return &m_camera; }
    Camera const* GetCamera() const { return &m_camera; }
    Waypoint const* GetWaypoint() const { return &m_waypoint; }
    GameSound const& GetWhamSound() const { return m_whamSound; }

private:
    void PlaceShip();
    void AdvanceRace(double dt);
    void ReachWaypoint();
    void ShowWaypoint();
    void ShowProgress(int previousSeconds, float previousDistSquared);
    float SquaredDistanceToMarker() const;

    // The order of construction is that of the draws from the random sequence: field, then course.
    Camera m_camera;
    bool m_isMouseInverted;
    float m_searchMargin; // how far beyond a path asteroids are looked for
    AsteroidField m_field;
    Scene m_scene;
    Cockpit m_cockpit;
    RaceClock m_clock;
    float m_fps = 0.0F;
    bool m_isCockpitHidden = false;
    Course m_course;
    Waypoint m_waypoint;
    GameSound m_whamSound;
    GameSound m_grazeSound; // never played
    GameSound m_attentionSound;
};
