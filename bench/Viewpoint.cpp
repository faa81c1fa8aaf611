// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "bench/Viewpoint.h"

#include "world/Camera.h"

#include <cmath>

namespace
{

constexpr float kPlaces[] = {-10.0F, 0.0F, 8.0F, 16.0F, 24.0F, 32.0F, 48.0F, 64.0F, 100.0F};

void TurnTowards(TQ3Vector3D target, Camera& camera)
{
    Vector3D_Normalize(&target, &target);
    TQ3Vector3D facing;
    camera.GetFacingNormal(&facing);
    TQ3Vector3D axis;
    Vector3D_Cross(&facing, &target, &axis);
    float sine = 0.0F;
    Vector3D_Normalize(&axis, &axis, &sine);
    camera.SetRotationRate(axis, 0.0F);
    camera.SetRotation(std::atan2(sine, Vector3D_Dot(&facing, &target)));
    camera.Tick(0.0); // its up vector follows
}

} // namespace

std::vector<Viewpoint> const& Viewpoints()
{
    static std::vector<Viewpoint> const all = []
    {
        std::vector<Viewpoint> viewpoints;
        for (float const place : kPlaces)
        {
            viewpoints.push_back({place, {1.0F, 1.0F, 1.0F}, "diagonal"});
            viewpoints.push_back({place, {1.0F, 0.3F, 0.1F}, "sideways"});
        }
        return viewpoints;
    }();
    return all;
}

std::string Name(Viewpoint const& viewpoint)
{
    return std::to_string(static_cast<int>(viewpoint.place)) + "/" + viewpoint.directionName;
}

void LookFrom(Viewpoint const& viewpoint, Camera& camera)
{
    camera.MoveTo(viewpoint.place, viewpoint.place, viewpoint.place);
    TurnTowards(viewpoint.direction, camera);
}
