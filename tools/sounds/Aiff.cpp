// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// AIFF: big-endian chunks, the rate as an 80-bit float.
#include "sounds/Aiff.h"

#include "common/Maths.h"

#include <fstream>
#include <iterator>

namespace maker
{

namespace
{

class Bytes
{
public:
    void Text(std::string const& text) { m_bytes += text; }

    // The lowest bits of a number, the highest byte first.
    void Number(std::uint64_t number, int bytes)
    {
        for (int i = bytes - 1; i >= 0; --i)
        {
            m_bytes += static_cast<char>(static_cast<unsigned char>(number >> (8 * i)));
        }
    }

    void Chunk(std::string const& name, Bytes const& content)
    {
        Text(name);
        Number(content.m_bytes.size(), 4);
        m_bytes += content.m_bytes;
    }

    std::string const& Get() const { return m_bytes; }

private:
    std::string m_bytes;
};

std::int16_t ToSample(double value)
{
    return static_cast<std::int16_t>(std::clamp(std::floor(value * 32768.0 + 0.5), -32768.0, 32767.0));
}

Bytes CommonChunk(std::size_t frames)
{
    Bytes common;
    common.Number(2, 2);
    common.Number(frames, 4);
    common.Number(16, 2);
    common.Number(0x400E, 2); // 44100 as sign and exponent, then fraction
    common.Number(0xAC44000000000000ULL, 8);
    return common;
}

Bytes SampleChunk(Stereo const& sound)
{
    Bytes data;
    data.Number(0, 4);
    data.Number(0, 4);
    for (std::size_t i = 0; i < sound.left.size(); ++i)
    {
        data.Number(static_cast<std::uint16_t>(ToSample(sound.left[i])), 2);
        data.Number(static_cast<std::uint16_t>(ToSample(sound.right[i])), 2);
    }
    return data;
}

std::uint64_t NumberAt(std::string const& bytes, std::size_t place, std::size_t count)
{
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < count; ++i)
    {
        number = number << 8 | static_cast<unsigned char>(bytes[place + i]);
    }
    return number;
}

void ReadCommon(std::string const& bytes, std::size_t place, AiffSound& sound)
{
    sound.channels = static_cast<int>(NumberAt(bytes, place, 2));
    sound.sampleBits = static_cast<int>(NumberAt(bytes, place + 6, 2));
    int const exponent = static_cast<int>(NumberAt(bytes, place + 8, 2)) - 16383 - 63;
    sound.rate = std::ldexp(static_cast<double>(NumberAt(bytes, place + 10, 8)), exponent);
}

void ReadSamples(std::string const& bytes, std::size_t place, std::size_t size, AiffSound& sound)
{
    for (std::size_t i = 8; i + 1 < size; i += 2)
    {
        sound.samples.push_back(static_cast<std::int16_t>(NumberAt(bytes, place + i, 2)));
    }
}

} // namespace

bool WriteAiff(Stereo const& sound, std::string const& path)
{
    Bytes form;
    form.Text("AIFF");
    form.Chunk("COMM", CommonChunk(sound.left.size()));
    form.Chunk("SSND", SampleChunk(sound));
    Bytes file;
    file.Chunk("FORM", form);
    std::ofstream out(path, std::ios::binary);
    out.write(file.Get().data(), static_cast<std::streamsize>(file.Get().size()));
    out.close();
    return !out.fail();
}

bool ReadAiff(std::string const& path, AiffSound& sound)
{
    std::ifstream in(path, std::ios::binary);
    std::string const bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    if (bytes.size() < 12 || bytes.substr(0, 4) != "FORM" || bytes.substr(8, 4) != "AIFF")
    {
        return false;
    }
    sound = {};
    for (std::size_t place = 12; place + 8 <= bytes.size();)
    {
        std::string const name = bytes.substr(place, 4);
        std::size_t const size = NumberAt(bytes, place + 4, 4);
        if (size > bytes.size() - place - 8)
        {
            return false;
        }
        if (name == "COMM" && size >= 18)
        {
            ReadCommon(bytes, place + 8, sound);
        }
        if (name == "SSND" && size >= 8)
        {
            ReadSamples(bytes, place + 8, size, sound);
        }
        place += 8 + size + size % 2;
    }
    return sound.channels > 0 && sound.sampleBits == 16 && !sound.samples.empty();
}

} // namespace maker
