// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "gfx/Roid.h"

#include "gfx/QTUtil.h"
#include "platform/base/OpenGL.h"
#include "platform/base/Random.h"
#include "settings/GameSettings.h"

#include <cmath>
#include <memory>

unsigned long Roid::m_texture = 0;
float Roid::m_lodDistFar = 0.0F;
float Roid::m_lodDistMedium = 0.0F;
bool Roid::m_fGotSettings = false;
unsigned long Roid::m_ahroid[kSizeCount][kLodCount] = {};
Roid::Meshes Roid::m_meshes = {};

namespace
{

constexpr double kPi = 3.14159265358979;
constexpr int kCoarsest = 4; // slices and stacks of the farthest spheres, whatever the smoothness

struct QuadricDeleter
{
    void operator()(GLUquadric* quadric) const { gluDeleteQuadric(quadric); }
};
using Quadric = std::unique_ptr<GLUquadric, QuadricDeleter>;

Quadric SphereQuadric()
{
    Quadric quadric(gluNewQuadric());
    gluQuadricOrientation(quadric.get(), GLU_OUTSIDE);
    gluQuadricDrawStyle(quadric.get(), GLU_FILL);
    gluQuadricNormals(quadric.get(), GLU_SMOOTH);
    gluQuadricTexture(quadric.get(), GL_TRUE);
    return quadric;
}

void CompileSphere(unsigned long list, GLUquadric* quadric, double radius, int subdivisions)
{
    glNewList(static_cast<GLuint>(list), GL_COMPILE);
    gluSphere(quadric, radius, subdivisions, subdivisions);
    glEndList();
}

// The radius of the largest ball inside a mesh of radius 1 with that many slices and stacks: the distance of
// a face at the equator from the centre, seen in the plane through the axis and the middle of a slice.
float ShareOfInnerBall(int subdivisions)
{
    if (subdivisions < 3)
    {
        return 0.0F;
    }
    double const slice = kPi / subdivisions; // half the angle of a slice is the angle of a stack
    int const stacksAbove = subdivisions / 2;
    double const upper = stacksAbove * slice;
    double const lower = upper + slice;
    double const upperX = std::sin(upper) * std::cos(slice);
    double const lowerX = std::sin(lower) * std::cos(slice);
    double const length = std::hypot(lowerX - upperX, std::cos(lower) - std::cos(upper));
    return static_cast<float>(std::fabs(upperX * std::cos(lower) - std::cos(upper) * lowerX) / length);
}

} // namespace

Roid::Sizes Roid::SizesFromSettings()
{
    return {GameSettings::GetFloatParam(setting::kAsteroidsMinR),
            GameSettings::GetFloatParam(setting::kAsteroidsMaxR)};
}

Roid::Roid(Universe const* universe, Sizes const& sizes) : Body(universe)
{
    if (!m_fGotSettings)
    {
        ReadSettings();
    }
    if (sizes.minR >= sizes.maxR)
    {
        SetSize(sizes.minR);
        return;
    }
    m_sizeClass = platform::Random31() % kSizeCount;
    SetSize(static_cast<float>(m_sizeClass) * (sizes.maxR - sizes.minR) / (kSizeCount - 1) + sizes.minR);
}

Roid::~Roid()
{
    if (m_fGotSettings)
    {
        ReleaseShared();
    }
}

void Roid::ReadSettings()
{
    if (m_fGotSettings)
    {
        ReleaseShared();
    }
    m_fGotSettings = true;
    float const medium = GameSettings::GetFloatParam(setting::kLodDistMedium);
    float const farthest = GameSettings::GetFloatParam(setting::kLodDistFar);
    m_lodDistMedium = medium * medium;
    m_lodDistFar = farthest * farthest;
    QTLoadAsTexture(&m_texture, kPicture);
    m_meshes = CreatePrerender(GameSettings::GetIntParam(setting::kAsteroidsSmoothness), m_ahroid);
}

// The first asteroid of a field to go deletes them; for the others the names are 0 already.
void Roid::ReleaseShared()
{
    if (m_texture != 0)
    {
        auto const texture = static_cast<GLuint>(m_texture);
        glDeleteTextures(1, &texture);
        m_texture = 0;
    }
    for (auto& listsOfSize : m_ahroid)
    {
        for (unsigned long& list : listsOfSize)
        {
            if (list != 0)
            {
                glDeleteLists(static_cast<GLuint>(list), 1);
                list = 0;
            }
        }
    }
}

