// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The entry points, and in place of the platform layer its two functions about contexts.
#include "platform/base/OpenGL.h"
#include "platform/window/GLContext.h"
#include "support/gl/RecordingGLState.h"

#include <algorithm>

using recording::note;
using recording::noteArray;
using recording::state;

// An entry point that notes its name and the arguments given, and does nothing else.
#define QUARROW_NOTED(name, parameters, ...)                                                                 \
    void name parameters                                                                                     \
    {                                                                                                        \
        note(#name __VA_OPT__(, ) __VA_ARGS__);                                                              \
    }

// The same for one that takes only an array of so many floats.
#define QUARROW_NOTED_FLOATS(name, count)                                                                    \
    void name(GLfloat const* values)                                                                         \
    {                                                                                                        \
        noteArray(#name, {}, values, count);                                                                 \
    }

namespace
{

int quadric = 0; // every GLU quadric is this one

void setArray(GLenum array, GLint size, GLvoid const* values)
{
    state().arrays[array].size = size;
    state().arrays[array].values = static_cast<float const*>(values);
}

// The element of a client array; where it is switched off, the other value.
std::array<float, 3> elementOf(GLenum array, std::size_t index, std::array<float, 3> const& otherwise)
{
    recording::ClientArray const& from = state().arrays[array];
    std::array<float, 3> element = otherwise;
    if (from.enabled)
    {
        auto const size = static_cast<std::size_t>(from.size);
        std::copy_n(from.values + index * size, size, element.begin());
    }
    return element;
}

std::vector<std::uint8_t> unpacked(GLsizei width, GLsizei height, std::size_t pixelBytes,
                                   GLvoid const* pixels)
{
    std::vector<std::uint8_t> bytes;
    auto const alignment = static_cast<std::size_t>(state().unpackAlignment);
    std::size_t const rowBytes = static_cast<std::size_t>(width) * pixelBytes;
    std::size_t const stride = (rowBytes + alignment - 1) / alignment * alignment;
    auto const* row = static_cast<std::uint8_t const*>(pixels);
    for (GLsizei y = 0; y < height; ++y, row += stride)
    {
        bytes.insert(bytes.end(), row, row + rowBytes);
    }
    return bytes;
}

// How many floats a light, material or fog parameter has.
int parameterLength(GLenum name)
{
    return name == GL_SHININESS ? 1 : 4;
}

} // namespace

extern "C"
{
    QUARROW_NOTED(glBegin, (GLenum mode), mode)
    QUARROW_NOTED(glEnd, ())
    QUARROW_NOTED(glBlendFunc, (GLenum source, GLenum destination), source, destination)
    QUARROW_NOTED(glCallList, (GLuint list), list)
    QUARROW_NOTED(glClear, (GLbitfield mask), mask)
    QUARROW_NOTED(glClearColor, (GLclampf r, GLclampf g, GLclampf b, GLclampf a), r, g, b, a)
    QUARROW_NOTED(glClearDepth, (GLclampd depth), depth)
    QUARROW_NOTED(glCullFace, (GLenum mode), mode)
    QUARROW_NOTED(glDepthFunc, (GLenum function), function)
    QUARROW_NOTED(glDepthMask, (GLboolean flag), flag)
    QUARROW_NOTED(glEndList, ())
    QUARROW_NOTED(glFlush, ())
    QUARROW_NOTED(glFogf, (GLenum name, GLfloat value), name, value)
    QUARROW_NOTED(glFogi, (GLenum name, GLint value), name, value)
    QUARROW_NOTED(glFrontFace, (GLenum mode), mode)
    QUARROW_NOTED(glHint, (GLenum target, GLenum mode), target, mode)
    QUARROW_NOTED(glLightModeli, (GLenum name, GLint value), name, value)
    QUARROW_NOTED(glLoadIdentity, ())
    QUARROW_NOTED(glNewList, (GLuint list, GLenum mode), list, mode)
    QUARROW_NOTED(glPopMatrix, ())
    QUARROW_NOTED(glPushMatrix, ())
    QUARROW_NOTED(glRotatef, (GLfloat angle, GLfloat x, GLfloat y, GLfloat z), angle, x, y, z)
    QUARROW_NOTED(glScalef, (GLfloat x, GLfloat y, GLfloat z), x, y, z)
    QUARROW_NOTED(glShadeModel, (GLenum mode), mode)
    QUARROW_NOTED(glStencilMask, (GLuint mask), mask)
    QUARROW_NOTED(glTexCoord2f, (GLfloat s, GLfloat t), s, t)
    QUARROW_NOTED(glTexCoord2i, (GLint s, GLint t), s, t)
    QUARROW_NOTED(glTexParameterf, (GLenum target, GLenum name, GLfloat value), target, name, value)
    QUARROW_NOTED(glTexParameteri, (GLenum target, GLenum name, GLint value), target, name, value)
    QUARROW_NOTED(glTranslated, (GLdouble x, GLdouble y, GLdouble z), x, y, z)
    QUARROW_NOTED(glTranslatef, (GLfloat x, GLfloat y, GLfloat z), x, y, z)
    QUARROW_NOTED(glVertex2f, (GLfloat x, GLfloat y), x, y)
    QUARROW_NOTED(glVertex2i, (GLint x, GLint y), x, y)
    QUARROW_NOTED(glViewport, (GLint x, GLint y, GLsizei width, GLsizei height), x, y, width, height)
    QUARROW_NOTED(gluDeleteQuadric, (GLUquadric*))
    QUARROW_NOTED(gluLookAt,
                  (GLdouble ex, GLdouble ey, GLdouble ez, GLdouble cx, GLdouble cy, GLdouble cz, GLdouble ux,
                   GLdouble uy, GLdouble uz),
                  ex, ey, ez, cx, cy, cz, ux, uy, uz)
    QUARROW_NOTED(gluOrtho2D, (GLdouble left, GLdouble right, GLdouble bottom, GLdouble top), left, right,
                  bottom, top)
    QUARROW_NOTED(gluPerspective, (GLdouble fov, GLdouble aspect, GLdouble nearest, GLdouble farthest), fov,
                  aspect, nearest, farthest)
    QUARROW_NOTED(gluQuadricDrawStyle, (GLUquadric*, GLenum style), style)
    QUARROW_NOTED(gluQuadricNormals, (GLUquadric*, GLenum normals), normals)
    QUARROW_NOTED(gluQuadricOrientation, (GLUquadric*, GLenum orientation), orientation)
    QUARROW_NOTED(gluQuadricTexture, (GLUquadric*, GLboolean texture), texture)
    QUARROW_NOTED(gluSphere, (GLUquadric*, GLdouble radius, GLint slices, GLint stacks), radius, slices,
                  stacks)
    QUARROW_NOTED(glTexCoordPointer, (GLint size, GLenum type, GLsizei stride, GLvoid const*), size, type,
                  stride)
    QUARROW_NOTED(glDepthRange, (GLclampd nearest, GLclampd farthest), nearest, farthest)

    QUARROW_NOTED_FLOATS(glLoadMatrixf, 16)
    QUARROW_NOTED_FLOATS(glMultMatrixf, 16)
    QUARROW_NOTED_FLOATS(glTexCoord3fv, 3)
    QUARROW_NOTED_FLOATS(glVertex3fv, 3)

    void glBindTexture(GLenum target, GLuint texture)
    {
        note("glBindTexture", target, texture);
        state().bound[target] = texture;
    }

    void glPixelStorei(GLenum name, GLint value)
    {
        note("glPixelStorei", name, value);
        state().unpackAlignment = name == GL_UNPACK_ALIGNMENT ? value : state().unpackAlignment;
    }

    void glTexImage2D(GLenum target, GLint level, GLint internalFormat, GLsizei width, GLsizei height,
                      GLint border, GLenum format, GLenum type, GLvoid const* pixels)
    {
        note("glTexImage2D", target, level, internalFormat, width, height, border, format, type);
        if (state().recording)
        {
            std::size_t const pixelBytes = type == GL_UNSIGNED_SHORT_1_5_5_5_REV ? 2 : 4;
            state().uploads.push_back(
                {state().bound[target], level, width, height, unpacked(width, height, pixelBytes, pixels)});
        }
    }

    void glColor4f(GLfloat r, GLfloat g, GLfloat b, GLfloat a)
    {
        note("glColor4f", r, g, b, a);
        state().color = {r, g, b};
    }

    void glEnableClientState(GLenum array)
    {
        note("glEnableClientState", array);
        state().arrays[array].enabled = true;
    }

    void glDisableClientState(GLenum array)
    {
        note("glDisableClientState", array);
        state().arrays[array].enabled = false;
    }

    void glVertexPointer(GLint size, GLenum type, GLsizei stride, GLvoid const* values)
    {
        note("glVertexPointer", size, type, stride);
        setArray(GL_VERTEX_ARRAY, size, values);
    }

    void glColorPointer(GLint size, GLenum type, GLsizei stride, GLvoid const* values)
    {
        note("glColorPointer", size, type, stride);
        setArray(GL_COLOR_ARRAY, size, values);
    }

    void glEnable(GLenum capability)
    {
        note("glEnable", capability);
        state().enabled[capability] = true;
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
        if (state().recording)
        {
            state().errorChecks.push_back(static_cast<int>(state().calls.size()));
        }
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

    // The game's indices are bytes; they are noted behind the mode and the count.
    void glDrawElements(GLenum mode, GLsizei count, GLenum, GLvoid const* indices)
    {
        auto const* const first = static_cast<GLubyte const*>(indices);
        noteArray("glDrawElements", {static_cast<double>(mode), static_cast<double>(count)}, first, count);
        for (GLubyte const* index = first; state().recording && index != first + count; ++index)
        {
            state().corners.push_back(
                {elementOf(GL_VERTEX_ARRAY, *index, {}), elementOf(GL_COLOR_ARRAY, *index, state().color)});
        }
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

int DisplayScale()
{
    return state().displayScale;
}

void DeleteTextureInContext(GLContextRef context, unsigned texture)
{
    state().contextDeletions.emplace_back(context, texture);
    state().textures.erase(texture);
}

} // namespace platform
