// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "bench/CallReplay.h"

#include "platform/base/OpenGL.h"

#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

namespace
{

using Arguments = double const*;

GLfloat F(double value)
{
    return static_cast<GLfloat>(value);
}

GLint I(double value)
{
    return static_cast<GLint>(value);
}

GLenum E(double value)
{
    return static_cast<GLenum>(value);
}

// An array argument of at most 16 floats.
struct Floats
{
    Floats(Arguments a, int count)
    {
        for (int i = 0; i < count; ++i)
        {
            values[i] = F(a[i]);
        }
    }
    GLfloat values[16] = {};
};

constexpr GLubyte kIndices[72] = {};
constexpr GLfloat kVertices[3] = {};

std::map<std::string, void (*)(Arguments)> const& Functions()
{
    static std::map<std::string, void (*)(Arguments)> const table = {
        {"glBegin", [](Arguments a) { glBegin(E(a[0])); }},
        {"glBindTexture", [](Arguments a) { glBindTexture(E(a[0]), E(a[1])); }},
        {"glBlendFunc", [](Arguments a) { glBlendFunc(E(a[0]), E(a[1])); }},
        {"glCallList", [](Arguments a) { glCallList(E(a[0])); }},
        {"glClear", [](Arguments a) { glClear(E(a[0])); }},
        {"glClearColor", [](Arguments a) { glClearColor(F(a[0]), F(a[1]), F(a[2]), F(a[3])); }},
        {"glClearDepth", [](Arguments a) { glClearDepth(a[0]); }},
        {"glColor4f", [](Arguments a) { glColor4f(F(a[0]), F(a[1]), F(a[2]), F(a[3])); }},
        {"glColorPointer", [](Arguments a) { glColorPointer(I(a[0]), E(a[1]), I(a[2]), kVertices); }},
        {"glDepthFunc", [](Arguments a) { glDepthFunc(E(a[0])); }},
        {"glDepthMask", [](Arguments a) { glDepthMask(static_cast<GLboolean>(a[0])); }},
        {"glDepthRange", [](Arguments a) { glDepthRange(a[0], a[1]); }},
        {"glDisable", [](Arguments a) { glDisable(E(a[0])); }},
        {"glDisableClientState", [](Arguments a) { glDisableClientState(E(a[0])); }},
        {"glDrawElements", [](Arguments a) { glDrawElements(E(a[0]), I(a[1]), GL_UNSIGNED_BYTE, kIndices); }},
        {"glEnable", [](Arguments a) { glEnable(E(a[0])); }},
        {"glEnableClientState", [](Arguments a) { glEnableClientState(E(a[0])); }},
        {"glEnd", [](Arguments) { glEnd(); }},
        {"glFogf", [](Arguments a) { glFogf(E(a[0]), F(a[1])); }},
        {"glFogfv", [](Arguments a) { glFogfv(E(a[0]), Floats(a + 1, 4).values); }},
        {"glFogi", [](Arguments a) { glFogi(E(a[0]), I(a[1])); }},
        {"glGetIntegerv",
         [](Arguments a)
         {
             GLint value = 0;
             glGetIntegerv(E(a[0]), &value);
         }},
        {"glIsEnabled", [](Arguments a) { static_cast<void>(glIsEnabled(E(a[0]))); }},
        {"glLightfv", [](Arguments a) { glLightfv(E(a[0]), E(a[1]), Floats(a + 2, 4).values); }},
        {"glLoadIdentity", [](Arguments) { glLoadIdentity(); }},
        {"glLoadMatrixf", [](Arguments a) { glLoadMatrixf(Floats(a, 16).values); }},
        {"glMaterialfv", [](Arguments a) { glMaterialfv(E(a[0]), E(a[1]), Floats(a + 2, 1).values); }},
        {"glMatrixMode", [](Arguments a) { glMatrixMode(E(a[0])); }},
        {"glMultMatrixf", [](Arguments a) { glMultMatrixf(Floats(a, 16).values); }},
        {"glPopMatrix", [](Arguments) { glPopMatrix(); }},
        {"glPushMatrix", [](Arguments) { glPushMatrix(); }},
        {"glRenderMode", [](Arguments a) { static_cast<void>(glRenderMode(E(a[0]))); }},
        {"glRotatef", [](Arguments a) { glRotatef(F(a[0]), F(a[1]), F(a[2]), F(a[3])); }},
        {"glScalef", [](Arguments a) { glScalef(F(a[0]), F(a[1]), F(a[2])); }},
        {"glTexCoord2f", [](Arguments a) { glTexCoord2f(F(a[0]), F(a[1])); }},
        {"glTexCoord3fv", [](Arguments a) { glTexCoord3fv(Floats(a, 3).values); }},
        {"glTexCoordPointer",
         [](Arguments a) { glTexCoordPointer(I(a[0]), E(a[1]), I(a[2]), kVertices); }},
        {"glTranslated", [](Arguments a) { glTranslated(a[0], a[1], a[2]); }},
        {"glTranslatef", [](Arguments a) { glTranslatef(F(a[0]), F(a[1]), F(a[2])); }},
        {"glVertex2f", [](Arguments a) { glVertex2f(F(a[0]), F(a[1])); }},
        {"glVertex3fv", [](Arguments a) { glVertex3fv(Floats(a, 3).values); }},
        {"glVertexPointer", [](Arguments a) { glVertexPointer(I(a[0]), E(a[1]), I(a[2]), kVertices); }},
        {"glViewport", [](Arguments a) { glViewport(I(a[0]), I(a[1]), I(a[2]), I(a[3])); }},
        {"gluLookAt",
         [](Arguments a) { gluLookAt(a[0], a[1], a[2], a[3], a[4], a[5], a[6], a[7], a[8]); }},
        {"gluOrtho2D", [](Arguments a) { gluOrtho2D(a[0], a[1], a[2], a[3]); }},
        {"gluPerspective", [](Arguments a) { gluPerspective(a[0], a[1], a[2], a[3]); }},
    };
    return table;
}

} // namespace

CallReplay::CallReplay(std::vector<recording::Call> const& calls)
{
    for (recording::Call const& call : calls)
    {
        auto const known = Functions().find(call.name);
        if (known == Functions().end())
        {
            std::fprintf(stderr, "no replay for %s\n", call.name.c_str());
            std::abort();
        }
        m_steps.push_back({known->second, m_arguments.size()});
        m_arguments.insert(m_arguments.end(), call.arguments.begin(), call.arguments.end());
    }
    m_arguments.resize(m_arguments.size() + 16); // Floats may read beyond the last call
}

void CallReplay::Run() const
{
    for (Step const& step : m_steps)
    {
        step.function(m_arguments.data() + step.arguments);
    }
}
