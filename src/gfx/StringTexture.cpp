// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "gfx/StringTexture.h"

#include "core/Globals.h"
#include "platform/base/Log.h"
#include "platform/base/OpenGL.h"

#include <utility>

namespace
{

constexpr float kFrameWidth = 1.5F;

} // namespace

StringTexture::~StringTexture()
{
    deleteTexture();
}

StringTexture& StringTexture::initWithAttributedString(platform::AttributedString string,
                                                       platform::Color textColor, platform::Color boxColor,
                                                       platform::Color borderColor)
{
    deleteTexture();
    m_texSize = {};
    m_string.emplace(std::move(string));
    m_textColor = textColor;
    m_boxColor = boxColor;
    m_borderColor = borderColor;
    m_staticFrame = false;
    m_marginSize = {4.0F, 2.0F};
    m_frameSize = {};
    return *this;
}

StringTexture& StringTexture::initWithString(std::string const& string, Attributes const& attributes,
                                             platform::Color textColor, platform::Color boxColor,
                                             platform::Color borderColor)
{
    return initWithAttributedString({string, attributes}, textColor, boxColor, borderColor);
}

void StringTexture::setString(platform::AttributedString string)
{
    deleteTexture();
    m_string.emplace(std::move(string));
    FollowText();
}

void StringTexture::setString(std::string const& string, Attributes const& attributes)
{
    setString({string, attributes});
}

void StringTexture::setTextColor(platform::Color color)
{
    deleteTexture();
    m_textColor = color;
}

void StringTexture::setBoxColor(platform::Color color)
{
    deleteTexture();
    m_boxColor = color;
}

void StringTexture::setBorderColor(platform::Color color)
{
    deleteTexture();
    m_borderColor = color;
}

void StringTexture::setMargins(platform::Size size)
{
    deleteTexture();
    m_marginSize = size;
    FollowText();
}

void StringTexture::useStaticFrame(platform::Size size)
{
    deleteTexture();
    m_staticFrame = true;
    m_frameSize = size;
}

void StringTexture::useDynamicFrame()
{
    if (m_staticFrame)
    {
        deleteTexture();
        m_staticFrame = false;
        m_frameSize = {};
    }
}

platform::Size StringTexture::frameSize()
{
    if (!m_staticFrame && m_frameSize.width == 0.0F && m_frameSize.height == 0.0F)
    {
        platform::Size const text = m_string->size();
        m_frameSize = {text.width + 2.0F * m_marginSize.width, text.height + 2.0F * m_marginSize.height};
    }
    return m_frameSize;
}

void StringTexture::genTexture()
{
    deleteTexture();
    m_texScale = platform::DisplayScale();
    platform::TextBitmap bitmap(frameSize(), m_texScale);
    platform::Rect const frame{{}, m_frameSize};
    if (m_boxColor.alpha != 0.0F)
    {
        bitmap.fillRect(frame, m_boxColor);
    }
    if (m_borderColor.alpha != 0.0F)
    {
        bitmap.frameRect(frame, m_borderColor, kFrameWidth);
    }
    bitmap.drawString(*m_string, m_textColor, {m_marginSize.width, m_marginSize.height});
    m_texSize = bitmap.size();

    m_cglContext = platform::CurrentGLContext();
    if (m_cglContext == nullptr)
    {
        platform::Log("StringTexture -genTexture: Failure to get current OpenGL context\n");
        return;
    }
    glGenTextures(1, &m_texName);
    glBindTexture(GL_TEXTURE_RECTANGLE_EXT, m_texName);
    glTexImage2D(GL_TEXTURE_RECTANGLE_EXT, 0, GL_RGBA, bitmap.pixelsWide(), bitmap.pixelsHigh(), 0, GL_RGBA,
                 GL_UNSIGNED_BYTE, bitmap.rgba().data());
    glDebugStr();
}

void StringTexture::drawAtPoint(platform::Point point)
{
    if (EnsureTexture())
    {
        drawWithBounds({point, m_texSize});
    }
}

void StringTexture::drawWithBounds(platform::Rect bounds)
{
    if (!EnsureTexture())
    {
        return;
    }
    float const right = bounds.origin.x + bounds.size.width;
    float const bottom = bounds.origin.y + bounds.size.height;
    auto const scale = static_cast<float>(m_texScale);
    float const texWidth = m_texSize.width * scale;
    float const texHeight = m_texSize.height * scale;
    glBindTexture(GL_TEXTURE_RECTANGLE_EXT, m_texName);
    glBegin(GL_QUADS);
    glTexCoord2f(0.0F, 0.0F);
    glVertex2f(bounds.origin.x, bounds.origin.y);
    glTexCoord2f(0.0F, texHeight);
    glVertex2f(bounds.origin.x, bottom);
    glTexCoord2f(texWidth, texHeight);
    glVertex2f(right, bottom);
    glTexCoord2f(texWidth, 0.0F);
    glVertex2f(right, bounds.origin.y);
    glEnd();
}

void StringTexture::deleteTexture()
{
    if (m_texName != 0 && m_cglContext != nullptr)
    {
        platform::DeleteTextureInContext(m_cglContext, m_texName);
        m_texName = 0;
        m_cglContext = nullptr;
    }
}

bool StringTexture::EnsureTexture()
{
    if (m_texName == 0 || m_texScale != platform::DisplayScale())
    {
        genTexture();
    }
    return m_texName != 0;
}

void StringTexture::FollowText()
{
    if (!m_staticFrame)
    {
        m_frameSize = {};
    }
}
