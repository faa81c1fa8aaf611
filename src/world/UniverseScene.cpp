// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// One frame of the scene: sky, fogged field, marker, and the read-outs over it.
#include "world/Universe.h"

#include "core/Globals.h"
#include "gfx/QTUtil.h"
#include "gfx/Roid.h"
#include "math/Plane.h"
#include "math/util.h"
#include "platform/OpenGL.h"
#include "ui/Overlay.h"
#include "world/Camera.h"
#include "world/Waypoint.h"

#include <algorithm>

namespace
{

constexpr double kFieldOfViewDegrees = 45.0;
constexpr float kFieldOfView = 0.7853982F; // the same in radians
constexpr double kNear = 0.1;
constexpr double kFar = 100.0;
constexpr float kClosedInDepth = 48.0F; // three lattice blocks deep the view has closed in
constexpr GLfloat kFogColor[] = {0.05F, 0.05F, 0.1F, 1.0F};
constexpr GLfloat kLightPosition[] = {10.0F, 10.0F, -10.0F, 0.5F};

// A cube around the eye, face after face, each corner list matching kSkyTexture.
constexpr GLfloat kSkyVertices[24][3] = {
    {-10, 10, -10}, {-10, -10, -10}, {10, -10, -10},  {10, 10, -10},  // -z
    {-10, 10, 10},  {10, 10, 10},    {10, -10, 10},   {-10, -10, 10}, // +z
    {-10, 10, 10},  {-10, -10, 10},  {-10, -10, -10}, {-10, 10, -10}, // -x
    {10, 10, 10},   {10, 10, -10},   {10, -10, -10},  {10, -10, 10},  // +x
    {-10, 10, -10}, {10, 10, -10},   {10, 10, 10},    {-10, 10, 10},  // +y
    {-10, -10, 10}, {10, -10, 10},   {10, -10, -10},  {-10, -10, -10} // -y
};
constexpr GLfloat kSkyTexture[4][3] = {{-1, 1, 0}, {-1, -1, 0}, {1, -1, 0}, {1, 1, 0}};

} // namespace

float Universe::PointToFrustumDepth(TQ3Vector3D const& p) const
{
    float const depth = std::min({p.x, p.y, p.z});
    if (depth <= 0.0F)
    {
        return m_fogEndHigh;
    }
    if (depth >= kClosedInDepth)
    {
        return m_fogEndLow;
    }
    return m_fogEndHigh - (m_fogEndHigh - m_fogEndLow) * (depth / kClosedInDepth);
}

void Universe::Render(int width, int height)
{
    BeginScene(width, height);
    RenderSky();
    float const fogEnd = PointToFrustumDepth(m_camera->GetPosition());
    BeginFog(fogEnd);

    TQ3Vector3D facing;
    m_camera->GetFacingNormal(&facing);
    TQ3Vector3D
        apex; // one unit behind the ship, so that rocks beside the eye are not culled by their centres
    Vector3D_Subtract(&m_camera->GetPosition(), &facing, &apex);
    Frustum const frustum(kFieldOfView, static_cast<float>(width) / static_cast<float>(height), &apex,
                          &facing, &m_camera->GetUp(), fogEnd + 1.0F);
    Roid::RenderStart();
    RenderField(frustum);
    Roid::RenderEnd();
    RenderMarker(frustum, fogEnd);
    glDisable(GL_FOG);

    if (m_fpsOverlay)
    {
        m_fpsOverlay->SetString(m_fps);
        m_fpsOverlay->Render(width, height);
    }
    if (!m_cockpitHidden)
    {
        RenderCockpit(width, height);
    }
    glReportError();
}

void Universe::BeginScene(int width, int height) const
{
    glClearColor(0.0F, 0.0F, 0.0F, 1.0F);
    glClearDepth(1.0);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glViewport(0, 0, width, height);
    glRenderMode(GL_RENDER);

    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPerspective(kFieldOfViewDegrees, static_cast<double>(width) / height, kNear, kFar);
    glMatrixMode(GL_MODELVIEW);
    m_camera->LookAt();
}

