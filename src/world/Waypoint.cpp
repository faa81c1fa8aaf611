// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "world/Waypoint.h"

#include "math/Plane.h"
#include "platform/base/OpenGL.h"

#include <iterator>

namespace
{

// A small cube, vertices 0 to 7, with a spike on each face, 8 to 13.
constexpr GLfloat kVertices[14][3] = {
    {0.1F, 0.1F, 0.1F},  {0.1F, 0.1F, -0.1F},  {-0.1F, 0.1F, -0.1F},  {-0.1F, 0.1F, 0.1F},  //
    {0.1F, -0.1F, 0.1F}, {0.1F, -0.1F, -0.1F}, {-0.1F, -0.1F, -0.1F}, {-0.1F, -0.1F, 0.1F}, //
    {0.0F, 0.5F, 0.0F},  {-0.5F, 0.0F, 0.0F},  {0.0F, 0.0F, 0.5F},                          //
    {0.5F, 0.0F, 0.0F},  {0.0F, 0.0F, -0.5F},  {0.0F, -0.5F, 0.0F},
};

constexpr GLfloat kColors[14][3] = {
    {0.7F, 0.7F, 0.7F}, {0.7F, 0.7F, 0.7F}, {0.7F, 0.7F, 0.7F}, {0.7F, 0.7F, 0.7F}, //
    {0.7F, 0.7F, 0.7F}, {0.7F, 0.7F, 0.7F}, {0.7F, 0.7F, 0.7F}, {0.7F, 0.7F, 0.7F}, //
    {1.0F, 0.0F, 0.0F}, {0.0F, 1.0F, 0.0F}, {0.0F, 0.0F, 1.0F},                     //
    {0.9F, 0.0F, 1.0F}, {0.5F, 1.0F, 1.0F}, {1.0F, 0.7F, 0.2F},
};

constexpr GLubyte kTriangles[24][3] = {
    {8, 0, 1},  {8, 1, 2},  {8, 2, 3},  {8, 3, 0},  //
    {9, 3, 2},  {9, 2, 6},  {9, 6, 7},  {9, 7, 3},  //
    {10, 0, 3}, {10, 3, 7}, {10, 7, 4}, {10, 4, 0}, //
    {11, 0, 4}, {11, 4, 5}, {11, 5, 1}, {11, 1, 0}, //
    {12, 1, 5}, {12, 5, 6}, {12, 6, 2}, {12, 2, 1}, //
    {13, 5, 4}, {13, 4, 7}, {13, 7, 6}, {13, 6, 5},
};
constexpr GLsizei kIndexCount = std::size(kTriangles) * 3;

constexpr float kRadius = 0.6F;
constexpr float kSpin = 1.5707964F; // radians per second

// With a texture, though it is plain white, the marker is drawn by the driver's program for asteroids.
// Without, the first frame would wait for another to be compiled. Any coordinates will do.
void BeginPlainTexture()
{
    glEnable(GL_TEXTURE_2D);
    glBindTexture(GL_TEXTURE_2D, 0);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glTexCoordPointer(3, GL_FLOAT, 0, kVertices);
}

void EndPlainTexture()
{
    glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    glDisable(GL_TEXTURE_2D);
}

} // namespace

Waypoint::Waypoint(Universe const* universe) : Body(universe)
{
    SetDefaults();
}

Waypoint::Waypoint(Universe const* universe, TQ3Vector3D const& position) : Body(universe, position)
{
    SetDefaults();
}

// The place stays as it is.
void Waypoint::SetDefaults()
{
    SetRotationRate({0.0F, 1.0F, 0.0F}, kSpin);
    SetSize(kRadius);
}

void Waypoint::Render(Frustum const& frustum) const
{
    if (!frustum.IsPointInside(GetPosition()))
    {
        return;
    }
    TQ3Matrix4x4 rotation;
    Q3Matrix4x4_SetQuaternion(&rotation, &GetRotation());

    glDisable(GL_LIGHTING);
    BeginPlainTexture();
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_COLOR_ARRAY);
    glVertexPointer(3, GL_FLOAT, 0, kVertices);
    glColorPointer(3, GL_FLOAT, 0, kColors);

    glPushMatrix();
    glTranslatef(GetPosition().x, GetPosition().y, GetPosition().z);
    glMultMatrixf(&rotation.value[0][0]);
    glDrawElements(GL_TRIANGLES, kIndexCount, GL_UNSIGNED_BYTE, kTriangles);
    glPopMatrix();

    glDisableClientState(GL_COLOR_ARRAY);
    glDisableClientState(GL_VERTEX_ARRAY);
    EndPlainTexture();
    glEnable(GL_LIGHTING);
}
