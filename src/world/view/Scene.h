// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// What is seen from the ship: the sky, the asteroids in their fog, the marker, and over them the frame rate
// where the settings ask for it. An OpenGL context is current in all calls.
#pragma once

#include "ui/Overlay.h"
#include "world/field/FieldView.h"

#include <optional>

class Camera;
class Waypoint;

class Scene
{
public:
    // Starts to decode the pictures that every scene is drawn with, on another thread.
    static void DecodePicturesAhead();

    // Reads the settings. skyTexture: the sky's, when there is one already; 0 loads it.
    explicit Scene(unsigned long skyTexture = 0);

    // Its texture is not released with the scene.
    void LoadSky();
    unsigned long GetSkyTexture() const { return m_skyTexture; }

    // Fog end, in world units, for an eye at p: the view closes in with the depth into the field.
    float FogEndAt(TQ3Vector3D const& p) const;

    // Sizes in pixels.
    void Render(AsteroidField const& field, Camera const& ship, Waypoint const& marker, int width,
                int height);
    void RenderSkyBox() const;
    void RenderFrameRate(float fps, int width, int height);

    // Nothing unless the settings ask for it.
    std::optional<Overlay> const& GetFrameRate() const { return m_frameRate; }

private:
    void BeginFog(float fogEnd) const;
    void RenderField(AsteroidField const& field, Eye const& eye, Frustum const& frustum, int width,
                     int height);
    void RenderSkyBehind(Camera const& ship) const;

    unsigned long m_skyTexture;
    float m_fogStart;
    float m_fogEndLow;
    float m_fogEndHigh;
    std::optional<Overlay> m_frameRate;
    FieldView m_fieldView;
};
