// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "gfx/QTUtil.h"

#include "core/Globals.h"
#include "gfx/QTImage.h"
#include "platform/base/Log.h"
#include "platform/base/OpenGL.h"

#include <future>
#include <map>
#include <utility>

namespace
{

// By name; null for a picture that cannot be loaded.
using DecodedImages = std::map<std::string, std::shared_ptr<QTImage const>>;

struct Pictures
{
    DecodedImages decoded; // and not used yet
    std::future<DecodedImages> ahead;
};

// A function-local static: it is destroyed before the libraries that its thread uses, and its destructor
// waits for the thread.
Pictures& PicturesAhead()
{
    static Pictures pictures;
    return pictures;
}

std::shared_ptr<QTImage const> Decode(std::string const& name)
{
    auto const image = QTImage::imageWithName(name.c_str());
    bool const isDecoded = image && image->LoadImageData() && image->CreateImageWithBitdepth(32);
    return isDecoded ? image : nullptr;
}

std::shared_ptr<QTImage const> TakeDecoded(std::string const& name)
{
    auto& [decoded, ahead] = PicturesAhead();
    if (ahead.valid())
    {
        decoded = ahead.get();
    }
    auto const known = decoded.extract(name);
    return known ? known.mapped() : Decode(name);
}

} // namespace

int QTLoadAsTexture(unsigned long* texture, char const* name)
{
    GLuint generated = 0;
    glGenTextures(1, &generated);
    *texture = generated;

    std::shared_ptr<QTImage const> const image = TakeDecoded(name);
    if (!image)
    {
        platform::LogFormat("Unable to load texture %s", name);
        return -1;
    }

    glBindTexture(GL_TEXTURE_2D, generated);
    glReportError();
    image->UploadTextureLevel(0, GL_RGBA);
    glReportError();
    glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_REPEAT);
    glTexParameterf(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_REPEAT);
    glReportError();
    return 0;
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
    // Without another thread it is deferred: the first QTLoadAsTexture() then decodes them.
    PicturesAhead().ahead = std::async(std::launch::async | std::launch::deferred, decodeAll);
}

void QTUtilLog(char const* text)
{
    platform::Log(text);
}
