// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "support/flight/Pilot.h"

#include "support/flight/Vectors.h"
#include "world/Camera.h"
#include "world/Universe.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace
{

constexpr float kThrottleStep = 0.2F; // of the greatest speed, for one press of a throttle key
constexpr float kReaction = 0.3F;     // seconds in which a heading error is to be gone
constexpr float kLeastTurn = 0.08F;   // of the greatest: a smaller request may fall into the dead centre
constexpr float kExact = 0.001F;      // radians: a smaller heading error stays
constexpr float kRoom = 0.004F;       // units that the ship may leave its line while it corrects its heading
constexpr float kAligned = 0.1F;      // radians: with a greater heading error the ship stands and turns
constexpr float kArrived = 0.02F;     // units

using Axis = float TQ3Vector3D::*;

TQ3Vector3D CentreOfCube(TQ3Vector3D const& place)
{
    return {std::floor(place.x) + 0.5F, std::floor(place.y) + 0.5F, std::floor(place.z) + 0.5F};
}

// Whether the course's last line is parallel to the axis, and the marker lies farther on in its direction.
bool GoesOn(std::vector<TQ3Vector3D> const& places, Axis axis, TQ3Vector3D const& marker)
{
    TQ3Vector3D const line = test::Difference(places.back(), places[places.size() - 2]);
    return std::fabs(line.*axis) == test::Length(line) &&
           line.*axis * (marker.*axis - places.back().*axis) > 0.0F;
}

// Goes on along the axis of the last line first, where that leads to the marker: this saves a stop.
void AppendLines(std::vector<TQ3Vector3D>& places, TQ3Vector3D const& marker)
{
    std::array<Axis, 3> axes = {&TQ3Vector3D::x, &TQ3Vector3D::y, &TQ3Vector3D::z};
    std::stable_partition(axes.begin(), axes.end(), [&](Axis axis) { return GoesOn(places, axis, marker); });
    for (Axis const axis : axes)
    {
        TQ3Vector3D next = places.back();
        next.*axis = marker.*axis;
        if (GoesOn(places, axis, marker))
        {
            places.back() = next;
        }
        else if (next.*axis != places.back().*axis)
        {
            places.push_back(next);
        }
    }
}

// The places at which the course turns: the ship's own, the nearest on lines, and on to the last marker.
std::vector<TQ3Vector3D> SafeCourse(Universe const& universe)
{
    TQ3Vector3D const& start = universe.GetCamera()->GetPosition();
    std::vector<TQ3Vector3D> places{start, CentreOfCube(start)};
    for (int i = universe.GetCurrentWaypoint(); i < Universe::kWaypointCount; ++i)
    {
        AppendLines(places, universe.GetWaypointPosition(i));
    }
    return places;
}

// The pixel at which a turn request of that share of the greatest lies.
int Pointer(float turn, int viewSize)
{
    auto const half = static_cast<float>(viewSize) / 2.0F;
    return std::clamp(static_cast<int>(std::lround(half + turn * half)), 0, viewSize - 1);
}

} // namespace

Pilot::Pilot(Universe const& universe, int viewWidth, int viewHeight)
    : m_ship(*universe.GetCamera()),
      m_places(SafeCourse(universe)),
      m_viewWidth(viewWidth),
      m_viewHeight(viewHeight),
      m_turnRate(0.95F * 2.0F * std::numbers::pi_v<float> * m_ship.GetMaxRotation()),
      m_braking(0.9F * m_ship.GetMaxAcceleration())
{
}

PilotInput Pilot::NextInput()
{
    while (m_next + 1 < m_places.size() && Remaining() < kArrived)
    {
        ++m_next;
    }
    TQ3Vector3D const aim = AimFromCockpit();
    float const sideways = std::hypot(aim.x, aim.y);
    float const error = std::atan2(sideways, -aim.z);

    // Turns right to a point straight behind.
    float const turn = error < kExact ? 0.0F : std::clamp(error / (kReaction * m_turnRate), kLeastTurn, 1.0F);
    float const x = sideways > 0.0F ? aim.x / sideways * turn : turn;
    float const y = sideways > 0.0F ? aim.y / sideways * turn : 0.0F;
    return {Pointer(x, m_viewWidth), Pointer(y, m_viewHeight), ThrottlePress(SafeSpeed(error))};
}

TQ3Vector3D Pilot::Direction() const
{
    return test::Normalized(test::Difference(m_places[m_next], m_places[m_next - 1]));
}

// Units along the line to the next place; negative beyond it.
float Pilot::Remaining() const
{
    TQ3Vector3D const direction = Direction();
    TQ3Vector3D const way = test::Difference(m_places[m_next], m_ship.GetPosition());
    return Vector3D_Dot(&way, &direction);
}

// The point on the line that the ship heads for, as the player sees it: x to the right, y up, -z ahead. It
// lies farther ahead at speed, so that the ship does not swerve.
TQ3Vector3D Pilot::AimFromCockpit() const
{
    float const ahead = 0.1F + 0.25F * m_ship.GetSpeed();
    TQ3Vector3D const aim = test::Sum(m_places[m_next], test::Scaled(Direction(), ahead - Remaining()));
    TQ3Vector3D offset = test::Difference(aim, m_ship.GetPosition());
    TQ3Quaternion inverse;
    Q3Quaternion_Invert(&m_ship.GetRotation(), &inverse);
    Q3Vector3D_TransformQuaternion(&offset, &inverse, &offset);
    return offset;
}

// The speed at which the ship stays close to its line while it corrects its heading, and can stop at its end.
float Pilot::SafeSpeed(float headingError) const
{
    if (headingError > kAligned)
    {
        return 0.0F;
    }
    float const forHeading = 2.0F * m_turnRate * kRoom / (headingError * headingError + 0.0001F);
    float const forStop = std::sqrt(2.0F * m_braking * std::max(0.0F, Remaining()));
    return std::min({forHeading, forStop, m_ship.GetMaxVelocity()});
}

// Full thrust up to the safe speed, none beyond it.
int Pilot::ThrottlePress(float safeSpeed) const
{
    float const speed = m_ship.GetSpeed();
    float const notch = std::round(m_ship.GetTargetVPct() / kThrottleStep);
    float const needed = safeSpeed / (kThrottleStep * m_ship.GetMaxVelocity());
    if (speed > safeSpeed)
    {
        return notch > std::floor(needed) ? -1 : 0;
    }
    if (speed < 0.97F * safeSpeed)
    {
        return notch < std::ceil(needed) ? 1 : 0;
    }
    return 0;
}
