// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// One asteroid of the field: a body with a size class, drawn as a textured sphere that does not turn.
// All share one texture and twelve display lists: four sizes in three levels of detail.
#pragma once

#include "math/Plane.h"
#include "math/util.h"
#include "world/Body.h"

#include <optional>

class Roid : public Body
{
public:
    static constexpr char const* kPicture = "roid-128.jpg"; // of their surface
    static constexpr int kSizeCount = 4;
    static constexpr int kLodCount = 3; // 0 is the finest

    // The radii of the smallest and the largest, world units.
    struct Sizes
    {
        float minR;
        float maxR;
    };
    static Sizes SizesFromSettings();

    // Picks a size class from the random sequence. An OpenGL context is current. The second form spares
    // thousands of asteroids the look-up of the settings.
    explicit Roid(Universe const* universe) : Roid(universe, SizesFromSettings()) {}
    Roid(Universe const* universe, Sizes const& sizes);
    Roid(Roid&&) noexcept = default;
    Roid& operator=(Roid&&) = delete;
    Roid(Roid const&) = delete;
    Roid& operator=(Roid const&) = delete;

    // Deletes the texture and the lists: the asteroids of a field are destroyed together.
    ~Roid();

    // Builds texture and lists anew from the settings, for a new field.
    static void ReadSettings();

    // What the spheres of a set of lists are like.
    struct Meshes
    {
        float radius[kSizeCount];    // world units
        float solidShare[kLodCount]; // radius of the largest ball inside the mesh, as a share of the sphere's
    };

    // Makes the lists, and tells what is in them. smoothness: slices and stacks of the finest spheres.
    static Meshes CreatePrerender(int smoothness, unsigned long lists[kSizeCount][kLodCount]);
    static Meshes const& GetMeshes() { return m_meshes; } // in the lists that all asteroids share

    // Set and clear the state that all asteroids share; once a frame around all Render() calls.
    static void RenderStart();
    static void RenderEnd();

    // Moves the asteroid to the position and draws it there. False when its centre is out of view.
    bool Render(TQ3Vector3D const& position, Frustum const& frustum);

    // The level of detail that Render() draws at that position; nothing when its centre is out of view.
    static std::optional<int> LevelInView(TQ3Vector3D const& position, Frustum const& frustum)
    {
        if (!frustum.IsPointInside(position))
        {
            return std::nullopt;
        }
        float const distanceSquared = DistSquared(frustum.GetApex(), position);
        return distanceSquared >= m_lodDistFar ? 2 : distanceSquared >= m_lodDistMedium ? 1 : 0;
    }

    // What Render() draws.
    static void Draw(TQ3Vector3D const& position, int sizeClass, int levelOfDetail);

    // True when a sphere of that radius, travelling from start in the direction of end, touches the asteroid:
    // then hitPoint is the sphere's centre as it enters (from inside: as it leaves), hitDistance how far it
    // has come. A touch beyond the end is reported too.
    bool ComputePathIntersection(TQ3Vector3D const& start, TQ3Vector3D const& end, float radius,
                                 TQ3Vector3D* hitPoint, float* hitDistance) const;

    // The same for the asteroid in another repetition of its cell.
    bool ComputePathIntersectionAt(TQ3Vector3D const& place, TQ3Vector3D const& start, TQ3Vector3D const& end,
                                   float radius, TQ3Vector3D* hitPoint, float* hitDistance) const;

    int GetSizeClass() const { return m_sizeClass; }

    static unsigned long m_texture;
    static float m_lodDistFar;    // squared
    static float m_lodDistMedium; // squared
    static bool m_fGotSettings;
    static unsigned long m_ahroid[kSizeCount][kLodCount];

private:
    static void ReleaseShared();

    static Meshes m_meshes; // in m_ahroid

    int m_sizeClass = 0;
};
