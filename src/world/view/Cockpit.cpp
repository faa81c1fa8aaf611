// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "world/view/Cockpit.h"

#include "core/Globals.h"
#include "math/util.h"
#include "platform/base/OpenGL.h"
#include "settings/GameSettings.h"
#include "world/Camera.h"

#include <cmath>
#include <cstdio>

namespace
{

constexpr std::size_t kFontNameSize = 256;
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

// The corners of a rectangle, from the bottom left by way of the top left.
void Corners(float left, float bottom, float right, float top)
{
    glVertex2f(left, bottom);
    glVertex2f(left, top);
    glVertex2f(right, top);
    glVertex2f(right, bottom);
}

void RenderElevationBar(float elevation)
{
    float const bar = elevation * kBarLength;
    glBegin(GL_QUADS);
    glColor4f(0.0F, 1.0F, 0.5F, 1.0F);
    Corners(0.08F, 0.0F, 0.09F, bar);
    glColor4f(0.4F, 0.4F, 0.4F, 1.0F);
    Corners(0.07F, -0.0015F, 0.1F, 0.0015F);
    glEnd();
}

// The dial lies flat, seen from above and in front.
void RenderCompass(float angle)
{
    glRotatef(-90.0F, 1.0F, 0.0F, 0.0F);
    glColor4f(0.5F, 0.5F, 0.5F, 1.0F);
    glBegin(GL_LINE_LOOP);
    Corners(-0.07F, -0.07F, 0.07F, 0.07F);
    glEnd();
    glScalef(0.12F, 0.12F, 0.12F);
    glRotatef(angle, 0.0F, 0.0F, 1.0F);
    DrawArrow();
}

// Full throttle fills the frame exactly.
void RenderThrottleBar(float throttle)
{
    float const length = throttle * kBarLength;
    if (length > 0.0F)
    {
        glColor4f(1.0F, 0.2F, 0.2F, 1.0F);
        glBegin(GL_QUADS);
        Corners(-0.095F, -0.02F, -0.085F, length - 0.02F);
        glEnd();
    }
    glColor4f(0.4F, 0.4F, 0.4F, 1.0F);
    glBegin(GL_LINE_LOOP);
    Corners(-0.095F, -0.02F, -0.085F, 0.02F);
    glEnd();
}

// Where the marker lies as the ship sees it.
struct Heading
{
    float elevation; // above the ship's plane (positive) or below, sine of the angle, -1..1
    float angle;     // degrees to the left (positive) or right of the nose, in the ship's plane
};

// direction: to the marker, projected onto the ship's plane. vertical: what the projection took away.
float AngleTo(TQ3Vector3D const& direction, TQ3Vector3D const& vertical, bool isBelow, Camera const& ship)
{
    TQ3Vector3D facing;
    ship.GetFacingNormal(&facing);
    float const cosine = FltClamp(Vector3D_Dot(&facing, &direction), -1.0F, 1.0F); // rounding may lead beyond
    auto const angle = static_cast<float>(std::acos(double{cosine}) * 180.0 / kPi);
    TQ3Vector3D side;
    Vector3D_Cross(&facing, &direction, &side);

    // Below the ship's plane "vertical" points down, which changes the sign. For a marker exactly level it
    // is zero, and the angle stays positive.
    bool const isAgainst = Vector3D_Dot(&side, &vertical) < 0.0F;
    return isAgainst != isBelow ? -angle : angle;
}

Heading HeadingTo(TQ3Vector3D const& marker, Camera const& ship)
{
    TQ3Vector3D direction;
    Vector3D_Subtract(&marker, &ship.GetPosition(), &direction);
    Vector3D_Normalize(&direction, &direction);
    float const rise = Vector3D_Dot(&direction, &ship.GetUp());
    TQ3Vector3D vertical;
    Vector3D_Scale(&ship.GetUp(), rise, &vertical);
    Vector3D_Subtract(&direction, &vertical, &direction);
    Vector3D_Normalize(&direction, &direction);
    float const elevation = FltClamp(rise, -1.0F, 1.0F);
    return {elevation, AngleTo(direction, vertical, elevation * kBarLength < 0.0F, ship)};
}

void RenderInstruments(Camera const& ship, TQ3Vector3D const& marker)
{
    RenderThrottleBar(ship.GetTargetVPct());
    Heading const heading = HeadingTo(marker, ship);
    RenderElevationBar(heading.elevation);
    RenderCompass(heading.angle);
}

// Draws over the scene. Leaves lighting and face culling on, whatever they were before.
void RenderGeometry(Camera const& ship, TQ3Vector3D const& marker)
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

    RenderInstruments(ship, marker);

    glPopMatrix();
    glMatrixMode(static_cast<GLenum>(matrixMode));
    if (depthTested)
    {
        glEnable(GL_DEPTH_TEST);
    }
    glEnable(GL_LIGHTING);
    glEnable(GL_CULL_FACE);
    glReportError();
}

Overlay TextOfSize(IntSetting const& size)
{
    char fontName[kFontNameSize];
    GameSettings::GetStringParam(setting::kCockpitTimerFontName, fontName);
    return {0, 0, GameSettings::GetIntParam(size), fontName};
}

} // namespace

Cockpit::Cockpit()
    : m_arrowX(static_cast<float>(GameSettings::GetIntParam(setting::kCockpitArrowX))),
      m_arrowY(static_cast<float>(GameSettings::GetIntParam(setting::kCockpitArrowY))),
      m_clock(TextOfSize(setting::kCockpitTimerFontSize)),
      m_counter(TextOfSize(setting::kCockpitWayptFontSize)),
      m_distance(TextOfSize(setting::kCockpitWayptFontSize))
{
    m_clock.SetBgColor(0.3F, 0.3F, 0.3F, 0.2F);
    for (Overlay* const text : {&m_counter, &m_distance})
    {
        text->SetBgColor(0.0F, 0.0F, 0.0F, 0.0F);
        text->SetBorderColor(0.0F, 0.0F, 0.0F, 0.0F);
    }
}

void Cockpit::ShowWaypoint(int number, int count)
{
    char text[32];
    std::snprintf(text, sizeof text, "%d/%d", number, count);
    m_counter.SetString(text);
}

void Cockpit::Render(Camera const& ship, TQ3Vector3D const& marker, int width, int height)
{
    RenderGeometry(ship, marker);
    RenderTexts(width, height);
}

// Counter and distance stand to the left of the clock, below its top by its height times the view's
// height over 550.
void Cockpit::RenderTexts(int width, int height)
{
    m_clock.MoveTo(width * 5 / 9, height * 9 / 10);
    m_clock.Render(width, height);
    int x = 0;
    int y = 0;
    int clockWidth = 0;
    int clockHeight = 0;
    m_clock.GetDimensions(&x, &y, &clockWidth, &clockHeight);

    int const lineY = height * clockHeight / 550 + y;
    m_counter.MoveTo(x - width / 8, lineY);
    m_counter.Render(width, height);
    m_distance.MoveTo(x - width * 140 / 640, lineY);
    m_distance.Render(width, height);
}
