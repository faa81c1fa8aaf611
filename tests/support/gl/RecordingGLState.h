// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// What the entry points of the recording OpenGL share.
#pragma once

#include "support/gl/RecordingGL.h"

#include <map>

namespace recording
{

struct ClientArray
{
    bool enabled = false;
    int size = 0; // floats of an element
    float const* values = nullptr;
};

struct State
{
    bool recording = false;
    std::vector<Call> calls;
    std::vector<Upload> uploads;
    std::vector<Corner> corners;
    std::vector<int> errorChecks;
    std::map<unsigned, unsigned> bound; // the texture of each target
    std::map<unsigned, ClientArray> arrays;
    std::array<float, 3> color{1.0F, 1.0F, 1.0F};
    int unpackAlignment = 4;
    std::set<unsigned> textures;
    std::set<unsigned> lists;
    std::map<unsigned, bool> enabled;
    std::map<unsigned, int> integers;
    unsigned nextName = 1;
    unsigned error = 0;
    bool refuseTexture = false;
    void* context = nullptr;
    int displayScale = 1;
    std::vector<std::pair<void*, unsigned>> contextDeletions;
};

State& state();

// Notes a call while recording is on.
template <typename... Arguments>
void note(char const* name, Arguments... arguments)
{
    if (state().recording)
    {
        state().calls.push_back({name, {static_cast<double>(arguments)...}});
    }
}

// Notes a call with one leading list of numbers and an array.
template <typename Element>
void noteArray(char const* name, std::initializer_list<double> leading, Element const* elements, int count)
{
    if (state().recording)
    {
        std::vector<double> arguments(leading);
        arguments.insert(arguments.end(), elements, elements + count);
        state().calls.push_back({name, std::move(arguments)});
    }
}

} // namespace recording
