// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The race world: the player's ship, the asteroid field, the course with its marker and clock, the scene and
// the cockpit. Game makes a new one for every race.
//
// The field is a lattice of 16 x 16 x 16 cells, one unit apart, that repeats without end along the positive
// axes; which of eight variants of a cell stands at a place depends on how deep the place lies in the field.
// Space with a negative coordinate is empty.
//
// Construction and collision are in Universe.cpp, course and clock in UniverseRace.cpp, the scene in
// UniverseScene.cpp, the instruments in UniverseCockpit.cpp.
#pragma once

#include "math/qmath.h"
#include "world/field/FieldRows.h"
#include "world/field/FieldView.h"

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

class Camera;
class Frustum;
class GameSound;
class Overlay;
class PathSearch;
class Roid;
class Waypoint;

class Universe
{
public:
    static constexpr int kFieldSize = 16;    // cells along an axis before the field repeats
    static constexpr int kLevelCount = 8;    // variants of a cell, the sparsest first
    static constexpr int kWaypointCount = 8; // of every course

    // Starts to decode the pictures that every world is drawn with; for the time in which the display opens.
    static void DecodePicturesAhead();

    // Reads the settings and draws field and course from the random sequence. An OpenGL context is current.
    Universe();

    // The sky texture is not released: whoever replaces a world deletes GetSkyTexture().
    ~Universe();
    Universe(Universe const&) = delete;
    Universe& operator=(Universe const&) = delete;

    // One frame: simulation and clock. dt: seconds, not 0.
    void Tick(double dt);

    // Draws the frame into the current context. width, height: pixels.
    void Render(int width, int height);

    void Pause() { m_paused = true; }
    void Unpause() { m_paused = false; }
    void SetCockpitVisible(bool visible) { m_cockpitHidden = !visible; }

    // The race result in seconds: every second spent paused is taken off the running time, which did not
    // advance during the pause either. Deliberate.
    double GetTimeElapsed() const { return m_raceTime - m_pausedTime; }

    void PlayerWantsToGo(float pct); // throttle, 0..1

    // Turn request to the right (dx) and up (dy), each a share of the greatest turn rate.
    void PlayerWantsToTurn(float dx, float dy);

    // Makes waypoint n the current one, as if the one before it had been touched.
    void ActivateWaypoint(int n);
    void RandomizeWaypoints();

    // True when a sphere of that radius on its way from start to end would hit an asteroid before the end.
    // Then hitPoint is where its centre would be at the nearest hit, and hitFraction is 0.
    bool WillPathCollide(TQ3Vector3D const& start, TQ3Vector3D const& end, float radius,
                         TQ3Vector3D* hitPoint, float* hitFraction) const;

    // The variant at a coordinate: one level for each 16 units of depth, at most 7.
    static int CoordToDensity(int c) { return std::min(c / kFieldSize, kLevelCount - 1); }

    // The asteroid of a cell of the endless lattice, null where the cell is empty. One asteroid serves all
    // the repetitions of its cell: its position means nothing until the user has moved it.
    Roid* RoidAtCell(int x, int y, int z) const
    {
        int const depth = std::min(std::min(x, y), z);
        return depth < 0 ? nullptr
                         : m_roids[x % kFieldSize][y % kFieldSize][z % kFieldSize][CoordToDensity(depth)];
    }

    // Fog end, in world units, for an eye at p: the view closes in with the depth into the field.
    float PointToFrustumDepth(TQ3Vector3D const& p) const;

    void InitCubeTexture();
    void RenderEnvironmentBox() const;
    void RenderCockpit(int width, int height);

    Camera* GetCamera() const { return m_camera.get(); }
    Waypoint const* GetWaypoint() const { return m_waypoint.get(); }
    GameSound* GetWhamSound() const { return m_whamSound.get(); }
    unsigned long GetSkyTexture() const { return m_skyTexture; }
    int GetCurrentWaypoint() const { return m_currentWaypoint; }
    TQ3Vector3D const& GetWaypointPosition(int index) const
    {
        return m_waypoints[static_cast<std::size_t>(index)];
    }
    int GetDistanceToWaypoint() const { return m_distanceToWaypoint; }
    double GetRaceTime() const { return m_raceTime; }
    double GetPausedTime() const { return m_pausedTime; }
    bool IsPaused() const { return m_paused; }
    bool IsCockpitHidden() const { return m_cockpitHidden; }
    float GetFPS() const { return m_fps; }
    Overlay const* GetFPSOverlay() const { return m_fpsOverlay.get(); } // null unless the setting asks for it
    Overlay const* GetTimerOverlay() const { return m_timerOverlay.get(); }
    Overlay const* GetWaypointOverlay() const { return m_waypointOverlay.get(); }
    Overlay const* GetDistanceOverlay() const { return m_distanceOverlay.get(); }

private:
    struct HeadingToMarker;

    void InitShip();
    void GenerateField();
    void ReadSceneSettings();
    void CreateOverlays();
    void StartCourse();

    void AdvanceRace(double dt);
    void ReachWaypoint();
    void MoveMarkerTo(int n);
    void ShowWaypointCount();

    void BeginScene(int width, int height) const;
    void PushSkyMatrix() const;
    void PlaceLight() const;
    void RenderSkyBehind() const;
    void BeginFog(float fogEnd) const;
    void RenderField(Frustum const& frustum, int width, int height);
    void RenderMarker(Frustum const& frustum, float fogEnd) const;

    void RenderInstruments() const;
    void RenderThrottleBar() const;
    void RenderReadOuts(int width, int height);
    HeadingToMarker HeadingFromShip() const;

    std::unique_ptr<Camera> m_camera;
    bool m_mouseInvert = false;
    float m_searchMargin = 0.0F; // how far beyond a path asteroids are looked for
    std::vector<Roid> m_roidStorage;
    Roid* m_roids[kFieldSize][kFieldSize][kFieldSize][kLevelCount] = {};
    std::unique_ptr<PathSearch> m_pathSearch;
    FieldRows m_fieldRows;
    FieldView m_fieldView;
    std::unique_ptr<Waypoint> m_waypoint;
    int m_currentWaypoint = 0;
    int m_waypointCount = kWaypointCount;
    unsigned long m_skyTexture = 0;
    std::unique_ptr<Overlay> m_fpsOverlay;
    std::unique_ptr<Overlay> m_timerOverlay;
    std::unique_ptr<Overlay> m_waypointOverlay;
    std::unique_ptr<Overlay> m_distanceOverlay;
    float m_arrowX = 0.0F; // read, and used by nothing: the cockpit's layout is fixed
    float m_arrowY = 0.0F;
    int m_distanceToWaypoint = 0;
    double m_raceTime = 0.0;
    double m_pausedTime = 0.0;
    float m_fps = 0.0F;
    bool m_paused = false;
    bool m_cockpitHidden = false;
    float m_fogStart = 0.0F;
    float m_fogEndLow = 0.0F;
    float m_fogEndHigh = 0.0F;
    std::array<TQ3Vector3D, kWaypointCount> m_waypoints;
    std::unique_ptr<GameSound> m_whamSound;
    std::unique_ptr<GameSound> m_grazeSound; // loaded, and played by nothing
    std::unique_ptr<GameSound> m_attentionSound;
};
