// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The synthesiser's own promises: loops without ends, pure intervals, true loudness, peaks below the ceiling.
#include "synth/Mastering.h"
#include "synth/Treatment.h"
#include "synth/Voices.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace
{

using namespace maker;

StereoLoop Tone(double hertz, double amplitude, std::size_t frames)
{
    StereoLoop loop(frames);
    for (std::size_t i = 0; i < frames; ++i)
    {
        double const value = amplitude * Sine(hertz * static_cast<double>(i) / kSampleRate);
        loop.Add(i, value, value);
    }
    return loop;
}

double LufsOf(StereoLoop const& loop)
{
    return 10.0 * std::log10(LoudnessPower(loop));
}

double LargestDifference(StereoLoop const& a, StereoLoop const& b, std::size_t shift)
{
    double largest = 0.0;
    for (std::size_t i = 0; i < a.Length(); ++i)
        largest =
            std::max(largest, std::fabs(static_cast<double>(a[i].left - b[(i + shift) % b.Length()].left)));
    return largest;
}

TEST(Maths, SineAndPowerAgreeWithTheLibrary)
{
    for (int i = -300; i < 300; ++i)
    {
        double const x = 0.0137 * i;
        EXPECT_NEAR(Sine(x), std::sin(2.0 * kPi * x), 1e-7);
        EXPECT_NEAR(Exp2(x) / std::exp2(x), 1.0, 1e-9);
    }
}

TEST(StereoLoop, NoteHeldPastTheEndSoundsAtTheBeginning)
{
    Tempo const tempo(60.0, 4.0);
    StereoLoop late(tempo.LoopFrames());
    StereoLoop early(tempo.LoopFrames());
    SynthPatch const patch;
    Play(patch, {3.5, 1.0, 69.0, 1.0, 0.0}, tempo, late);
    Play(patch, {0.5, 1.0, 69.0, 1.0, 0.0}, tempo, early);
    // one and the same note, three beats apart around the loop
    EXPECT_LT(LargestDifference(early, late, 3 * 44100), 1e-6);
    EXPECT_GT(std::fabs(late[100].left), 0.0F);
}

TEST(StereoLoop, RoomAndEchoDoNotKnowWhereTheLoopBegins)
{
    Tempo const tempo(60.0, 6.0);
    StereoLoop late(tempo.LoopFrames());
    StereoLoop early(tempo.LoopFrames());
    late.Add(5 * 44100 + 30000, 1.0, 0.5);
    early.Add(30000, 1.0, 0.5);
    for (StereoLoop* loop : {&late, &early})
    {
        Echo(*loop, {0.25, 0.3, 300.0, 4000.0}, tempo);
        Reverberate(*loop, {0.8, 0.01, 5000.0, 1.0, 200.0});
    }
    // 100 dB below the click that went in
    EXPECT_LT(LargestDifference(early, late, 5 * 44100), 1e-5);
}

TEST(Score, OvertonesArePureIntervals)
{
    EXPECT_NEAR(Hertz(OvertonePitch(11.0, 69.0)), 440.0 * 11.0 / 8.0, 1e-6);
    EXPECT_NEAR(Hertz(OvertonePitch(6.0, 69.0)), 440.0 * 6.0 / 8.0, 1e-6);
    EXPECT_NEAR(Hertz(OvertonePitch(18.0, 69.0)), 440.0 * 18.0 / 8.0, 1e-6);
}

TEST(Score, LineGivesEachNoteItsPlaceAndPitch)
{
    Notes const notes = Line("Bb3:1.5 r:.5 F#4:2!");
    ASSERT_EQ(notes.size(), 2U);
    EXPECT_EQ(notes[0].pitch, 58.0);
    EXPECT_EQ(notes[1].beat, 2.0);
    EXPECT_EQ(notes[1].pitch, 66.0);
    EXPECT_GT(notes[1].velocity, notes[0].velocity);
}

// EBU Tech 3341, case 1: a stereo sine of 1 kHz at -23 dBFS measures -23 LUFS.
TEST(Mastering, LoudnessMeterReadsTheReferenceTone)
{
    EXPECT_NEAR(LufsOf(Tone(1000.0, Gain(-23.0), 20 * 44100)), -23.0, 0.1);
}

TEST(Mastering, MasterReachesItsLoudnessBelowItsCeiling)
{
    StereoLoop loop = Tone(440.0, 0.2, 10 * 44100);
    for (std::size_t i = 0; i < loop.Length(); i += 22050)
        loop.Add(i, 3.0, -3.0);
    Master(loop, -14.0, -3.0);
    double peak = 0.0;
    for (std::size_t i = 0; i < loop.Length(); ++i)
        peak = std::max(peak, std::fabs(static_cast<double>(loop[i].left)));
    EXPECT_LE(peak, Gain(-3.0) + 1e-4);
    EXPECT_NEAR(LufsOf(loop), -14.0, 0.3);
}

} // namespace
