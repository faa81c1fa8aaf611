// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "ui/Overlay.h"

#include "core/Globals.h"
#include "platform/base/OpenGL.h"

#include <cstdio>

namespace
{

constexpr platform::Color kTextColor{0.8F, 0.8F, 1.0F, 1.0F};
constexpr platform::Color kBoxColor{0.0F, 0.0F, 0.0F, 0.0F};
constexpr platform::Color kBorderColor{0.8F, 0.8F, 1.0F, 1.0F};

} // namespace

Overlay::Overlay(int x, int y, int fontSize, char const* fontName)
    : m_attributes{fontName, static_cast<float>(fontSize)},
      m_x(x),
      m_y(y)
{
    m_texture.initWithString("", m_attributes, kTextColor, kBoxColor, kBorderColor);
}

void Overlay::MoveTo(int x, int y)
{
    m_x = x;
    m_y = y;
}

void Overlay::SetString(char const* text)
{
    m_texture.setString(text, m_attributes);
}

void Overlay::SetString(float value)
{
    char text[100];
    std::snprintf(text, sizeof text, "%f", static_cast<double>(value));
    SetString(text);
}

void Overlay::SetString(int value)
{
    char text[100];
    std::snprintf(text, sizeof text, "%d", value);
    SetString(text);
}

// The trailing blank keeps the right margin steady.
void Overlay::SetStringTimer(int seconds)
{
    char text[100];
    std::snprintf(text, sizeof text, "%2d:%02d ", seconds / 60, seconds % 60);
    SetString(text);
}

void Overlay::SetBorderColor(float r, float g, float b, float a)
{
    m_texture.setBorderColor({r, g, b, a});
}

void Overlay::SetTextColor(float r, float g, float b, float a)
{
    m_texture.setTextColor({r, g, b, a});
}

void Overlay::SetBgColor(float r, float g, float b, float a)
{
    m_texture.setBoxColor({r, g, b, a});
}

void Overlay::Render(int width, int height)
{
    bool const depthTested = glIsEnabled(GL_DEPTH_TEST) == GL_TRUE;
    glDisable(GL_DEPTH_TEST);
    glEnable(GL_BLEND);
    glBlendFunc(GL_ONE, GL_ONE_MINUS_SRC_ALPHA); // the bitmap is premultiplied
    glEnable(GL_TEXTURE_RECTANGLE_EXT);
    glDisable(GL_LIGHTING);

    GLint matrixMode = GL_MODELVIEW;
    glGetIntegerv(GL_MATRIX_MODE, &matrixMode);
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    double const right = width;
    double const bottom = height;
    gluOrtho2D(0.0, right, bottom, 0.0);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();

    glColor4f(1.0F, 1.0F, 1.0F, 1.0F);
    m_texture.drawAtPoint({static_cast<float>(m_x), static_cast<float>(m_y)});

    glPopMatrix();
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(static_cast<GLenum>(matrixMode));
    glDisable(GL_TEXTURE_RECTANGLE_EXT);
    glDisable(GL_BLEND);
    glEnable(GL_LIGHTING); // even if it was off before
    if (depthTested)
    {
        glEnable(GL_DEPTH_TEST);
    }
    glReportError();
}

void Overlay::GetDimensions(int* x, int* y, int* width, int* height) const
{
    *x = m_x;
    *y = m_y;
    *width = static_cast<int>(m_texture.texSize().width);
    *height = static_cast<int>(m_texture.texSize().height);
}
