// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The room and the echo: the effects that are made of delay lines.
#include "synth/Effects.h"
#include "synth/Filter.h"

#include <array>

namespace music
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

    double Length() const { return static_cast<double>(m_frames.size()); }

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

// Eight delay lines that feed one another through a Hadamard matrix (after J.-M. Jot).
class Room
{
public:
    explicit Room(RoomShape const& shape)
        : m_lowCutLeft(shape.lowCut),
          m_lowCutRight(shape.lowCut),
          m_preLeft(Frames(shape.preDelay)),
          m_preRight(Frames(shape.preDelay))
    {
        for (double const frames : {142.0, 379.0, 107.0, 277.0})
        {
            m_diffuseLeft.emplace_back(static_cast<std::size_t>(frames * 1.3));
            m_diffuseRight.emplace_back(static_cast<std::size_t>(frames * 1.3 + 11.0));
        }
        for (double const frames : {1423.0, 1559.0, 1787.0, 1931.0, 2153.0, 2411.0, 2687.0, 2963.0})
        {
            m_lines.emplace_back(static_cast<std::size_t>(frames * shape.size));
            m_damping.emplace_back(shape.damping);
            m_loss.push_back(Exp2(-9.966 * m_lines.back().Length() / (shape.seconds * kSampleRate)));
        }
    }

    void Next(double& left, double& right)
    {
        Enter(left, right);
        std::array<double, 8> taps = {};
        for (std::size_t i = 0; i < taps.size(); ++i)
            taps[i] = m_damping[i].Low(m_lines[i].Read()) * m_loss[i];
        double const outLeft = taps[0] - taps[2] + taps[4] - taps[6];
        double const outRight = taps[1] - taps[3] + taps[5] - taps[7];
        Mix(taps);
        for (std::size_t i = 0; i < taps.size(); ++i)
            m_lines[i].Write(taps[i] + (i % 2 == 0 ? left : right));
        left = 0.5 * outLeft;
        right = 0.5 * outRight;
    }

private:
    void Enter(double& left, double& right)
    {
        double const nextLeft = m_preLeft.Read();
        double const nextRight = m_preRight.Read();
        m_preLeft.Write(m_lowCutLeft.High(left));
        m_preRight.Write(m_lowCutRight.High(right));
        left = nextLeft;
        right = nextRight;
        for (Diffuser& diffuser : m_diffuseLeft)
            left = diffuser.Next(left);
        for (Diffuser& diffuser : m_diffuseRight)
            right = diffuser.Next(right);
    }

    static void Mix(std::array<double, 8>& taps)
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
            tap *= 0.35355339059327373; // keeps the energy
    }

    OnePole m_lowCutLeft;
    OnePole m_lowCutRight;
    DelayLine m_preLeft;
    DelayLine m_preRight;
    std::vector<Diffuser> m_diffuseLeft;
    std::vector<Diffuser> m_diffuseRight;
    std::vector<DelayLine> m_lines;
    std::vector<OnePole> m_damping;
    std::vector<double> m_loss;
};

} // namespace

void Reverberate(StereoLoop& loop, RoomShape const& shape)
{
    Room room(shape);
    ProcessLoop(loop, 2.5 * shape.seconds, [&](double& left, double& right) { room.Next(left, right); });
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

} // namespace music
