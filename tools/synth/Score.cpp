// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Reads the short texts that the pieces are written in.
#include "synth/Score.h"

#include <cassert>
#include <charconv>

namespace maker
{

namespace
{

std::string_view NextWord(std::string_view& text)
{
    std::size_t const begin = text.find_first_not_of(" \n");
    if (begin == std::string_view::npos)
        return {};
    text.remove_prefix(begin);
    std::string_view const word = text.substr(0, text.find_first_of(" \n"));
    text.remove_prefix(word.size());
    return word;
}

double Number(std::string_view digits)
{
    double value = 0.0;
    auto const result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    assert(result.ec == std::errc());
    (void)result;
    return value;
}

template <class PitchReader>
Notes ReadLine(std::string_view text, PitchReader&& pitchOf)
{
    Notes notes;
    double beat = 0.0;
    for (std::string_view word = NextWord(text); !word.empty(); word = NextWord(text))
    {
        bool const accent = word.back() == '!';
        if (accent)
            word.remove_suffix(1);
        std::size_t const colon = word.find(':');
        assert(colon != std::string_view::npos);
        double const beats = Number(word.substr(colon + 1));
        std::string_view const name = word.substr(0, colon);
        if (name != "r")
            notes.push_back({beat, beats, pitchOf(name), accent ? 1.0 : 0.8, 0.0});
        beat += beats;
    }
    return notes;
}

// Base-2 logarithm of a value of 1 to 2, by repeated squaring.
double FractionLog2(double value)
{
    double result = 0.0;
    double bit = 0.5;
    for (int i = 0; i < 40; ++i, bit *= 0.5)
    {
        value *= value;
        if (value >= 2.0)
        {
            value *= 0.5;
            result += bit;
        }
    }
    return result;
}

} // namespace

double PitchOf(std::string_view name)
{
    constexpr int kSemitones[] = {9, 11, 0, 2, 4, 5, 7}; // A to G
    double pitch = kSemitones[name.front() - 'A'];
    for (name.remove_prefix(1); name.front() == '#' || name.front() == 'b'; name.remove_prefix(1))
        pitch += name.front() == '#' ? 1.0 : -1.0;
    return pitch + 12.0 * (Number(name) + 1.0);
}

std::vector<double> Chord(std::string_view names)
{
    std::vector<double> pitches;
    for (std::string_view word = NextWord(names); !word.empty(); word = NextWord(names))
        pitches.push_back(PitchOf(word));
    return pitches;
}

Notes Line(std::string_view text)
{
    return ReadLine(text, PitchOf);
}

double OvertonePitch(double overtone, double rootPitch)
{
    double pitch = rootPitch;
    double ratio = overtone / 8.0;
    for (; ratio >= 2.0; ratio *= 0.5)
        pitch += 12.0;
    for (; ratio < 1.0; ratio *= 2.0)
        pitch -= 12.0;
    return pitch + 12.0 * FractionLog2(ratio);
}

Notes OvertoneLine(std::string_view text, double rootPitch)
{
    return ReadLine(text, [&](std::string_view word) { return OvertonePitch(Number(word), rootPitch); });
}

Notes Moved(Notes notes, double beats, double semitones, double velocity)
{
    for (Note& note : notes)
    {
        note.beat += beats;
        note.pitch += semitones;
        note.velocity *= velocity;
    }
    return notes;
}

Notes Shortened(Notes notes, double share)
{
    for (Note& note : notes)
        note.beats *= share;
    return notes;
}

void Pattern(std::string_view marks, double beat, double beatsPerMark,
             std::function<void(double, double)> const& hit)
{
    for (char const mark : marks)
    {
        double const velocity = mark == 'X' ? 1.0 : (mark == 'x' ? 0.75 : (mark == 'o' ? 0.4 : 0.0));
        if (velocity > 0.0)
            hit(beat, velocity);
        beat += beatsPerMark;
    }
}

} // namespace maker
