// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Chooses the asteroids to draw in a frame: those whose centres are in view and that nearer ones do not hide.
// The lists keep their memory from frame to frame.
#pragma once

#include "math/qmath.h"
#include "world/field/CoveredView.h"

#include <cstdint>
#include <vector>

class AsteroidField;
class Frustum;

class FieldView
{
public:
    struct Rock
    {
        TQ3Vector3D place; // the cell
        CoveredView::Ball seen{};
        std::uint8_t sizeClass = 0;
        std::uint8_t levelOfDetail = 0;
        bool isShown = false;
    };

    // frustum: what that eye sees. Sizes of the picture in pixels. All that are in view, in the order of the
    // cells, z innermost; those with isShown are to be drawn. Valid until the next call.
    std::vector<Rock> const& Choose(AsteroidField const& field, Frustum const& frustum, Eye const& eye,
                                    int width, int height);

private:
    void Collect(AsteroidField const& field, Frustum const& frustum);
    void AddIfInView(TQ3Vector3D const& place, int sizeClass, Frustum const& frustum);
    void SortNearestFirst();
    void MarkShown();

    CoveredView m_covered;
    std::vector<Rock> m_rocks;
    std::vector<std::uint32_t> m_nearestFirst; // indices
};
