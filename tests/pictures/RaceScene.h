// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A race world that is the same in every run, and a ship that can be put anywhere in it.
#pragma once

#include "math/qmath.h"
#include "pictures/Picture.h"

#include <memory>
#include <vector>

class SceneWindow;
class Universe;

class RaceScene
{
public:
    // Leaves no menu current. Needs the window's context, and the game's fixed OpenGL state.
    RaceScene();
    ~RaceScene();
    RaceScene(RaceScene const&) = delete;
    RaceScene& operator=(RaceScene const&) = delete;

    Universe& universe() { return *m_universe; }

    // Puts the ship somewhere, or at an offset from the first marker, looking along a direction.
    void LookFrom(TQ3Vector3D const& place, TQ3Vector3D const& direction);
    void PlaceShip(TQ3Vector3D const& fromMarker, TQ3Vector3D const& direction);

    // The scene, and over it the current menu.
    Picture Draw(SceneWindow& window);

private:
    std::unique_ptr<Universe> m_universe;
};

// A situation in the cockpit: its name, also that of its golden picture, and how a new scene comes to show
// it.
struct Situation
{
    char const* name;
    void (*arrange)(RaceScene&);
};

std::vector<Situation> const& CockpitSituations();
