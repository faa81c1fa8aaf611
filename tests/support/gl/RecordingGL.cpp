// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "support/gl/RecordingGL.h"

#include "platform/base/OpenGL.h"
#include "support/gl/RecordingGLState.h"

#include <algorithm>
#include <ostream>

namespace recording
{

namespace
{

int defaultContext = 0; // only its address is used

State newState()
{
    State fresh;
    fresh.context = &defaultContext;
    fresh.integers[GL_MATRIX_MODE] = GL_MODELVIEW;
    fresh.integers[GL_DEPTH_BITS] = 24;
    return fresh;
}

int position(std::vector<Call>::const_iterator found, std::vector<Call> const& calls)
{
    return found == calls.end() ? -1 : static_cast<int>(found - calls.begin());
}

} // namespace

State& state()
{
    static State current = newState();
    return current;
}

std::ostream& operator<<(std::ostream& stream, Call const& call)
{
    stream << call.name << '(';
    char const* separator = "";
    for (double const argument : call.arguments)
    {
        stream << separator << argument;
        separator = ", ";
    }
    return stream << ')';
}

Call call(std::string name, std::initializer_list<double> arguments)
{
    return {std::move(name), arguments};
}

void reset()
{
    state() = newState();
}

void start()
{
    state().calls.clear();
    state().uploads.clear();
    state().corners.clear();
    state().errorChecks.clear();
    state().recording = true;
}

std::vector<Call> stop()
{
    state().recording = false;
    return std::move(state().calls);
}

std::vector<Upload> const& uploads()
{
    return state().uploads;
}

std::ostream& operator<<(std::ostream& stream, Corner const& corner)
{
    auto const& [place, color] = corner;
    return stream << '(' << place[0] << ", " << place[1] << ", " << place[2] << ") in (" << color[0] << ", "
                  << color[1] << ", " << color[2] << ')';
}

std::vector<Corner> const& corners()
{
    return state().corners;
}

std::vector<int> const& errorChecks()
{
    return state().errorChecks;
}

std::set<unsigned> const& textures()
{
    return state().textures;
}

std::set<unsigned> const& lists()
{
    return state().lists;
}

bool isEnabled(unsigned capability)
{
    return state().enabled[capability];
}

void setEnabled(unsigned capability, bool enabled)
{
    state().enabled[capability] = enabled;
}

void setError(unsigned error)
{
    state().error = error;
}

void setInteger(unsigned name, int value)
{
    state().integers[name] = value;
}

void refuseNextTexture()
{
    state().refuseTexture = true;
}

void setCurrentContext(void* context)
{
    state().context = context;
}

void setDisplayScale(int scale)
{
    state().displayScale = scale;
}

std::vector<std::pair<void*, unsigned>> const& contextDeletions()
{
    return state().contextDeletions;
}

int count(std::vector<Call> const& calls, std::string const& name)
{
    return static_cast<int>(std::ranges::count(calls, name, &Call::name));
}

int indexOf(std::vector<Call> const& calls, Call const& wanted, int from)
{
    return position(std::find(calls.begin() + from, calls.end(), wanted), calls);
}

int indexOf(std::vector<Call> const& calls, std::string const& name, int from)
{
    return position(
        std::find_if(calls.begin() + from, calls.end(), [&](Call const& c) { return c.name == name; }),
        calls);
}

} // namespace recording
