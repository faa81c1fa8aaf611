// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "bench/ReferenceScene.h"

#include "core/Globals.h"
#include "gfx/Roid.h"
#include "math/Plane.h"
#include "math/util.h"
#include "platform/base/OpenGL.h"
#include "settings/GameSettings.h"
#include "world/Camera.h"
#include "world/Universe.h"
#include "world/Waypoint.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <set>

namespace
{

struct Range
{
    Range(float min, float max)
        : begin(static_cast<int>(std::floor(std::max(min, 0.0F)))),
          end(static_cast<int>(std::ceil(max)))
    {
    }

    int begin;
    int end; // excluded
};

int LevelOfDetail(float distanceSquared)
{
    if (distanceSquared >= Roid::m_lodDistFar)
    {
        return 2;
    }
    return distanceSquared >= Roid::m_lodDistMedium ? 1 : 0;
}

void Draw(ReferenceScene::Rock const& rock)
{
    glPushMatrix();
    glTranslated(rock.x, rock.y, rock.z);
    glCallList(rock.list);
    glPopMatrix();
}

// A colour for each number from 1 on, black for none.
void SetColor(std::size_t number)
{
    glColor3ub(static_cast<GLubyte>(number & 0xFFU), static_cast<GLubyte>(number >> 8U & 0xFFU),
               static_cast<GLubyte>(number >> 16U & 0xFFU));
}

std::set<std::size_t> NumbersOnScreen(int width, int height)
{
    std::vector<std::uint8_t> pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4);
    glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
    std::set<std::size_t> numbers;
    for (std::size_t i = 0; i < pixels.size(); i += 4)
    {
        numbers.insert(pixels[i] + (std::size_t{pixels[i + 1]} << 8U) + (std::size_t{pixels[i + 2]} << 16U));
    }
    return numbers;
}

} // namespace

void ReferenceScene::Render(int width, int height) const
{
    RenderWith(width, height, [this](Frustum const& frustum) { ForEachRock(frustum, Draw); });
}

void ReferenceScene::RenderOnly(std::vector<Rock> const& rocks, int width, int height) const
{
    RenderWith(width, height, [&rocks](Frustum const&) { std::for_each(rocks.begin(), rocks.end(), Draw); });
}

std::vector<ReferenceScene::Rock> ReferenceScene::RocksInView(int width, int height) const
{
    std::vector<Rock> rocks;
    ForEachRock(ViewOf(width, height), [&rocks](Rock const& rock) { rocks.push_back(rock); });
    return rocks;
}

// Draws each in its own colour and reads which colours are left.
std::vector<ReferenceScene::Rock> ReferenceScene::RocksThatShow(int width, int height) const
{
    std::vector<Rock> const rocks = RocksInView(width, height);
    BeginFrame(width, height);
    glPushAttrib(GL_ENABLE_BIT);
    constexpr GLenum kEffects[] = {GL_LIGHTING, GL_TEXTURE_2D, GL_FOG, GL_BLEND, GL_DITHER};
    for (GLenum const effect : kEffects)
    {
        glDisable(effect);
    }
    for (std::size_t i = 0; i < rocks.size(); ++i)
    {
        SetColor(i + 1);
        Draw(rocks[i]);
    }
    glPopAttrib();

    std::vector<Rock> shown;
    for (std::size_t const number : NumbersOnScreen(width, height))
    {
        if (number > 0)
        {
            shown.push_back(rocks.at(number - 1));
        }
    }
    return shown;
}

void ReferenceScene::RenderWith(int width, int height,
                                std::function<void(Frustum const&)> const& drawRocks) const
{
    BeginFrame(width, height);
    RenderSky();
    BeginFog();
    Frustum const frustum = ViewOf(width, height);
    Roid::RenderStart();
    drawRocks(frustum);
    Roid::RenderEnd();
    RenderMarker(frustum);
    glDisable(GL_FOG);
    if (!m_universe.IsCockpitHidden())
    {
        m_universe.RenderCockpit(width, height);
    }
    glReportError();
}

