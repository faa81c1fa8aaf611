// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Waveforms and spectrograms. Columns are 5 ms apart; the spectrogram's scale of frequency is logarithmic, 40
// Hz to 18 kHz, and its colours span 90 dB.
#include "sheets/SoundSheet.h"

#include "common/Fourier.h"
#include "synth/SoundFile.h"

#include <cairo.h>

#include <algorithm>
#include <memory>

namespace maker
{

namespace
{

using Surface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;
using Context = std::unique_ptr<cairo_t, decltype(&cairo_destroy)>;

constexpr int kColumns = 600; // 3 seconds
constexpr double kColumnSeconds = 0.005;
constexpr int kRowHeight = 128;
constexpr int kPlotHeight = 112;
constexpr int kLabelWidth = 116;
constexpr int kGap = 14;
constexpr std::size_t kWindow = 2048;

double SampleAt(SoundFile const& sound, std::ptrdiff_t frame)
{
    if (frame < 0 || frame >= static_cast<std::ptrdiff_t>(sound.Length()))
    {
        return 0.0;
    }
    double sum = 0.0;
    for (std::size_t channel = 0; channel < sound.channels; ++channel)
    {
        sum += sound.At(static_cast<std::size_t>(frame), channel);
    }
    return sum / static_cast<double>(sound.channels);
}

// Levels of one column in dB of full scale, by bin.
std::vector<double> Spectrum(SoundFile const& sound, int column)
{
    auto const centre = static_cast<std::ptrdiff_t>((column + 0.5) * kColumnSeconds * sound.rate);
    Waves values;
    for (std::size_t i = 0; i < kWindow; ++i)
    {
        double const window = 0.5 - 0.5 * Cosine(static_cast<double>(i) / kWindow);
        std::ptrdiff_t const frame =
            centre + static_cast<std::ptrdiff_t>(i) - static_cast<std::ptrdiff_t>(kWindow / 2);
        values.emplace_back(window * SampleAt(sound, frame), 0.0);
    }
    Transform(values);
    std::vector<double> levels;
    for (std::size_t i = 0; i < kWindow / 2; ++i)
    {
        levels.push_back(6.0206 * Log2(std::abs(values[i]) * 4.0 / kWindow + 1e-9));
    }
    return levels;
}

// From black by way of blue and amber to white.
void SetHeat(cairo_t* context, double level)
{
    double const heat = std::clamp(1.0 + (level + 12.0) / 90.0, 0.0, 1.0);
    cairo_set_source_rgb(context, SmoothStep(0.35, 0.8, heat), SmoothStep(0.5, 0.95, heat),
                         SmoothStep(0.0, 0.4, heat) * 0.6 - 0.45 * SmoothStep(0.5, 0.75, heat) +
                             0.85 * SmoothStep(0.8, 1.0, heat));
}

void DrawSpectrogram(cairo_t* context, SoundFile const& sound, double left, double top)
{
    for (int x = 0; x < kColumns; ++x)
    {
        std::vector<double> const levels = Spectrum(sound, x);
        for (int y = 0; y < kPlotHeight; ++y)
        {
            double const frequency = 40.0 * Power(450.0, 1.0 - (y + 0.5) / kPlotHeight);
            auto const bin = static_cast<std::size_t>(std::lround(frequency / sound.rate * kWindow));
            SetHeat(context, levels[bin]);
            cairo_rectangle(context, left + x, top + y, 1.0, 1.0);
            cairo_fill(context);
        }
    }
}

void DrawWaveform(cairo_t* context, SoundFile const& sound, double left, double top)
{
    double const middle = top + 0.5 * kPlotHeight;
    cairo_set_source_rgb(context, 0.07, 0.08, 0.13);
    cairo_rectangle(context, left, top, kColumns, kPlotHeight);
    cairo_fill(context);
    cairo_set_source_rgb(context, 0.55, 0.80, 1.0);
    for (int x = 0; x < kColumns; ++x)
    {
        double low = 0.0;
        double high = 0.0;
        auto const end = static_cast<std::ptrdiff_t>((x + 1) * kColumnSeconds * sound.rate);
        for (auto i = static_cast<std::ptrdiff_t>(x * kColumnSeconds * sound.rate); i < end; ++i)
        {
            low = std::min(low, SampleAt(sound, i));
            high = std::max(high, SampleAt(sound, i));
        }
        cairo_rectangle(context, left + x, middle - high * 0.5 * kPlotHeight - 0.5, 1.0,
                        (high - low) * 0.5 * kPlotHeight + 1.0);
        cairo_fill(context);
    }
}

void DrawName(cairo_t* context, std::string const& file, SoundFile const& sound, double top)
{
    auto const frames = static_cast<double>(sound.Length());
    std::string const milliseconds = std::to_string(static_cast<int>(1000.0 * frames / sound.rate)) + " ms";
    cairo_set_source_rgb(context, 0.9, 0.92, 0.96);
    cairo_select_font_face(context, "Liberation Sans", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_BOLD);
    cairo_set_font_size(context, 15.0);
    cairo_move_to(context, 12.0, top + 52.0);
    cairo_show_text(context, file.substr(0, file.find('.')).c_str());
    cairo_set_font_size(context, 12.0);
    cairo_move_to(context, 12.0, top + 72.0);
    cairo_show_text(context, milliseconds.c_str());
}

} // namespace

bool DrawSoundSheet(std::string const& folder, std::vector<std::string> const& files, std::string const& path)
{
    int const width = kLabelWidth + 2 * (kColumns + kGap);
    int const height = kRowHeight * static_cast<int>(files.size());
    Surface const surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height),
                          &cairo_surface_destroy);
    Context const context(cairo_create(surface.get()), &cairo_destroy);
    cairo_set_antialias(context.get(), CAIRO_ANTIALIAS_NONE);
    for (std::size_t i = 0; i < files.size(); ++i)
    {
        SoundFile const sound = ReadSound(folder + "/" + files[i]);
        if (sound.samples.empty())
        {
            return false;
        }
        double const top = kRowHeight * static_cast<double>(i) + 8.0;
        DrawName(context.get(), files[i], sound, top);
        DrawWaveform(context.get(), sound, kLabelWidth, top);
        DrawSpectrogram(context.get(), sound, kLabelWidth + kColumns + kGap, top);
    }
    return cairo_surface_write_to_png(surface.get(), path.c_str()) == CAIRO_STATUS_SUCCESS;
}

} // namespace maker
