// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Loudness (ITU-R BS.1770), compression and limiting, all of them around the loop's seam.
#include "synth/Mastering.h"

#include "synth/Treatment.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace maker
{

namespace
{

struct Biquad
{
    double b0, b1, b2, a1, a2;
    double z1 = 0.0;
    double z2 = 0.0;

    double Next(double x)
    {
        double const y = b0 * x + z1;
        z1 = b1 * x - a1 * y + z2;
        z2 = b2 * x - a2 * y;
        return y;
    }
};

// The two stages of the standard's K weighting, worked out for our sample rate.
Biquad HeadShelf()
{
    constexpr double kQ = 0.7071752369554196;
    constexpr double kHigh = 1.584864701130855;
    constexpr double kBand = 1.258720930232562;
    double const k = Tangent(0.5 * 1681.974450955533 / kSampleRate);
    double const a0 = 1.0 + k / kQ + k * k;
    return {(kHigh + kBand * k / kQ + k * k) / a0, 2.0 * (k * k - kHigh) / a0,
            (kHigh - kBand * k / kQ + k * k) / a0, 2.0 * (k * k - 1.0) / a0, (1.0 - k / kQ + k * k) / a0};
}

Biquad LowCut()
{
    constexpr double kQ = 0.5003270373238773;
    double const k = Tangent(0.5 * 38.13547087602444 / kSampleRate);
    double const a0 = 1.0 + k / kQ + k * k;
    return {1.0, -2.0, 1.0, 2.0 * (k * k - 1.0) / a0, (1.0 - k / kQ + k * k) / a0};
}

// Weighted energy of each tenth of a second.
std::vector<double> TenthEnergies(StereoLoop const& loop)
{
    std::array<Biquad, 2> shelf = {HeadShelf(), HeadShelf()};
    std::array<Biquad, 2> cut = {LowCut(), LowCut()};
    constexpr std::size_t kTenth = 4410;
    std::vector<double> energies(loop.Length() / kTenth, 0.0);
    for (std::size_t i = 0; i < energies.size() * kTenth; ++i)
    {
        double const left = cut[0].Next(shelf[0].Next(loop[i].left));
        double const right = cut[1].Next(shelf[1].Next(loop[i].right));
        energies[i / kTenth] += (left * left + right * right) / kTenth;
    }
    return energies;
}

double MeanAbove(std::vector<double> const& blocks, double gate)
{
    double sum = 0.0;
    double count = 0.0;
    for (double const power : blocks)
    {
        sum += power > gate ? power : 0.0;
        count += power > gate ? 1.0 : 0.0;
    }
    return count > 0.0 ? sum / count : 0.0;
}

// Height of the curve through four neighbouring samples at three places between the middle two (the usual
// interpolating cubic overshoots as a converter's filter does), or of the samples themselves.
double PeakBetween(double a, double b, double c, double d)
{
    double peak = std::max(std::fabs(b), std::fabs(c));
    for (double const t : {0.25, 0.5, 0.75})
    {
        double const value =
            b + 0.5 * t * (c - a + t * (2 * a - 5 * b + 4 * c - d + t * (3 * (b - c) + d - a)));
        peak = std::max(peak, std::fabs(value));
    }
    return peak;
}

std::vector<float> NeededGains(StereoLoop const& loop, double ceiling)
{
    std::size_t const n = loop.Length();
    std::vector<float> gains(n);
    for (std::size_t i = 0; i < n; ++i)
    {
        Frame const& a = loop[(i + n - 1) % n];
        Frame const& b = loop[i];
        Frame const& c = loop[(i + 1) % n];
        Frame const& d = loop[(i + 2) % n];
        double const peak = std::max(PeakBetween(a.left, b.left, c.left, d.left),
                                     PeakBetween(a.right, b.right, c.right, d.right));
        gains[i] = static_cast<float>(peak > ceiling ? ceiling / peak : 1.0);
    }
    return gains;
}

// The smallest value within reach of each place, on both sides.
std::vector<float> SlidingMinimum(std::vector<float> const& values, std::size_t reach)
{
    std::vector<float> current = values;
    std::size_t const n = values.size();
    // doubling the window each time reaches any width in a few passes
    std::size_t window = 1;
    std::size_t const wanted = 2 * reach + 1;
    while (window < wanted)
    {
        std::size_t const step = std::min(window, wanted - window);
        std::vector<float> next(n);
        for (std::size_t i = 0; i < n; ++i)
            next[i] = std::min(current[i], current[(i + step) % n]);
        current.swap(next);
        window += step;
    }
    std::rotate(current.begin(), current.end() - static_cast<std::ptrdiff_t>(reach), current.end());
    return current;
}

// Lets the gain come back slowly after each peak, in two rounds because the loop has no first sample.
void SlowRecovery(std::vector<float>& gains, double seconds)
{
    auto const share = static_cast<float>(1.0 - Exp2(-3.3219 / (seconds * kSampleRate)));
    float state = 1.0F;
    for (int pass = 0; pass < 2; ++pass)
    {
        for (float& gain : gains)
        {
            state = std::min(gain, state + share * (1.0F - state));
            gain = state;
        }
    }
}

// The mean over a window of that reach to both sides: the gain moves without corners.
std::vector<float> Smoothed(std::vector<float> const& values, std::size_t reach)
{
    std::size_t const n = values.size();
    std::vector<float> result(n);
    double sum = 0.0;
    for (std::size_t i = 0; i < 2 * reach + 1; ++i)
        sum += values[(i + n - reach) % n];
    for (std::size_t i = 0; i < n; ++i)
    {
        result[i] = static_cast<float>(sum / static_cast<double>(2 * reach + 1));
        sum += values[(i + reach + 1) % n];
        sum -= values[(i + n - reach) % n];
    }
    return result;
}

// The level at one sample of an effect that fades in and out.
double Window(std::size_t i, std::size_t count, double fade)
{
    constexpr double kFadeIn = 0.0006;
    double const fromStart = static_cast<double>(i) / kSampleRate;
    double const fromEnd = static_cast<double>(count - 1 - i) / kSampleRate;
    return SmoothStep(0.0, kFadeIn, fromStart) * SmoothStep(0.0, fade, fromEnd);
}

// Takes the mean away in the shape of the window, so that both ends stay 0.
void Centre(Signal& signal, double fade)
{
    double sum = 0.0;
    double weight = 0.0;
    for (std::size_t i = 0; i < signal.size(); ++i)
    {
        double const window = Window(i, signal.size(), fade);
        signal[i] *= window;
        sum += signal[i];
        weight += window;
    }
    for (std::size_t i = 0; i < signal.size(); ++i)
    {
        signal[i] -= sum / weight * Window(i, signal.size(), fade);
    }
}

} // namespace

double LoudnessPower(StereoLoop const& loop)
{
    std::vector<double> const tenths = TenthEnergies(loop);
    std::vector<double> blocks;
    for (std::size_t i = 0; i + 4 <= tenths.size(); ++i)
        blocks.push_back(0.25 * (tenths[i] + tenths[i + 1] + tenths[i + 2] + tenths[i + 3]));
    constexpr double kOffset = 0.8529037030705663;          // -0.691 dB
    constexpr double kAbsoluteGate = 1.1724653045822963e-7; // -70 LUFS
    double const rough = MeanAbove(blocks, kAbsoluteGate);
    return kOffset * MeanAbove(blocks, std::max(kAbsoluteGate, 0.1 * rough));
}

void Compress(StereoLoop& loop, double threshold)
{
    double const knee = Gain(threshold) * Gain(threshold);
    double const rise = 1.0 - Exp2(-3.3219 / (0.02 * kSampleRate));
    double const fall = 1.0 - Exp2(-3.3219 / (0.25 * kSampleRate));
    double level = 0.0;
    ProcessLoop(loop, 3.0,
                [&](double& left, double& right)
                {
                    double const power = 0.5 * (left * left + right * right);
                    level += (power > level ? rise : fall) * (power - level);
                    // the square root of the excess power is half of it in decibels: 2:1
                    double const gain = level > knee ? std::sqrt(std::sqrt(knee / level)) : 1.0;
                    left *= gain;
                    right *= gain;
                });
}

void Limit(StereoLoop& loop, double ceiling)
{
    std::size_t const reach = Frames(0.0015);
    std::vector<float> gains = SlidingMinimum(NeededGains(loop, ceiling), reach);
    SlowRecovery(gains, 0.06);
    gains = Smoothed(gains, reach);
    for (std::size_t i = 0; i < loop.Length(); ++i)
        loop[i] = {loop[i].left * gains[i], loop[i].right * gains[i]};
}

void Master(StereoLoop& loop, double lufs, double ceilingDecibels)
{
    double const wanted = Gain(lufs) * Gain(lufs);
    // limiting takes loudness away, so the level is approached in a few rounds
    for (int round = 0; round < 4; ++round)
    {
        loop.Scale(std::sqrt(wanted / LoudnessPower(loop)));
        Limit(loop, Gain(ceilingDecibels));
    }
}

void Finish(Stereo& sound, double fade)
{
    constexpr double kPeak = 0.89125094; // -1 dB
    sound.ForEach(
        [fade](Signal& channel)
        {
            HighPass(channel, 24.0);
            Centre(channel, fade);
        });
    double const gain = kPeak / std::max(Peak(sound.left), Peak(sound.right));
    sound.ForEach([gain](Signal& channel) { Multiply(channel, [gain](double) { return gain; }); });
}

} // namespace maker
