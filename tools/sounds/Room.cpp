// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A network of eight delays that feed one another (after J.-M. Jot), behind a few early echoes.
#include "sounds/Room.h"

#include "common/Maths.h"

#include <array>

namespace maker
{

namespace
{

constexpr int kLines = 8;

// Lengths in samples at scale 1, with no common divisor: their echoes never fall together.
constexpr std::array<int, kLines> kLengths = {1493, 1693, 1949, 2203, 2477, 2749, 3049, 3319};

class Line
{
public:
    Line(int length, RoomSize const& room)
        : m_buffer(static_cast<std::size_t>(length)),
          m_gain(Power(0.001, length / kSampleRate / room.seconds)),
          m_share(1.0 - Exp(-2.0 * kPi * room.brightness / kSampleRate))
    {
    }

    double Out()
    {
        m_wall += m_share * (m_buffer[m_place] - m_wall);
        return m_gain * m_wall;
    }

    void In(double sample)
    {
        m_buffer[m_place] = sample;
        m_place = (m_place + 1) % m_buffer.size();
    }

private:
    std::vector<double> m_buffer;
    double m_gain;
    double m_share;
    double m_wall = 0.0;
    std::size_t m_place = 0;
};

class Network
{
public:
    explicit Network(RoomSize const& room)
    {
        for (int const length : kLengths)
        {
            m_lines.emplace_back(std::max(31, static_cast<int>(length * room.scale)), room);
        }
    }

    void Step(double& left, double& right)
    {
        std::array<double, kLines> out = {};
        double sum = 0.0;
        for (std::size_t i = 0; i < kLines; ++i)
        {
            sum += out[i] = m_lines[i].Out();
        }
        double const inLeft = left;
        double const inRight = right;
        left = right = 0.0;
        for (std::size_t i = 0; i < kLines; ++i)
        {
            // Each line hears all others alike (a Householder reflection) and one of the channels.
            m_lines[i].In(out[i] - sum * (2.0 / kLines) + (i % 2 == 0 ? inLeft : inRight));
            (i % 2 == 0 ? left : right) += (i % 4 < 2 ? out[i] : -out[i]);
        }
    }

private:
    std::vector<Line> m_lines;
};

} // namespace

void AddRoom(Stereo& sound, RoomSize const& room, double gain)
{
    Network network(room);
    for (std::size_t i = 0; i < sound.left.size(); ++i)
    {
        double left = sound.left[i];
        double right = sound.right[i];
        network.Step(left, right);
        sound.left[i] += gain * left;
        sound.right[i] += gain * right;
    }
}

} // namespace maker
