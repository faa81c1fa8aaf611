// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// An OpenGL (and GLU) that draws nothing: the same entry points, which note each call while recording is on,
// hand out names, and keep the state that the game queries. While recording is off they cost next to nothing.
// Link quarrow_recording_gl instead of OpenGL.
#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <set>
#include <string>
#include <vector>

namespace recording
{

struct Call
{
    std::string name;              // "glEnable"
    std::vector<double> arguments; // numbers in order; of an array argument its elements

    bool operator==(Call const&) const = default;
};

// "glEnable(2896)": what gtest shows when a comparison fails.
std::ostream& operator<<(std::ostream& stream, Call const& call);

// A call to compare with.
Call call(std::string name, std::initializer_list<double> arguments = {});

// Forgets everything, names and state included. Recording is then off and a new context current.
void reset();

// Notes calls from here on, from an empty list.
void start();

// Stops, and returns what was noted.
std::vector<Call> stop();

// The calls that an action makes.
template <typename Action>
std::vector<Call> during(Action action)
{
    start();
    action();
    return stop();
}

// What is kept beside the calls while recording is on, until the next start().
//
// A texture's level as OpenGL reads it: its rows begin at multiples of the unpack alignment.
struct Upload
{
    unsigned texture;
    int level;
    int width;
    int height;
    std::vector<std::uint8_t> pixels; // row after row without padding
};
std::vector<Upload> const& uploads();

// A corner that glDrawElements takes from the client's arrays: its place, and its colour or the current one.
struct Corner
{
    std::array<float, 3> place;
    std::array<float, 3> color;
    bool operator==(Corner const&) const = default;
};
std::ostream& operator<<(std::ostream& stream, Corner const& corner);
std::vector<Corner> const& corners();

// For each glGetError, how many calls were noted before it.
std::vector<int> const& errorChecks();

// The names that exist.
std::set<unsigned> const& textures();
std::set<unsigned> const& lists();

bool isEnabled(unsigned capability);
void setEnabled(unsigned capability, bool enabled);

// What the next glGetError answers, once.
void setError(unsigned error);

// What glGetIntegerv answers for the name.
void setInteger(unsigned name, int value);

// The next glGenTextures hands out names of 0.
void refuseNextTexture();

// The context that is current from now on; null for none. Contexts are told apart by these pointers only.
void setCurrentContext(void* context);

// The scale of the display from now on; 1 at first.
void setDisplayScale(int scale);

// The textures deleted in a context other than the current one: (context, texture) in order.
std::vector<std::pair<void*, unsigned>> const& contextDeletions();

// How many calls of that name the list holds, and where the first stands (-1 for nowhere).
int count(std::vector<Call> const& calls, std::string const& name);
int indexOf(std::vector<Call> const& calls, Call const& wanted, int from = 0);
int indexOf(std::vector<Call> const& calls, std::string const& name, int from = 0);

} // namespace recording
