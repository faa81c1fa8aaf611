// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The scene drawn in the plainest way: every cell of the view's box, one after the other, every asteroid
// whose centre is in view. The game's own renderer must draw the same picture, pixel for pixel. RenderOnly()
// draws chosen asteroids, such as those that own a pixel: the least that shows the same. The frame rate
// read-out is left out.
#pragma once

#include <functional>
#include <vector>

class Frustum;
class Universe;

class ReferenceScene
{
public:
    struct Rock
    {
        int x; // the cell
        int y;
        int z;
        unsigned list; // size and level of detail
    };

    // The universe outlives the scene. An OpenGL context is current in all calls.
    explicit ReferenceScene(Universe& universe) : m_universe(universe) {}

    // Sizes in pixels.
    void Render(int width, int height) const;
    void RenderOnly(std::vector<Rock> const& rocks, int width, int height) const;

    // All that Render() draws, and those of them that own a pixel in the end; both in the order of the cells.
    std::vector<Rock> RocksInView(int width, int height) const;
    std::vector<Rock> RocksThatShow(int width, int height) const;

private:
    Frustum ViewOf(int width, int height) const;
    float FogEnd() const;
    void ForEachRock(Frustum const& frustum, std::function<void(Rock const&)> const& visit) const;
    void RenderWith(int width, int height, std::function<void(Frustum const&)> const& drawRocks) const;
    void BeginFrame(int width, int height) const;
    void RenderSky() const;
    void BeginFog() const;
    void RenderMarker(Frustum const& frustum) const;

    Universe& m_universe;
};
