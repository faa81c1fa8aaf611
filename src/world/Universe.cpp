// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "world/Universe.h"

#include "audio/GameSound.h"
#include "gfx/QTUtil.h"
#include "gfx/Roid.h"
#include "math/util.h"
#include "settings/GameSettings.h"
#include "ui/Overlay.h"
#include "world/Camera.h"
#include "world/field/PathSearch.h"
#include "world/Waypoint.h"

#include <limits>

namespace
{

constexpr std::size_t kFontNameSize = 256;

std::unique_ptr<Overlay> CockpitOverlay(IntSetting const& size)
{
    char fontName[kFontNameSize];
    GameSettings::GetStringParam(setting::kCockpitTimerFontName, fontName);
    return std::make_unique<Overlay>(0, 0, GameSettings::GetIntParam(size), fontName);
}

} // namespace

Universe::Universe()
{
    InitShip();
    m_mouseInvert = GameSettings::GetIntParam(setting::kMouseInvert) != 0;
    Roid::ReadSettings();
    GenerateField();
    m_pathSearch = std::make_unique<PathSearch>(*this);
    InitCubeTexture();
    ReadSceneSettings();
    CreateOverlays();
    StartCourse();
    m_whamSound = std::make_unique<GameSound>("Wham.AIFF");
    m_grazeSound = std::make_unique<GameSound>("Graze.AIFF");
    m_attentionSound = std::make_unique<GameSound>("Attention.AIFF");
}

Universe::~Universe() = default;

void Universe::InitShip()
{
    m_camera = std::make_unique<Camera>(this);
    m_camera->MoveTo(-10.0F, -10.0F, -10.0F);
    m_camera->TurnToFace(0.0F, 0.0F, 0.0F);
    m_camera->SetMinMaxVelocity(GameSettings::GetFloatParam(setting::kPlayerMinSpeed),
                                GameSettings::GetFloatParam(setting::kPlayerMaxSpeed));
    m_camera->SetMaxAcceleration(GameSettings::GetFloatParam(setting::kPlayerMaxAccel));
    m_camera->SetMaxRotation(GameSettings::GetFloatParam(setting::kPlayerRotationsPerSecond));
    m_searchMargin = GameSettings::GetFloatParam(setting::kAsteroidsMaxR) - m_camera->GetRadius();
}

// Level outermost, z innermost, one draw for each cell: a seed always gives the same field.
void Universe::GenerateField()
{
    float const edge = GameSettings::GetFloatParam(setting::kAsteroidsDensityEdge);
    float const centre = GameSettings::GetFloatParam(setting::kAsteroidsDensityCenter);

    Roid::Sizes const sizes = Roid::SizesFromSettings();

    // Reserved in full, so that no growth moves an asteroid that a slot already points to.
    m_roidStorage.reserve(std::size_t{kFieldSize} * kFieldSize * kFieldSize * kLevelCount);
    for (int level = 0; level < kLevelCount; ++level)
    {
        float const threshold =
            edge + static_cast<float>(level) * (centre - edge) / static_cast<float>(kLevelCount - 1);
        for (int cell = 0; cell < kFieldSize * kFieldSize * kFieldSize; ++cell)
        {
            if (!(threshold >= Rand()))
            {
                continue;
            }
            int const x = cell / (kFieldSize * kFieldSize);
            int const y = cell / kFieldSize % kFieldSize;
            int const z = cell % kFieldSize;
            Roid& roid = m_roidStorage.emplace_back(this, sizes);
            roid.MoveTo(static_cast<float>(x), static_cast<float>(y), static_cast<float>(z));
            m_roids[x][y][z][level] = &roid;
            m_fieldRows.Add(x, y, z, level, roid.GetSizeClass());
        }
    }
}

void Universe::ReadSceneSettings()
{
    m_fogStart = GameSettings::GetFloatParam(setting::kFogStart);
    m_fogEndLow = GameSettings::GetFloatParam(setting::kFogEndLow);
    m_fogEndHigh = GameSettings::GetFloatParam(setting::kFogEndHigh);
    m_arrowX = static_cast<float>(GameSettings::GetIntParam(setting::kCockpitArrowX));
    m_arrowY = static_cast<float>(GameSettings::GetIntParam(setting::kCockpitArrowY));
}

void Universe::CreateOverlays()
{
    if (GameSettings::GetFloatParam(setting::kShowFps) != 0.0F)
    {
        char fontName[kFontNameSize];
        GameSettings::GetStringParam(setting::kFpsFontName, fontName);
        m_fpsOverlay =
            std::make_unique<Overlay>(30, 30, GameSettings::GetIntParam(setting::kFpsFontSize), fontName);
    }
    m_timerOverlay = CockpitOverlay(setting::kCockpitTimerFontSize);
    m_timerOverlay->SetBgColor(0.3F, 0.3F, 0.3F, 0.2F);
    m_waypointOverlay = CockpitOverlay(setting::kCockpitWayptFontSize);
    m_distanceOverlay = CockpitOverlay(setting::kCockpitWayptFontSize);
    for (Overlay* overlay : {m_waypointOverlay.get(), m_distanceOverlay.get()})
    {
        overlay->SetBgColor(0.0F, 0.0F, 0.0F, 0.0F);
        overlay->SetBorderColor(0.0F, 0.0F, 0.0F, 0.0F);
    }
}

bool Universe::WillPathCollide(TQ3Vector3D const& start, TQ3Vector3D const& end, float radius,
                               TQ3Vector3D* hitPoint, float* hitFraction) const
{
    float const nearest = m_pathSearch->NearestHit({start, end, radius, m_searchMargin}, hitPoint); // squared
    if (!(nearest <= std::numeric_limits<float>::max() && nearest < DistSquared(end, start)))
    {
        return false;
    }
    *hitFraction = 0.0F;
    return true;
}
