// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "core/FixedState.h"

#include "gfx/QTUtil.h"
#include "platform/base/OpenGL.h"

#include <cstdio>

namespace
{

void SetLight()
{
    constexpr GLfloat kAmbient[] = {0.1F, 0.1F, 0.1F, 1.0F};
    constexpr GLfloat kDiffuse[] = {0.5F, 0.5F, 0.5F, 1.0F};
    constexpr GLfloat kSpecular[] = {0.6F, 0.6F, 0.6F, 1.0F};
    glLightModeli(GL_LIGHT_MODEL_LOCAL_VIEWER, 1);
    glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, 0);
    glLightfv(GL_LIGHT0, GL_AMBIENT, kAmbient);
    glLightfv(GL_LIGHT0, GL_DIFFUSE, kDiffuse);
    glLightfv(GL_LIGHT0, GL_SPECULAR, kSpecular);
    glEnable(GL_LIGHTING);
    glEnable(GL_LIGHT0);
}

// The texture of what has none, which changes nothing of its colours.
void MakeTexture0Plain()
{
    constexpr GLubyte kWhite[] = {255, 255, 255, 255};
    glBindTexture(GL_TEXTURE_2D, 0);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, 1, 1, 0, GL_RGBA, GL_UNSIGNED_BYTE, kWhite);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR); // at first it wants smaller levels
}

} // namespace

void SetFixedState()
{
    glShadeModel(GL_SMOOTH);
    glClearDepth(1.0);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LEQUAL);
    glHint(GL_PERSPECTIVE_CORRECTION_HINT, GL_NICEST);
    SetLight();
    glEnable(GL_CULL_FACE);
    glCullFace(GL_BACK);
    glFrontFace(GL_CCW);
    glEnable(GL_TEXTURE_2D);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glStencilMask(0);
    glClearColor(0.0F, 0.0F, 0.0F, 0.0F);
    MakeTexture0Plain();
}

void LogBitDepths()
{
    GLint alpha = 0;
    GLint stencil = 0;
    GLint depth = 0;
    glGetIntegerv(GL_ALPHA_BITS, &alpha);
    glGetIntegerv(GL_STENCIL_BITS, &stencil);
    glGetIntegerv(GL_DEPTH_BITS, &depth);
    char text[128];
    std::snprintf(text, sizeof text, "Alpha bits  = %d, Stencil bits = %d, Depth bits = %d", alpha, stencil,
                  depth);
    QTUtilLog(text);
}
