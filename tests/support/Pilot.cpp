// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "support/Pilot.h"

#include "support/Vectors.h"
#include "world/Camera.h"
#include "world/Universe.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr float kTurnRate = 0.6F;      // radians per second, a little below the ship's at full deflection
constexpr float kBraking = 0.27F;      // units per second squared, a little below the ship's
constexpr float kTopSpeed = 4.0F;      // units per second
constexpr float kThrottleSpeed = 0.8F; // what one press of a throttle key is worth
constexpr float kReaction = 0.12F;     // seconds in which a heading error is to be gone
constexpr float kRoomUsed = 0.8F;      // share of a leg's clearance that turns may use up
constexpr float kLeastRoom = 0.002F;
constexpr float kLeastSpeed = 0.02F;
constexpr float kAligned = 0.1F;       // radians
constexpr float kSharpTurn = 1.6F;     // radians: on the way back the ship passes where it came from
constexpr float kTurningPlace = 0.15F; // units from the end of a leg with a sharp turn
constexpr float kBrakingDistance = kTopSpeed * kTopSpeed / (2.0F * kBraking);

// How far ahead on its track the ship heads for at least, so as not to swerve: nearer in narrow places.
float NearestLook(float clearance, float speed)
{
    return std::min(0.15F, 10.0F * std::max(clearance, kLeastRoom)) + 0.25F * speed;
}

} // namespace

// Where the ship is with respect to its leg.
struct Pilot::Course
{
    float along;    // units from the leg's start to the ship's nearest place on it
    float offTrack; // units from there to the ship
};

Pilot::Pilot(Universe const& universe, int viewWidth, int viewHeight)
    : m_universe(universe),
      m_camera(*universe.GetCamera()),
      m_map(universe),
      m_viewWidth(viewWidth),
      m_viewHeight(viewHeight)
{
    Plan();
}

void Pilot::Plan()
{
    std::vector<TQ3Vector3D> ahead;
    for (int i = m_universe.GetCurrentWaypoint(); i < Universe::kWaypointCount; ++i)
    {
        ahead.push_back(m_universe.GetWaypointPosition(i));
    }
    m_legs = PlanFlight(m_map, m_camera.GetPosition(), ahead);
    m_leg = 0;
    m_firstWaypoint = static_cast<std::size_t>(m_universe.GetCurrentWaypoint());
}

PilotInput Pilot::NextInput()
{
    if (IsAstray())
    {
        Plan();
        ++m_replans;
    }
    AdvanceLeg();
    TQ3Vector3D const ahead = FromCockpit(PointAhead(LookAhead()));
    float const error = test::AngleBetween({0.0F, 0.0F, -1.0F}, test::Normalized(ahead));

    // What lies straight behind is turned to by the right.
    float const sideways = std::hypot(ahead.x, ahead.y);
    float const turn = std::min(1.0F, error / (kReaction * kTurnRate));
    float const x = sideways > 0.0F ? ahead.x / sideways * turn : turn;
    float const y = sideways > 0.0F ? ahead.y / sideways * turn : 0.0F;

    int const press = ThrottlePress(SafeSpeed(error));
    m_thrusting = m_camera.GetTargetVPct() > 0.0F || press > 0;
    return {Pointer(x, m_viewWidth), Pointer(y, m_viewHeight), press};
}

// As the player sees it: x to the right, y up, -z ahead.
TQ3Vector3D Pilot::FromCockpit(TQ3Vector3D const& place) const
{
    TQ3Vector3D offset = test::Difference(place, m_camera.GetPosition());
    TQ3Quaternion inverse;
    Q3Quaternion_Invert(&m_camera.GetRotation(), &inverse);
    Q3Vector3D_TransformQuaternion(&offset, &inverse, &offset);
    return offset;
}

bool Pilot::IsAstray() const
{
    bool const stoppedByImpact =
        m_thrusting && m_camera.GetTargetVPct() == 0.0F && m_camera.GetSpeed() == 0.0F;
    Course const course = CurrentCourse();
    return stoppedByImpact || course.offTrack > std::max(0.3F, m_legs[m_leg].clearance);
}

Pilot::Course Pilot::CurrentCourse() const
{
    Leg const& leg = m_legs[m_leg];
    TQ3Vector3D const nearest = test::NearestOnSegment(m_camera.GetPosition(), leg.from, leg.to);
    return {test::Length(test::Difference(nearest, leg.from)),
            test::Length(test::Difference(m_camera.GetPosition(), nearest))};
}

