// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A stereo sound that ends where it begins. Whatever is written past the last frame goes on at the first,
// so that the tails of a piece's last notes sound under its opening, and a repeated piece has no seam.
#pragma once

#include "synth/Units.h"

#include <vector>

namespace maker
{

struct Frame
{
    float left = 0.0F;
    float right = 0.0F;
};

class StereoLoop
{
public:
    explicit StereoLoop(std::size_t frames) : m_frames(frames) {}

    std::size_t Length() const { return m_frames.size(); }
    Frame& operator[](std::size_t index) { return m_frames[index]; }
    Frame const& operator[](std::size_t index) const { return m_frames[index]; }

    // Mixes one frame in; the index may lie up to any number of rounds past the end.
    void Add(std::size_t index, double left, double right)
    {
        Frame& frame = m_frames[index % m_frames.size()];
        frame.left += static_cast<float>(left);
        frame.right += static_cast<float>(right);
    }

    void AddLoop(StereoLoop const& other, double gain)
    {
        for (std::size_t i = 0; i < m_frames.size(); ++i)
            Add(i, gain * other[i].left, gain * other[i].right);
    }

    void Scale(double gain)
    {
        for (Frame& frame : m_frames)
            frame = {static_cast<float>(gain * frame.left), static_cast<float>(gain * frame.right)};
    }

private:
    std::vector<Frame> m_frames;
};

// Runs a process with memory (an echo, a filter) over the loop so that its state at the end equals the one it
// began with: it is first fed the last part of the loop, as long as its memory, and the result of that is
// dropped. step(left, right) changes the two values of one frame in place.
template <class Step>
void ProcessLoop(StereoLoop& loop, double memorySeconds, Step&& step)
{
    std::size_t const memory = static_cast<std::size_t>(memorySeconds * kSampleRate);
    std::size_t const begin = memory < loop.Length() ? loop.Length() - memory : 0;
    for (std::size_t i = begin; i < loop.Length(); ++i)
    {
        double left = loop[i].left;
        double right = loop[i].right;
        step(left, right);
    }
    for (std::size_t i = 0; i < loop.Length(); ++i)
    {
        double left = loop[i].left;
        double right = loop[i].right;
        step(left, right);
        loop[i] = {static_cast<float>(left), static_cast<float>(right)};
    }
}

} // namespace maker
