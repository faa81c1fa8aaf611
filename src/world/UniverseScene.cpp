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
#include "platform/base/OpenGL.h"
#include "ui/Overlay.h"
#include "world/Camera.h"
#include "world/field/Lens.h"
#include "world/Waypoint.h"

#include <algorithm>

namespace
{

constexpr float kFarthestCentre = 101.0F; // of what still reaches before the far plane
constexpr float kClosedInDepth = 48.0F;   // three lattice blocks deep the view has closed in
constexpr float kWidestAspect = 32.0F;    // a window that is a mere line would look over half the field
constexpr GLfloat kFogColor[] = {0.05F, 0.05F, 0.1F, 1.0F};
constexpr GLfloat kLightPosition[] = {10.0F, 10.0F, -10.0F, 0.5F};

constexpr char const* kSkyPicture = "starfield-1024.jpg";

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
    PlaceLight();
    float const fogEnd = PointToFrustumDepth(m_camera->GetPosition());
    BeginFog(fogEnd);

    TQ3Vector3D facing;
    m_camera->GetFacingNormal(&facing);
    TQ3Vector3D
        apex; // one unit behind the ship, so that rocks beside the eye are not culled by their centres
    Vector3D_Subtract(&m_camera->GetPosition(), &facing, &apex);
    float const aspect = std::min(static_cast<float>(width) / static_cast<float>(height), kWidestAspect);
    Frustum const frustum(lens::kFieldOfView, aspect, &apex, &facing, &m_camera->GetUp(),
                          std::min(fogEnd, kFarthestCentre) + 1.0F);
    Roid::RenderStart();
    RenderField(frustum, width, height);
    Roid::RenderEnd();
    RenderMarker(frustum, fogEnd);
    glDisable(GL_FOG);
    RenderSkyBehind();

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
    gluPerspective(lens::kFieldOfViewDegrees, static_cast<double>(width) / height, lens::kNear, lens::kFar);
    glMatrixMode(GL_MODELVIEW);
    m_camera->LookAt();
}

// The ship's rotation alone, so that the sky never comes nearer. The caller pops the matrix.
void Universe::PushSkyMatrix() const
{
    TQ3Quaternion inverse;
    Q3Quaternion_Invert(&m_camera->GetRotation(), &inverse);
    TQ3Matrix4x4 rotation;
    Q3Matrix4x4_SetQuaternion(&rotation, &inverse);
    glPushMatrix();
    glLoadMatrixf(&rotation.value[0][0]);
}

// It stands in the sky.
void Universe::PlaceLight() const
{
    PushSkyMatrix();
    glLightfv(GL_LIGHT0, GL_POSITION, kLightPosition);
    glPopMatrix();
}

// At the far end of the depth range, after all that stands in front of it: only what is still empty is
// filled.
void Universe::RenderSkyBehind() const
{
    PushSkyMatrix();
    glDepthRange(1.0, 1.0);
    RenderEnvironmentBox();
    glDepthRange(0.0, 1.0);
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

void Universe::RenderField(Frustum const& frustum, int width, int height)
{
    for (FieldView::Rock const& rock : m_fieldView.Choose(m_fieldRows, frustum, *m_camera, width, height))
    {
        if (rock.isShown)
        {
            Roid::Draw(rock.place, rock.sizeClass, rock.levelOfDetail);
        }
    }
}

// Fog starts halfway to its end here, so that the marker shows through the haze from farther away.
void Universe::RenderMarker(Frustum const& frustum, float fogEnd) const
{
    glFogf(GL_FOG_START, m_fogStart + (fogEnd - m_fogStart) * 0.5F);
    m_waypoint->Render(frustum);
}

void Universe::DecodePicturesAhead()
{
    QTDecodeAhead({Roid::kPicture, kSkyPicture});
}

void Universe::InitCubeTexture()
{
    QTLoadAsTexture(&m_skyTexture, kSkyPicture);
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