// On to the next leg as soon as it is the nearer one, but past no waypoint before it is touched.
void Pilot::AdvanceLeg()
{
    auto const current = static_cast<std::size_t>(m_universe.GetCurrentWaypoint());
    while (m_leg + 1 < m_legs.size())
    {
        Leg const& next = m_legs[m_leg + 1];
        bool const turnsBack = TurnAhead(m_leg) > kSharpTurn;
        if (m_firstWaypoint + next.waypoint > current ||
            (turnsBack && CurrentCourse().along < m_legs[m_leg].length - kTurningPlace))
        {
            return;
        }
        TQ3Vector3D const onNext = test::NearestOnSegment(m_camera.GetPosition(), next.from, next.to);
        if (test::Length(test::Difference(m_camera.GetPosition(), onNext)) > CurrentCourse().offTrack)
        {
            return;
        }
        ++m_leg;
    }
}

// The place on the plan that far ahead of the ship.
TQ3Vector3D Pilot::PointAhead(float distance) const
{
    float along = CurrentCourse().along + distance;
    std::size_t leg = m_leg;
    while (leg + 1 < m_legs.size() && along > m_legs[leg].length)
    {
        along -= m_legs[leg].length;
        ++leg;
    }
    return test::Sum(m_legs[leg].from, test::Scaled(m_legs[leg].direction, along));
}

// Radians between a leg and the next; 0 at the end of the plan.
float Pilot::TurnAhead(std::size_t leg) const
{
    return leg + 1 < m_legs.size() ? test::AngleBetween(m_legs[leg].direction, m_legs[leg + 1].direction)
                                   : 0.0F;
}

// What turns at the end of a leg may use up of its clearance.
float Pilot::Room(std::size_t leg) const
{
    float clearance = m_legs[leg].clearance;
    if (leg + 1 < m_legs.size())
    {
        clearance = std::min(clearance, m_legs[leg + 1].clearance);
    }
    return std::max(kLeastRoom, kRoomUsed * clearance);
}

// The speed at which the turn at the end of a leg leads off the track by no more than its room.
float Pilot::TurnSpeed(std::size_t leg) const
{
    float const turn = TurnAhead(leg);
    return std::clamp(4.0F * kTurnRate * Room(leg) / (turn * turn + 0.0001F), kLeastSpeed, kTopSpeed);
}

// Far enough to follow the coming turn at the ship's turn rate, near enough to stay on track.
float Pilot::LookAhead() const
{
    float const speed = m_camera.GetSpeed();
    float const turn = TurnAhead(m_leg);
    float const forTurn = std::min(speed * turn / kTurnRate, 4.0F * Room(m_leg) / (turn + 0.01F));
    return std::max(forTurn, NearestLook(m_legs[m_leg].clearance, speed));
}

float Pilot::SafeSpeed(float headingError) const
{
    Course const course = CurrentCourse();
    float const room = std::max(kLeastRoom, kRoomUsed * m_legs[m_leg].clearance - course.offTrack);
    float safe = std::min(kTopSpeed, 2.0F * kTurnRate * room / (headingError * headingError + 0.0001F));

    float distance = -course.along;
    for (std::size_t leg = m_leg; leg + 1 < m_legs.size() && distance < kBrakingDistance; ++leg)
    {
        distance += m_legs[leg].length;
        float const turnSpeed = TurnSpeed(leg);
        float const toBrake = std::max(0.0F, distance - NearestLook(m_legs[leg].clearance, turnSpeed));
        safe = std::min(safe, std::sqrt(turnSpeed * turnSpeed + 2.0F * kBraking * toBrake));
    }
    // Close to an asteroid the ship turns first and goes then.
    if (headingError > kAligned && safe < kLeastSpeed)
    {
        return 0.0F;
    }
    return std::max(safe, kLeastSpeed);
}

// Full thrust up to the safe speed, none beyond it.
int Pilot::ThrottlePress(float safeSpeed) const
{
    float const speed = m_camera.GetSpeed();
    float const notch = std::round(m_camera.GetTargetVPct() * kTopSpeed / kThrottleSpeed);
    float const needed = safeSpeed / kThrottleSpeed;
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

// The pixel at which a turn request of that share of the greatest lies.
int Pilot::Pointer(float turn, int viewSize) const
{
    auto const half = static_cast<float>(viewSize) / 2.0F;
    return std::clamp(static_cast<int>(std::lround(half + turn * half)), 0, viewSize - 1);
}
