// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The rooms and the echo: what is made of delay lines.
#include "synth/Filter.h"
#include "synth/Treatment.h"

#include <array>
#include <numeric>

namespace maker
{

namespace
{

class DelayLine
{
public:
    explicit DelayLine(std::size_t frames) : m_frames(frames > 0 ? frames : 1, 0.0) {}

    double Read() const { return m_frames[m_index]; }

    void Write(double value)
    {
        m_frames[m_index] = value;
        m_index = m_index + 1 < m_frames.size() ? m_index + 1 : 0;
    }

private:
    std::vector<double> m_frames;
    std::size_t m_index = 0;
};

// Smears a sound in time and leaves its spectrum as it is (after M. Schroeder).
class Diffuser
{
public:
    explicit Diffuser(std::size_t frames) : m_line(frames) {}

    double Next(double input)
    {
        double const delayed = m_line.Read();
        double const fed = input + kShare * delayed;
        m_line.Write(fed);
        return delayed - kShare * fed;
    }

private:
    static constexpr double kShare = 0.62;

    DelayLine m_line;
};

using Taps = std::array<double, 8>;

// Feeds each line's output to all lines alike (a Householder reflection).
void Reflect(Taps& taps)
{
    double const sum = std::accumulate(taps.begin(), taps.end(), 0.0);
    for (double& tap : taps)
        tap -= sum * (2.0 / 8.0);
}

// Feeds each line another sum and difference of all outputs (a Hadamard matrix); the factor keeps the energy.
void Scatter(Taps& taps)
{
    for (std::size_t stride = 1; stride < taps.size(); stride *= 2)
    {
        for (std::size_t i = 0; i < taps.size(); ++i)
        {
            if ((i & stride) != 0)
                continue;
            double const a = taps[i];
            double const b = taps[i + stride];
            taps[i] = a + b;
            taps[i + stride] = a - b;
        }
    }
    for (double& tap : taps)
        tap *= 0.35355339059327373;
}

// Eight delay lines that feed one another (after J.-M. Jot). Lengths in frames without a common divisor keep
// their echoes from falling together.
class Network
{
public:
    // octaves: what is left after the seconds, as a power of two; -60 dB is about -10
    Network(std::array<std::size_t, 8> const& lengths, double octaves, double seconds, double damping)
    {
        for (std::size_t const length : lengths)
        {
            m_lines.emplace_back(length);
            m_damping.emplace_back(damping);
            m_loss.push_back(Exp2(octaves * static_cast<double>(length) / (seconds * kSampleRate)));
        }
    }

    void Next(double& left, double& right, void (*mix)(Taps&))
    {
        Taps taps = {};
        for (std::size_t i = 0; i < taps.size(); ++i)
            taps[i] = m_damping[i].Low(m_lines[i].Read()) * m_loss[i];
        double const outLeft = taps[0] - taps[2] + taps[4] - taps[6];
        double const outRight = taps[1] - taps[3] + taps[5] - taps[7];
        mix(taps);
        for (std::size_t i = 0; i < taps.size(); ++i)
            m_lines[i].Write(taps[i] + (i % 2 == 0 ? left : right));
        left = outLeft;
        right = outRight;
    }

private:
    std::vector<DelayLine> m_lines;
    std::vector<OnePole> m_damping;
    std::vector<double> m_loss;
};

std::array<std::size_t, 8> Scaled(std::array<double, 8> const& lengths, double size)
{
    std::array<std::size_t, 8> scaled = {};
    for (std::size_t i = 0; i < scaled.size(); ++i)
        scaled[i] = std::max<std::size_t>(31, static_cast<std::size_t>(lengths[i] * size));
    return scaled;
}

// What one channel passes before it enters the network: a delay, a low cut and the diffusers.
class Entrance
{
public:
    Entrance(RoomShape const& shape, double extraFrames)
        : m_lowCut(shape.lowCut),
          m_delay(Frames(shape.preDelay))
    {
        for (double const frames : {142.0, 379.0, 107.0, 277.0})
            m_diffusers.emplace_back(static_cast<std::size_t>(frames * 1.3 + extraFrames));
    }

    double Next(double input)
    {
        double value = m_delay.Read();
        m_delay.Write(m_lowCut.High(input));
        for (Diffuser& diffuser : m_diffusers)
            value = diffuser.Next(value);
        return value;
    }

private:
    OnePole m_lowCut;
    DelayLine m_delay;
    std::vector<Diffuser> m_diffusers;
};

} // namespace

void Reverberate(StereoLoop& loop, RoomShape const& shape)
{
    Entrance leftEntrance(shape, 0.0);
    Entrance rightEntrance(shape, 11.0);
    Network network(Scaled({1423.0, 1559.0, 1787.0, 1931.0, 2153.0, 2411.0, 2687.0, 2963.0}, shape.size),
                    -9.966, shape.seconds, shape.damping);
    ProcessLoop(loop, 2.5 * shape.seconds,
                [&](double& left, double& right)
                {
                    left = leftEntrance.Next(left);
                    right = rightEntrance.Next(right);
                    network.Next(left, right, Scatter);
                    left *= 0.5;
                    right *= 0.5;
                });
}

void AddCabin(Stereo& sound, CabinShape const& shape, double gain)
{
    Network network(Scaled({1493.0, 1693.0, 1949.0, 2203.0, 2477.0, 2749.0, 3049.0, 3319.0}, shape.size),
                    Log2(0.001), shape.seconds, shape.damping);
    for (std::size_t i = 0; i < sound.left.size(); ++i)
    {
        double left = sound.left[i];
        double right = sound.right[i];
        network.Next(left, right, Reflect);
        sound.left[i] += gain * left;
        sound.right[i] += gain * right;
    }
}

void Echo(StereoLoop& loop, EchoShape const& shape, Tempo const& tempo)
{
    DelayLine leftLine(tempo.FrameAt(shape.beats));
    DelayLine rightLine(tempo.FrameAt(shape.beats));
    OnePole leftLow(shape.highCut);
    OnePole rightLow(shape.highCut);
    OnePole leftHigh(shape.lowCut);
    OnePole rightHigh(shape.lowCut);
    // after that many returns even a feedback of 0.8 has fallen by more than 90 dB
    double const returns = 10.0 / (1.0 - shape.feedback);
    ProcessLoop(loop, tempo.Seconds(shape.beats) * (returns + 2.0),
                [&](double& left, double& right)
                {
                    double const fromLeft = leftHigh.High(leftLow.Low(leftLine.Read()));
                    double const fromRight = rightHigh.High(rightLow.Low(rightLine.Read()));
                    // the middle enters on the left alone, which is what makes it wander from side to side
                    leftLine.Write(0.7 * (left + right) + shape.feedback * fromRight);
                    rightLine.Write(0.25 * (right - left) + shape.feedback * fromLeft);
                    left = fromLeft;
                    right = fromRight;
                });
}

} // namespace maker
