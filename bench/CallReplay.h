// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The OpenGL calls of a frame, recorded once and repeated: what the calls alone cost, without the work of
// choosing them. On the recording OpenGL only.
#pragma once

#include "support/gl/RecordingGL.h"

#include <cstddef>
#include <vector>

class CallReplay
{
public:
    // Knows the calls of a scene whose texts are drawn already, and no others.
    explicit CallReplay(std::vector<recording::Call> const& calls);

    void Run() const;

private:
    using Function = void (*)(double const* arguments);

    struct Step
    {
        Function function;
        std::size_t arguments; // where they begin
    };

    std::vector<Step> m_steps;
    std::vector<double> m_arguments;
};