Roid::Meshes Roid::CreatePrerender(int smoothness, unsigned long lists[kSizeCount][kLodCount])
{
    int const subdivisions[kLodCount] = {smoothness, (smoothness + kCoarsest) / 2, kCoarsest};
    auto const [minR, maxR] = SizesFromSettings();
    float const step = (maxR - minR) / (kSizeCount - 1);

    Meshes meshes{};
    for (int lod = 0; lod < kLodCount; ++lod)
    {
        for (int size = 0; size < kSizeCount; ++size)
        {
            lists[size][lod] = glGenLists(1);
        }
        meshes.solidShare[lod] = ShareOfInnerBall(subdivisions[lod]);
    }
    Quadric const quadric = SphereQuadric();
    for (int size = 0; size < kSizeCount; ++size)
    {
        float const radius = static_cast<float>(size) * step + minR;
        meshes.radius[size] = radius;
        for (int lod = 0; lod < kLodCount; ++lod)
        {
            CompileSphere(lists[size][lod], quadric.get(), radius, subdivisions[lod]);
        }
    }
    return meshes;
}

void Roid::RenderStart()
{
    constexpr GLfloat kSpecular[] = {0.8F, 0.6F, 0.6F, 1.0F};
    constexpr GLfloat kShininess = 40.0F;
    constexpr GLfloat kAmbientAndDiffuse[] = {0.8F, 0.8F, 0.8F, 1.0F};
    constexpr GLfloat kEmission[] = {0.0F, 0.0F, 0.0F, 1.0F};
    glMaterialfv(GL_FRONT, GL_SPECULAR, kSpecular);
    glMaterialfv(GL_FRONT, GL_SHININESS, &kShininess);
    glMaterialfv(GL_FRONT, GL_AMBIENT_AND_DIFFUSE, kAmbientAndDiffuse);
    glMaterialfv(GL_FRONT, GL_EMISSION, kEmission);
    glEnable(GL_TEXTURE_2D);
    glBindTexture(GL_TEXTURE_2D, static_cast<GLuint>(m_texture));
}

void Roid::RenderEnd()
{
    glDisable(GL_TEXTURE_2D);
}

bool Roid::Render(TQ3Vector3D const& position, Frustum const& frustum)
{
    MoveTo(position);
    std::optional<int> const level = LevelInView(position, frustum);
    if (!level)
    {
        return false;
    }
    Draw(position, m_sizeClass, *level);
    return true;
}

void Roid::Draw(TQ3Vector3D const& position, int sizeClass, int levelOfDetail)
{
    glPushMatrix();
    glTranslated(position.x, position.y, position.z);
    glCallList(static_cast<GLuint>(m_ahroid[sizeClass][levelOfDetail]));
    glPopMatrix();
}

bool Roid::ComputePathIntersection(TQ3Vector3D const& start, TQ3Vector3D const& end, float radius,
                                   TQ3Vector3D* hitPoint, float* hitDistance) const
{
    return ComputePathIntersectionAt(GetPosition(), start, end, radius, hitPoint, hitDistance);
}

bool Roid::ComputePathIntersectionAt(TQ3Vector3D const& place, TQ3Vector3D const& start,
                                     TQ3Vector3D const& end, float radius, TQ3Vector3D* hitPoint,
                                     float* hitDistance) const
{
    float const reach = radius + GetRadius();
    TQ3Vector3D toCentre;
    TQ3Vector3D direction;
    Vector3D_Subtract(&place, &start, &toCentre);
    Vector3D_Subtract(&end, &start, &direction);
    Vector3D_Normalize(&direction, &direction);

    float const squaredToCentre = Vector3D_GetLengthSquared(&toCentre);
    float const closestApproach = Vector3D_Dot(&toCentre, &direction);
    float const squaredReach = reach * reach;
    bool const startsOutside = squaredToCentre > squaredReach;
    if (closestApproach < 0.0F && startsOutside)
    {
        return false;
    }
    float const squaredMiss = squaredToCentre - closestApproach * closestApproach;
    if (squaredMiss > squaredReach)
    {
        return false;
    }
    float const halfChord = std::sqrt(squaredReach - squaredMiss);
    float const distance = startsOutside ? closestApproach - halfChord : closestApproach + halfChord;
    *hitDistance = distance;
    TQ3Vector3D offset;
    Vector3D_Scale(&direction, distance, &offset);
    Vector3D_Add(&start, &offset, hitPoint);
    return true;
}
