// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The entry points themselves, and the two questions about contexts that the platform layer answers
// elsewhere.
#include "platform/base/OpenGL.h"
#include "platform/window/GLContext.h"
#include "support/RecordingGLState.h"

using recording::note;
using recording::noteArray;
using recording::state;

namespace
{

int quadric = 0; // every GLU quadric is this one

// How many floats a light, material or fog parameter has.
int parameterLength(GLenum name)
{
    return name == GL_SHININESS ? 1 : 4;
}

} // namespace

extern "C"
{
    void glBegin(GLenum mode)
    {
        note("glBegin", mode);
    }

    void glEnd()
    {
        note("glEnd");
    }

    void glBindTexture(GLenum target, GLuint texture)
    {
        note("glBindTexture", target, texture);
    }

    void glBlendFunc(GLenum source, GLenum destination)
    {
        note("glBlendFunc", source, destination);
    }

    void glCallList(GLuint list)
    {
        note("glCallList", list);
    }

    void glClear(GLbitfield mask)
    {
        note("glClear", mask);
    }

    void glClearColor(GLclampf r, GLclampf g, GLclampf b, GLclampf a)
    {
        note("glClearColor", r, g, b, a);
    }

    void glClearDepth(GLclampd depth)
    {
        note("glClearDepth", depth);
    }

    void glColor4f(GLfloat r, GLfloat g, GLfloat b, GLfloat a)
    {
        note("glColor4f", r, g, b, a);
    }

    void glCullFace(GLenum mode)
    {
        note("glCullFace", mode);
    }

    void glDepthFunc(GLenum function)
    {
        note("glDepthFunc", function);
    }

    void glDepthMask(GLboolean flag)
    {
        note("glDepthMask", flag);
    }

    void glDisableClientState(GLenum array)
    {
        note("glDisableClientState", array);
    }

    void glEnableClientState(GLenum array)
    {
        note("glEnableClientState", array);
    }

    void glEndList()
    {
        note("glEndList");
    }

    void glFogf(GLenum name, GLfloat value)
    {
        note("glFogf", name, value);
    }

    void glFogi(GLenum name, GLint value)
    {
        note("glFogi", name, value);
    }

    void glFrontFace(GLenum mode)
    {
        note("glFrontFace", mode);
    }

    void glHint(GLenum target, GLenum mode)
    {
        note("glHint", target, mode);
    }

    void glLightModeli(GLenum name, GLint value)
    {
        note("glLightModeli", name, value);
    }

    void glLoadIdentity()
    {
        note("glLoadIdentity");
    }

    void glNewList(GLuint list, GLenum mode)
    {
        note("glNewList", list, mode);
    }

    void glPopMatrix()
    {
        note("glPopMatrix");
    }

    void glPushMatrix()
    {
        note("glPushMatrix");
    }

    void glRotatef(GLfloat angle, GLfloat x, GLfloat y, GLfloat z)
    {
        note("glRotatef", angle, x, y, z);
    }

    void glScalef(GLfloat x, GLfloat y, GLfloat z)
    {
        note("glScalef", x, y, z);
    }

    void glShadeModel(GLenum mode)
    {
        note("glShadeModel", mode);
    }

    void glStencilMask(GLuint mask)
    {
        note("glStencilMask", mask);
    }

    void glTexCoord2f(GLfloat s, GLfloat t)
    {
        note("glTexCoord2f", s, t);
    }

    void glTexCoord2i(GLint s, GLint t)
    {
        note("glTexCoord2i", s, t);
    }

    void glTexParameterf(GLenum target, GLenum name, GLfloat value)
    {
        note("glTexParameterf", target, name, value);
    }

    void glTexParameteri(GLenum target, GLenum name, GLint value)
    {
        note("glTexParameteri", target, name, value);
    }

    void glTranslated(GLdouble x, GLdouble y, GLdouble z)
    {
        note("glTranslated", x, y, z);
    }

    void glTranslatef(GLfloat x, GLfloat y, GLfloat z)
    {
        note("glTranslatef", x, y, z);
    }

    void glVertex2f(GLfloat x, GLfloat y)
    {
        note("glVertex2f", x, y);
    }

    void glVertex2i(GLint x, GLint y)
    {
        note("glVertex2i", x, y);
    }

    void glViewport(GLint x, GLint y, GLsizei width, GLsizei height)
    {
        note("glViewport", x, y, width, height);
    }

    void gluDeleteQuadric(GLUquadric*)
    {
        note("gluDeleteQuadric");
    }

    void gluLookAt(GLdouble ex, GLdouble ey, GLdouble ez, GLdouble cx, GLdouble cy, GLdouble cz, GLdouble ux,
                   GLdouble uy, GLdouble uz)
    {
        note("gluLookAt", ex, ey, ez, cx, cy, cz, ux, uy, uz);
    }

    void gluOrtho2D(GLdouble left, GLdouble right, GLdouble bottom, GLdouble top)
    {
        note("gluOrtho2D", left, right, bottom, top);
    }

    void gluPerspective(GLdouble fov, GLdouble aspect, GLdouble nearest, GLdouble farthest)
    {
        note("gluPerspective", fov, aspect, nearest, farthest);
    }

    void gluQuadricDrawStyle(GLUquadric*, GLenum style)
    {
        note("gluQuadricDrawStyle", style);
    }

    void gluQuadricNormals(GLUquadric*, GLenum normals)
    {
        note("gluQuadricNormals", normals);
    }

    void gluQuadricOrientation(GLUquadric*, GLenum orientation)
    {
        note("gluQuadricOrientation", orientation);
    }

    void gluQuadricTexture(GLUquadric*, GLboolean texture)
    {
        note("gluQuadricTexture", texture);
    }

    void gluSphere(GLUquadric*, GLdouble radius, GLint slices, GLint stacks)
    {
        note("gluSphere", radius, slices, stacks);
    }

    void glEnable(GLenum capability)
    {
        note("glEnable", capability);
        state().enabled[capability] = true;
    }

    void glDepthRange(GLclampd nearest, GLclampd farthest)
    {
        note("glDepthRange", nearest, farthest);
    }

    void glDisable(GLenum capability)
    {
        note("glDisable", capability);
        state().enabled[capability] = false;
    }

    GLboolean glIsEnabled(GLenum capability)
    {
        note("glIsEnabled", capability);
        return state().enabled[capability] ? GL_TRUE : GL_FALSE;
    }

    void glMatrixMode(GLenum mode)
    {
        note("glMatrixMode", mode);
        state().integers[GL_MATRIX_MODE] = static_cast<int>(mode);
    }

    void glGetIntegerv(GLenum name, GLint* value)
    {
        note("glGetIntegerv", name);
        *value = state().integers[name];
    }

    GLenum glGetError()
    {
        GLenum const error = state().error;
        state().error = GL_NO_ERROR;
        return error;
    }

    GLubyte const* gluErrorString(GLenum)
    {
        return reinterpret_cast<GLubyte const*>("an error");
    }

    GLint glRenderMode(GLenum mode)
    {
        note("glRenderMode", mode);
        return 0;
    }

    void glFogfv(GLenum name, GLfloat const* values)
    {
        noteArray("glFogfv", {static_cast<double>(name)}, values, parameterLength(name));
    }

    void glLightfv(GLenum light, GLenum name, GLfloat const* values)
    {
        noteArray("glLightfv", {static_cast<double>(light), static_cast<double>(name)}, values,
                  parameterLength(name));
    }

    void glMaterialfv(GLenum face, GLenum name, GLfloat const* values)
    {
        noteArray("glMaterialfv", {static_cast<double>(face), static_cast<double>(name)}, values,
                  parameterLength(name));
    }

    void glLoadMatrixf(GLfloat const* matrix)
    {
        noteArray("glLoadMatrixf", {}, matrix, 16);
    }

    void glMultMatrixf(GLfloat const* matrix)
    {
        noteArray("glMultMatrixf", {}, matrix, 16);
    }

    void glTexCoord3fv(GLfloat const* coordinates)
    {
        noteArray("glTexCoord3fv", {}, coordinates, 3);
    }

    void glVertex3fv(GLfloat const* vertex)
    {
        noteArray("glVertex3fv", {}, vertex, 3);
    }

    void glColorPointer(GLint size, GLenum type, GLsizei stride, GLvoid const*)
    {
        note("glColorPointer", size, type, stride);
    }

    void glVertexPointer(GLint size, GLenum type, GLsizei stride, GLvoid const*)
    {
        note("glVertexPointer", size, type, stride);
    }

    // The game's indices are bytes; they are noted behind the mode and the count.
    void glDrawElements(GLenum mode, GLsizei count, GLenum, GLvoid const* indices)
    {
        noteArray("glDrawElements", {static_cast<double>(mode), static_cast<double>(count)},
                  static_cast<GLubyte const*>(indices), count);
    }

    void glTexImage2D(GLenum target, GLint level, GLint internalFormat, GLsizei width, GLsizei height,
                      GLint border, GLenum format, GLenum type, GLvoid const*)
    {
        note("glTexImage2D", target, level, internalFormat, width, height, border, format, type);
    }

    void glGenTextures(GLsizei count, GLuint* names)
    {
        note("glGenTextures", count);
        for (GLsizei i = 0; i < count; ++i)
        {
            names[i] = state().refuseTexture ? 0 : state().nextName++;
            if (names[i] != 0)
            {
                state().textures.insert(names[i]);
            }
        }
        state().refuseTexture = false;
    }

    void glDeleteTextures(GLsizei count, GLuint const* names)
    {
        noteArray("glDeleteTextures", {static_cast<double>(count)}, names, count);
        for (GLsizei i = 0; i < count; ++i)
        {
            state().textures.erase(names[i]);
        }
    }

    GLuint glGenLists(GLsizei count)
    {
        note("glGenLists", count);
        GLuint const first = state().nextName;
        for (GLsizei i = 0; i < count; ++i)
        {
            state().lists.insert(state().nextName++);
        }
        return first;
    }

    void glDeleteLists(GLuint list, GLsizei count)
    {
        note("glDeleteLists", list, count);
        for (GLsizei i = 0; i < count; ++i)
        {
            state().lists.erase(list + static_cast<GLuint>(i));
        }
    }

    GLUquadric* gluNewQuadric()
    {
        note("gluNewQuadric");
        return reinterpret_cast<GLUquadric*>(&quadric);
    }

} // extern "C"

namespace platform
{

GLContextRef CurrentGLContext()
{
    return state().context;
}

void DeleteTextureInContext(GLContextRef context, unsigned texture)
{
    state().contextDeletions.emplace_back(context, texture);
    state().textures.erase(texture);
}

} // namespace platform
