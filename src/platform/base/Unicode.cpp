// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/base/Unicode.h"

#include <array>
#include <cstddef>

namespace platform
{

namespace
{

constexpr char32_t kReplacement = 0xFFFD;

struct Decoded
{
    char32_t codePoint;
    std::size_t length; // units read, at least 1
};

// How many bytes a sequence has by its first one, the bits of that byte that count, and the least code point
// that needs so many.
struct SequenceForm
{
    unsigned char mask;
    unsigned char lead;
    std::size_t length;
    char32_t least;
};
constexpr std::array<SequenceForm, 4> kSequenceForms = {{
    {0x80, 0x00, 1, 0x0},
    {0xE0, 0xC0, 2, 0x80},
    {0xF0, 0xE0, 3, 0x800},
    {0xF8, 0xF0, 4, 0x10000},
}};

bool IsSurrogate(char32_t c)
{
    return c >= 0xD800 && c <= 0xDFFF;
}

Decoded DecodeSequence(std::string_view text, SequenceForm const& form)
{
    if (text.size() < form.length)
    {
        return {kReplacement, 1};
    }
    char32_t c = static_cast<unsigned char>(text[0]) & static_cast<unsigned char>(~form.mask);
    for (std::size_t i = 1; i < form.length; ++i)
    {
        auto const byte = static_cast<unsigned char>(text[i]);
        if ((byte & 0xC0U) != 0x80U)
        {
            return {kReplacement, 1};
        }
        c = (c << 6U) | (byte & 0x3FU);
    }
    bool const wellFormed = c >= form.least && c <= 0x10FFFF && !IsSurrogate(c);
    return wellFormed ? Decoded{c, form.length} : Decoded{kReplacement, 1};
}

Decoded DecodeUtf8(std::string_view text)
{
    auto const first = static_cast<unsigned char>(text[0]);
    for (SequenceForm const& form : kSequenceForms)
    {
        if ((first & form.mask) == form.lead)
        {
            return DecodeSequence(text, form);
        }
    }
    return {kReplacement, 1};
}

Decoded DecodeUtf16(std::u16string_view text)
{
    char32_t const first = text[0];
    if (!IsSurrogate(first))
    {
        return {first, 1};
    }
    bool const isPair = first < 0xDC00 && text.size() > 1 && text[1] >= 0xDC00 && text[1] <= 0xDFFF;
    return isPair ? Decoded{0x10000 + ((first - 0xD800) << 10U) + (text[1] - 0xDC00U), 2}
                  : Decoded{kReplacement, 1};
}

void AppendUtf8(std::string& out, char32_t c)
{
    std::size_t length = 1;
    while (length < 4 && c >= kSequenceForms[length].least)
    {
        ++length;
    }
    SequenceForm const& form = kSequenceForms[length - 1];
    std::size_t shift = 6 * (length - 1);
    out.push_back(static_cast<char>(form.lead | (c >> shift)));
    while (shift > 0)
    {
        shift -= 6;
        out.push_back(static_cast<char>(0x80U | ((c >> shift) & 0x3FU)));
    }
}

void AppendUtf16(std::u16string& out, char32_t c)
{
    if (c < 0x10000)
    {
        out.push_back(static_cast<char16_t>(c));
        return;
    }
    out.push_back(static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10U)));
    out.push_back(static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FFU)));
}

} // namespace

std::u16string Utf16FromUtf8(std::string_view text)
{
    std::u16string out;
    while (!text.empty())
    {
        Decoded const decoded = DecodeUtf8(text);
        AppendUtf16(out, decoded.codePoint);
        text.remove_prefix(decoded.length);
    }
    return out;
}

std::string Utf8FromUtf16(std::u16string_view text)
{
    std::string out;
    while (!text.empty())
    {
        Decoded const decoded = DecodeUtf16(text);
        AppendUtf8(out, decoded.codePoint);
        text.remove_prefix(decoded.length);
    }
    return out;
}

} // namespace platform
