// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// One styled string as a texture: rasterised on the first draw after a change of string or display, then
// drawn as a quad anywhere. A box and a frame may lie behind the text. All sizes are in the game's pixels.
#pragma once

#include "platform/base/Geometry.h"
#include "platform/text/Text.h"
#include "platform/window/GLContext.h"

#include <optional>
#include <string>

class StringTexture
{
public:
    using Attributes = platform::TextAttributes;

    StringTexture() = default;
    ~StringTexture();
    StringTexture(StringTexture const&) = delete;
    StringTexture& operator=(StringTexture const&) = delete;

    static constexpr platform::Color kOpaqueWhite{1.0F, 1.0F, 1.0F, 1.0F};
    static constexpr platform::Color kTransparentWhite{1.0F, 1.0F, 1.0F, 0.0F};

    // Every object is initialised by one of these. Without colours: opaque white text, no box, no frame.
    StringTexture& initWithAttributedString(platform::AttributedString string,
                                            platform::Color textColor = kOpaqueWhite,
                                            platform::Color boxColor = kTransparentWhite,
                                            platform::Color borderColor = kTransparentWhite);
    StringTexture& initWithString(std::string const& string, Attributes const& attributes,
                                  platform::Color textColor = kOpaqueWhite,
                                  platform::Color boxColor = kTransparentWhite,
                                  platform::Color borderColor = kTransparentWhite);

    // Each throws the texture away.
    void setString(platform::AttributedString string);
    void setString(std::string const& string, Attributes const& attributes);
    void setTextColor(platform::Color color);
    void setBoxColor(platform::Color color);
    void setBorderColor(platform::Color color);
    void setMargins(platform::Size size);     // between the frame's edge and the text
    void useStaticFrame(platform::Size size); // the bitmap's size, whatever the text

    // Back to a size that follows the text; keeps the texture when it does already.
    void useDynamicFrame();

    unsigned texName() const { return m_texName; }       // 0 without a texture
    platform::Size texSize() const { return m_texSize; } // of the bitmap last uploaded, in the game's pixels
    platform::AttributedString const& string() const { return *m_string; }
    platform::Color textColor() const { return m_textColor; }
    platform::Color boxColor() const { return m_boxColor; }
    platform::Color borderColor() const { return m_borderColor; }
    platform::Size marginSize() const { return m_marginSize; }
    bool staticFrame() const { return m_staticFrame; }
    platform::Size frameSize(); // measured first when the text has changed

    // Needs a current OpenGL context; without one, a log line and no texture.
    void genTexture();

    // Draw the top left corner at the point, at the text's own size, or stretched over the bounds. The
    // caller's state decides about texturing, blending and colour.
    void drawAtPoint(platform::Point point);
    void drawWithBounds(platform::Rect bounds);

    // In the context that owns it, whichever is current.
    void deleteTexture();

private:
    bool EnsureTexture();
    void FollowText();

    platform::GLContextRef m_cglContext = nullptr;
    unsigned m_texName = 0;
    int m_texScale = 1; // pixels of the bitmap for each of the game's
    platform::Size m_texSize;
    std::optional<platform::AttributedString> m_string;
    platform::Color m_textColor;
    platform::Color m_boxColor;
    platform::Color m_borderColor;
    bool m_staticFrame = false;
    platform::Size m_marginSize{4.0F, 2.0F};
    platform::Size m_frameSize; // (0, 0): to be measured
};
