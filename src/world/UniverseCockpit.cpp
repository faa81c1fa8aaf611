// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The instruments: bars, compass and arrow as small geometry just in front of the eye, and three lines of
// text.
#include "world/Universe.h"

#include "core/Globals.h"
#include "math/util.h"
#include "platform/base/OpenGL.h"
#include "ui/Overlay.h"
#include "world/Camera.h"
#include "world/Waypoint.h"

#include <cmath>

// Where the marker lies as the ship sees it.
struct Universe::HeadingToMarker
{
    float elevation; // above the ship's plane (positive) or below, sine of the angle, -1..1
    float angle;     // degrees to the left (positive) or right of the nose, in the ship's plane
};

namespace
{

constexpr double kPi = 3.1415927410125732; // the single-precision value, widened
constexpr float kBarLength = 0.04F;

// An arrow along +y, about one unit long.
constexpr GLfloat kArrowVertices[8][2] = {
    {-0.1F, -0.3F}, {0.1F, -0.3F}, {0.1F, 0.1F},  {0.3F, 0.1F},
    {0.0F, 0.45F},  {-0.3F, 0.1F}, {-0.1F, 0.1F}, {0.0F, 0.0F},
};
constexpr GLubyte kArrowHead[] = {3, 4, 5};
constexpr GLubyte kArrowShaft[] = {0, 1, 2, 6};

void DrawArrow()
{
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(2, GL_FLOAT, 0, kArrowVertices);
    glColor4f(0.0F, 1.0F, 0.5F, 1.0F);
    glDrawElements(GL_TRIANGLES, 3, GL_UNSIGNED_BYTE, kArrowHead);
    glDrawElements(GL_QUADS, 4, GL_UNSIGNED_BYTE, kArrowShaft);
    glDisableClientState(GL_VERTEX_ARRAY);
    glReportError();
}

void RenderElevationBar(float elevation)
{
    float const bar = elevation * kBarLength;
    glBegin(GL_QUADS);
    glColor4f(0.0F, 1.0F, 0.5F, 1.0F);
    glVertex2f(0.08F, 0.0F);
    glVertex2f(0.08F, bar);
    glVertex2f(0.09F, bar);
    glVertex2f(0.09F, 0.0F);
    glColor4f(0.4F, 0.4F, 0.4F, 1.0F);
    glVertex2f(0.07F, -0.0015F);
    glVertex2f(0.07F, 0.0015F);
    glVertex2f(0.1F, 0.0015F);
    glVertex2f(0.1F, -0.0015F);
    glEnd();
}

// The dial lies flat, seen from above and in front.
void RenderCompass(float angle)
{
    glRotatef(-90.0F, 1.0F, 0.0F, 0.0F);
    glColor4f(0.5F, 0.5F, 0.5F, 1.0F);
    glBegin(GL_LINE_LOOP);
    glVertex2f(-0.07F, -0.07F);
    glVertex2f(-0.07F, 0.07F);
    glVertex2f(0.07F, 0.07F);
    glVertex2f(0.07F, -0.07F);
    glEnd();
    glScalef(0.12F, 0.12F, 0.12F);
    glRotatef(angle, 0.0F, 0.0F, 1.0F);
    DrawArrow();
}

} // namespace

void Universe::RenderCockpit(int width, int height)
{
    bool const depthTested = glIsEnabled(GL_DEPTH_TEST) == GL_TRUE;
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_LIGHTING);
    glDisable(GL_CULL_FACE);
    GLint matrixMode = GL_MODELVIEW;
    glGetIntegerv(GL_MATRIX_MODE, &matrixMode);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
    glTranslatef(-0.1F, -0.35F, -1.0F);

    RenderInstruments();

    glPopMatrix();
    glMatrixMode(static_cast<GLenum>(matrixMode));
    if (depthTested)
    {
        glEnable(GL_DEPTH_TEST);
    }
    // On afterwards whatever they were before.
    glEnable(GL_LIGHTING);
    glEnable(GL_CULL_FACE);
    glReportError();

    RenderReadOuts(width, height);
}

void Universe::RenderInstruments() const
{
    RenderThrottleBar();
    HeadingToMarker const heading = HeadingFromShip();
    RenderElevationBar(heading.elevation);
    RenderCompass(heading.angle);
}

// Full throttle fills the frame exactly.
void Universe::RenderThrottleBar() const
{
    float const length = m_camera->GetTargetVPct() * kBarLength;
    if (length > 0.0F)
    {
        glColor4f(1.0F, 0.2F, 0.2F, 1.0F);
        glBegin(GL_QUADS);
        glVertex2f(-0.095F, -0.02F);
        glVertex2f(-0.095F, length - 0.02F);
        glVertex2f(-0.085F, length - 0.02F);
        glVertex2f(-0.085F, -0.02F);
        glEnd();
    }
    glColor4f(0.4F, 0.4F, 0.4F, 1.0F);
    glBegin(GL_LINE_LOOP);
    glVertex2f(-0.095F, -0.02F);
    glVertex2f(-0.095F, 0.02F);
    glVertex2f(-0.085F, 0.02F);
    glVertex2f(-0.085F, -0.02F);
    glEnd();
}

Universe::HeadingToMarker Universe::HeadingFromShip() const
{
    TQ3Vector3D const& up = m_camera->GetUp();
    TQ3Vector3D direction;
    Vector3D_Subtract(&m_waypoint->GetPosition(), &m_camera->GetPosition(), &direction);
    Vector3D_Normalize(&direction, &direction);
    float const rise = Vector3D_Dot(&direction, &up);
    TQ3Vector3D vertical;
    Vector3D_Scale(&up, rise, &vertical);
    Vector3D_Subtract(&direction, &vertical, &direction);
    Vector3D_Normalize(&direction, &direction);
    float const elevation = FltClamp(rise, -1.0F, 1.0F);

    TQ3Vector3D facing;
    m_camera->GetFacingNormal(&facing);
    double const cosine =
        FltClamp(Vector3D_Dot(&facing, &direction), -1.0F, 1.0F); // rounding may lead beyond
    auto angle = static_cast<float>(std::acos(cosine) * 180.0 / kPi);
    TQ3Vector3D side;
    Vector3D_Cross(&facing, &direction, &side);

    // "vertical" carries the sign of the elevation, so both tests together make the sign of the angle follow
    // the side on which the marker lies; for a marker exactly level it stays positive.
    if (Vector3D_Dot(&side, &vertical) < 0.0F)
    {
        angle = -angle;
    }
    if (elevation * kBarLength < 0.0F)
    {
        angle = -angle;
    }
    return {elevation, angle};
}

// Counter and distance stand to the left of the clock, one clock's height (of a 550 pixel high view) below
// its top.
void Universe::RenderReadOuts(int width, int height)
{
    m_timerOverlay->MoveTo(width * 5 / 9, height * 9 / 10);
    m_timerOverlay->Render(width, height);
    int x = 0;
    int y = 0;
    int clockWidth = 0;
    int clockHeight = 0;
    m_timerOverlay->GetDimensions(&x, &y, &clockWidth, &clockHeight);

    int const lineY = height * clockHeight / 550 + y;
    m_waypointOverlay->MoveTo(x - width / 8, lineY);
    m_waypointOverlay->Render(width, height);
    m_distanceOverlay->MoveTo(x - width * 140 / 640, lineY);
    m_distanceOverlay->Render(width, height);
}