Frustum ReferenceScene::ViewOf(int width, int height) const
{
    Camera const& ship = *m_universe.GetCamera();
    TQ3Vector3D facing;
    ship.GetFacingNormal(&facing);
    TQ3Vector3D apex;
    Vector3D_Subtract(&ship.GetPosition(), &facing, &apex);
    return {0.7853982F,    static_cast<float>(width) / static_cast<float>(height),
            &apex,         &facing,
            &ship.GetUp(), FogEnd() + 1.0F};
}

float ReferenceScene::FogEnd() const
{
    TQ3Vector3D const& p = m_universe.GetCamera()->GetPosition();
    float const low = GameSettings::GetFloatParam(setting::kFogEndLow);
    float const high = GameSettings::GetFloatParam(setting::kFogEndHigh);
    float const depth = std::min({p.x, p.y, p.z});
    if (depth <= 0.0F)
    {
        return high;
    }
    return depth >= 48.0F ? low : high - (high - low) * (depth / 48.0F);
}

void ReferenceScene::ForEachRock(Frustum const& frustum, std::function<void(Rock const&)> const& visit) const
{
    float low[3];
    float high[3];
    frustum.GetBoundingBox(&low[0], &high[0], &low[1], &high[1], &low[2], &high[2]);
    Range const xs(low[0], high[0]);
    Range const ys(low[1], high[1]);
    Range const zs(low[2], high[2]);
    for (int x = xs.begin; x < xs.end; ++x)
    {
        for (int y = ys.begin; y < ys.end; ++y)
        {
            for (int z = zs.begin; z < zs.end; ++z)
            {
                Roid const* const roid = m_universe.RoidAtCell(x, y, z);
                TQ3Vector3D const place{static_cast<float>(x), static_cast<float>(y), static_cast<float>(z)};
                if (roid != nullptr && frustum.IsPointInside(place))
                {
                    int const lod = LevelOfDetail(DistSquared(frustum.GetApex(), place));
                    visit({x, y, z, static_cast<unsigned>(Roid::m_ahroid[roid->GetSizeClass()][lod])});
                }
            }
        }
    }
}

void ReferenceScene::BeginFrame(int width, int height) const
{
    glClearColor(0.0F, 0.0F, 0.0F, 1.0F);
    glClearDepth(1.0);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glViewport(0, 0, width, height);
    glRenderMode(GL_RENDER);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPerspective(45.0, static_cast<double>(width) / height, 0.1, 100.0);
    glMatrixMode(GL_MODELVIEW);
    m_universe.GetCamera()->LookAt();
}

void ReferenceScene::RenderSky() const
{
    constexpr GLfloat kLight[] = {10.0F, 10.0F, -10.0F, 0.5F};
    TQ3Quaternion inverse;
    Q3Quaternion_Invert(&m_universe.GetCamera()->GetRotation(), &inverse);
    TQ3Matrix4x4 rotation;
    Q3Matrix4x4_SetQuaternion(&rotation, &inverse);
    glPushMatrix();
    glLoadMatrixf(&rotation.value[0][0]);
    m_universe.RenderEnvironmentBox();
    glLightfv(GL_LIGHT0, GL_POSITION, kLight);
    glPopMatrix();
}

void ReferenceScene::BeginFog() const
{
    constexpr GLfloat kColor[] = {0.05F, 0.05F, 0.1F, 1.0F};
    glFogi(GL_FOG_MODE, GL_LINEAR);
    glFogfv(GL_FOG_COLOR, kColor);
    glFogf(GL_FOG_START, GameSettings::GetFloatParam(setting::kFogStart));
    glFogf(GL_FOG_END, FogEnd());
    glEnable(GL_FOG);
}

void ReferenceScene::RenderMarker(Frustum const& frustum) const
{
    float const start = GameSettings::GetFloatParam(setting::kFogStart);
    glFogf(GL_FOG_START, start + (FogEnd() - start) * 0.5F);
    m_universe.GetWaypoint()->Render(frustum);
}
