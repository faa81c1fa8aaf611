// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "gfx/QTUtil.h"

#include "core/Globals.h"
#include "gfx/QTImage.h"
#include "gfx/TextureFormat.h"
#include "platform/base/Log.h"
#include "platform/base/OpenGL.h"

#include <future>
#include <map>
#include <set>
#include <utility>

namespace
{

// By name; null where it could not be had.
using DecodedImages = std::map<std::string, std::shared_ptr<QTImage const>>;

// Made by its first use, after what its thread uses, so that a program that ends early waits before that
// goes.
std::future<DecodedImages>& DecodedAhead()
{
    static std::future<DecodedImages> images;
    return images;
}

std::shared_ptr<QTImage const> Decode(std::string const& name)
{
    auto const image = QTImage::imageWithName(name.c_str());
    bool const usable = image && image->LoadImageData() && image->CreateImageWithBitdepth(32);
    return usable ? image : nullptr;
}

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
    static DecodedImages decoded;
    if (DecodedAhead().valid())
    {
        decoded.merge(DecodedAhead().get());
    }
    auto known = decoded.find(name);
    if (known == decoded.end())
    {
        known = decoded.emplace(name, Decode(name)).first;
    }
    std::shared_ptr<QTImage const> image = known->second;
    if (!image || !image->WasDrawn())
    {
        decoded.erase(known);
    }
    return image;
}

void QTDecodeAhead(std::vector<std::string> names)
{
    auto const decodeAll = [names = std::move(names)]
    {
        DecodedImages images;
        for (std::string const& name : names)
        {
            images.emplace(name, Decode(name));
        }
        return images;
    };
    // Deferred, that is, as late as they are asked for, where no thread can be had.
    DecodedAhead() = std::async(std::launch::async | std::launch::deferred, decodeAll);
}

void QTUtilLog(char const* text)
{
    platform::Log(text);
}
