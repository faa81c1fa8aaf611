// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "gfx/QTUtil.h"

#include "core/Globals.h"
#include "gfx/QTImage.h"
#include "gfx/TextureFormat.h"
#include "platform/Log.h"
#include "platform/OpenGL.h"

#include <map>
#include <set>
#include <string>

namespace
{

// Every new race loads its pictures again.
void TellOnce(std::string const& text)
{
    static std::set<std::string> told;
    if (told.insert(text).second)
    {
        QTUtilLog(text.c_str());
    }
}

} // namespace

int QTLoadAsTexture(unsigned long* texture, char const* name)
{
    GLuint generated = 0;
    glGenTextures(1, &generated);
    *texture = generated;

    std::shared_ptr<QTImage const> const image = QTDecodedImage(name);
    if (!image)
    {
        TellOnce(std::string("Unable to load texture ") + name);
        return -1;
    }

    glBindTexture(GL_TEXTURE_2D, generated);
    glReportError();
    UploadTextureLevel(*image, 0, GL_RGBA);
    glReportError();
    glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_REPEAT);
    glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_REPEAT);
    glReportError();
    return 0;
}

std::shared_ptr<QTImage const> QTDecodedImage(char const* name)
{
    static std::map<std::string, std::shared_ptr<QTImage const>> decoded;
    if (auto const known = decoded.find(name); known != decoded.end())
    {
        return known->second;
    }
    std::shared_ptr<QTImage> const image = QTImage::imageWithName(name);
    if (!image || !image->LoadImageData() || !image->CreateImageWithBitdepth(32))
    {
        return nullptr;
    }
    return image->WasDrawn() ? decoded.emplace(name, image).first->second : image;
}

void QTUtilLog(char const* text)
{
    platform::Log(text);
}
