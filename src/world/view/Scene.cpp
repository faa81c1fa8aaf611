// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "world/view/Scene.h"

#include "core/Globals.h"
#include "gfx/QTUtil.h"
#include "gfx/Roid.h"
#include "math/Plane.h"
#include "platform/base/OpenGL.h"
#include "platform/window/GLContext.h"
#include "settings/GameSettings.h"
#include "world/Camera.h"
#include "world/Waypoint.h"

#include <algorithm>

namespace
{

constexpr std::size_t kFontNameSize = 256;
constexpr float kFarthestCentre = 101.0F; // an asteroid farther out lies beyond the far plane altogether
constexpr float kClosedInDepth = 48.0F;   // from three lattice blocks deep on, the fog end is the low one
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

Eye EyeOf(Camera const& ship)
{
    Eye eye{ship.GetPosition(), {}, ship.GetUp()};
    ship.GetFacingNormal(&eye.facing);
    return eye;
}

// A window that is a line, wider than this, shows asteroids in its middle only: all of them would be half the
// field.
constexpr float kWidestAspect = 32.0F;

// Its apex lies one unit behind the eye, so that asteroids beside the eye are not culled by their centres.
Frustum FrustumOf(Eye const& eye, int width, int height, float fogEnd)
{
    TQ3Vector3D apex;
    Vector3D_Subtract(&eye.position, &eye.facing, &apex);
    float const aspect = std::min(static_cast<float>(width) / static_cast<float>(height), kWidestAspect);
    return {Eye::kFieldOfView, aspect, &apex, &eye.facing, &eye.up, std::min(fogEnd, kFarthestCentre) + 1.0F};
}

void BeginScene(Camera const& ship, int width, int height)
{
    glClearColor(0.0F, 0.0F, 0.0F, 1.0F);
    glClearDepth(1.0);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    int const scale = platform::DisplayScale();
    glViewport(0, 0, width * scale, height * scale);
    glRenderMode(GL_RENDER);
    glDisable(GL_BLEND); // the first frame like all others: drivers compile anew for every mix of states

    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPerspective(Eye::kFieldOfViewDegrees, static_cast<double>(width) / height, Eye::kNear, Eye::kFar);
    glMatrixMode(GL_MODELVIEW);
    ship.LookAt();
}

// The ship's rotation alone, so that the sky never comes nearer. The caller pops the matrix.
void PushSkyMatrix(Camera const& ship)
{
    TQ3Quaternion inverse;
    Q3Quaternion_Invert(&ship.GetRotation(), &inverse);
    TQ3Matrix4x4 rotation;
    Q3Matrix4x4_SetQuaternion(&rotation, &inverse);
    glPushMatrix();
    glLoadMatrixf(&rotation.value[0][0]);
}

// The light turns with the sky.
void PlaceLight(Camera const& ship)
{
    PushSkyMatrix(ship);
    glLightfv(GL_LIGHT0, GL_POSITION, kLightPosition);
    glPopMatrix();
}

} // namespace

void Scene::DecodePicturesAhead()
{
    QTDecodeAhead({Roid::kPicture, kSkyPicture});
}

Scene::Scene(unsigned long skyTexture) : m_skyTexture(skyTexture)
{
    if (m_skyTexture == 0)
    {
        LoadSky();
    }
    m_fogStart = GameSettings::GetFloatParam(setting::kFogStart);
    m_fogEndLow = GameSettings::GetFloatParam(setting::kFogEndLow);
    m_fogEndHigh = GameSettings::GetFloatParam(setting::kFogEndHigh);
    if (GameSettings::GetFloatParam(setting::kShowFps) != 0.0F)
    {
        char fontName[kFontNameSize];
        GameSettings::GetStringParam(setting::kFpsFontName, fontName);
        m_frameRate.emplace(30, 30, GameSettings::GetIntParam(setting::kFpsFontSize), fontName);
    }
}

void Scene::LoadSky()
{
    QTLoadAsTexture(&m_skyTexture, kSkyPicture);
}

float Scene::FogEndAt(TQ3Vector3D const& p) const
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

void Scene::Render(AsteroidField const& field, Camera const& ship, Waypoint const& marker, int width,
                   int height)
{
    BeginScene(ship, width, height);
    PlaceLight(ship);
    Eye const eye = EyeOf(ship);
    float const fogEnd = FogEndAt(eye.position);
    Frustum const frustum = FrustumOf(eye, width, height, fogEnd);
    BeginFog(fogEnd);
    RenderField(field, eye, frustum, width, height);

    // Fog starts halfway to its end here, so that the marker is seen from farther away.
    glFogf(GL_FOG_START, m_fogStart + (fogEnd - m_fogStart) * 0.5F);
    marker.Render(frustum);
    glDisable(GL_FOG);
    RenderSkyBehind(ship);
}

void Scene::BeginFog(float fogEnd) const
{
    glFogi(GL_FOG_MODE, GL_LINEAR);
    glFogfv(GL_FOG_COLOR, kFogColor);
    glFogf(GL_FOG_START, m_fogStart);
    glFogf(GL_FOG_END, fogEnd);
    glEnable(GL_FOG);
}

void Scene::RenderField(AsteroidField const& field, Eye const& eye, Frustum const& frustum, int width,
                        int height)
{
    Roid::RenderStart();
    for (FieldView::Rock const& rock : m_fieldView.Choose(field, frustum, eye, width, height))
    {
        if (rock.isShown)
        {
            Roid::Draw(rock.place, rock.sizeClass, rock.levelOfDetail);
        }
    }
    Roid::RenderEnd();
}

// The sky is drawn last, so that only the pixels that nothing nearer has filled are textured: at the far end
// of the depth range it is equal to the cleared buffer and behind all else.
void Scene::RenderSkyBehind(Camera const& ship) const
{
    PushSkyMatrix(ship);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LEQUAL);
    glDepthRange(1.0, 1.0);
    RenderSkyBox();
    glDepthRange(0.0, 1.0);
    glPopMatrix();
}

void Scene::RenderFrameRate(float fps, int width, int height)
{
    if (m_frameRate)
    {
        m_frameRate->SetString(fps);
        m_frameRate->Render(width, height);
    }
}

void Scene::RenderSkyBox() const
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
