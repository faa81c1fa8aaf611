// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Finishing.
#include "sounds/Finish.h"

#include "common/Maths.h"
#include "sounds/Filter.h"

namespace maker
{

namespace
{

constexpr double kPeak = 0.89125094; // -1 dB
constexpr double kFadeIn = 0.0006;

double Window(std::size_t i, std::size_t count, double fade)
{
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

void Finish(Stereo& sound, double fade)
{
    sound.ForEach(
        [fade](Signal& channel)
        {
            HighPass(channel, 24.0);
            Centre(channel, fade);
        });
    double const gain = kPeak / std::max(Peak(sound.left), Peak(sound.right));
    sound.ForEach(
        [gain](Signal& channel)
        {
            for (double& sample : channel)
            {
                sample *= gain;
            }
        });
}

} // namespace maker