// Under the ship's rotation alone, so that the sky never comes nearer; the light stands in the sky.
void Universe::RenderSky() const
{
    TQ3Quaternion inverse;
    Q3Quaternion_Invert(&m_camera->GetRotation(), &inverse);
    TQ3Matrix4x4 rotation;
    Q3Matrix4x4_SetQuaternion(&rotation, &inverse);

    glPushMatrix();
    glLoadMatrixf(&rotation.value[0][0]);
    RenderEnvironmentBox();
    glLightfv(GL_LIGHT0, GL_POSITION, kLightPosition);
    glPopMatrix();
}

void Universe::BeginFog(float fogEnd) const
{
    glFogi(GL_FOG_MODE, GL_LINEAR);
    glFogfv(GL_FOG_COLOR, kFogColor);
    glFogf(GL_FOG_START, m_fogStart);
    glFogf(GL_FOG_END, fogEnd);
    glEnable(GL_FOG);
}

// Draws the asteroids of all the cells in the frustum's box; its upper ends are excluded.
void Universe::RenderField(Frustum const& frustum) const
{
    float minX = 0.0F;
    float maxX = 0.0F;
    float minY = 0.0F;
    float maxY = 0.0F;
    float minZ = 0.0F;
    float maxZ = 0.0F;
    frustum.GetBoundingBox(&minX, &maxX, &minY, &maxY, &minZ, &maxZ);
    int const endX = CeilToInt(maxX);
    int const endY = CeilToInt(maxY);
    int const beginY = FloorToInt(std::max(minY, 0.0F));
    int const beginZ = FloorToInt(std::max(minZ, 0.0F));
    int const endZ = CeilToInt(maxZ);
    for (int x = FloorToInt(std::max(minX, 0.0F)); x < endX; ++x)
    {
        for (int y = beginY; y < endY; ++y)
        {
            RenderRow(x, y, beginZ, endZ, frustum);
        }
    }
}

// Most cells of the box lie outside the view, which is a pyramid in it: those of a row are skipped at one go.
void Universe::RenderRow(int x, int y, int beginZ, int endZ, Frustum const& frustum) const
{
    auto const rowX = static_cast<float>(x);
    auto const rowY = static_cast<float>(y);
    auto first = static_cast<float>(beginZ);
    auto last = static_cast<float>(endZ - 1);
    frustum.NarrowToView(rowX, rowY, &first, &last);
    int const end = FloorToInt(last) + 1;
    for (int z = CeilToInt(first); z < end; ++z)
    {
        if (Roid* const roid = RoidAtCell(x, y, z))
        {
            roid->Render({rowX, rowY, static_cast<float>(z)}, frustum);
        }
    }
}

// Fog starts halfway to its end here, so that the marker shows through the haze from farther away.
void Universe::RenderMarker(Frustum const& frustum, float fogEnd) const
{
    glFogf(GL_FOG_START, m_fogStart + (fogEnd - m_fogStart) * 0.5F);
    m_waypoint->Render(frustum);
}

void Universe::InitCubeTexture()
{
    QTLoadAsTexture(&m_skyTexture, "starfield-1024.jpg");
}

void Universe::RenderEnvironmentBox() const
{
    glDisable(GL_LIGHTING);
    glEnable(GL_TEXTURE_2D);
    glBindTexture(GL_TEXTURE_2D, static_cast<GLuint>(m_skyTexture));
    glDepthMask(GL_FALSE);
    glPushMatrix();
    glColor4f(1.0F, 1.0F, 1.0F, 1.0F);
    glReportError();

    glBegin(GL_QUADS);
    int corner = 0;
    for (GLfloat const(&vertex)[3] : kSkyVertices)
    {
        glTexCoord3fv(kSkyTexture[corner]);
        glVertex3fv(vertex);
        corner = (corner + 1) % 4;
    }
    glEnd();

    glPopMatrix();
    glDepthMask(GL_TRUE);
    glDisable(GL_TEXTURE_2D);
    glEnable(GL_LIGHTING);
    glReportError();
}
