// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// The layout is that of GNU gettext's manual, "The Format of GNU MO Files": seven numbers, a table of the
// keys, one of the translations (a length and an offset each), and a hash table of key numbers.
#include "platform/base/CatalogueFile.h"

#include "platform/base/File.h"

#include <cstdint>
#include <cstring>

namespace platform
{
namespace
{

constexpr std::size_t kLargestFile = std::size_t{1} << 20U; // bytes
constexpr std::uint32_t kMagic = 0x950412DE;
constexpr std::uint64_t kNumberSize = 4;

enum HeaderNumber
{
    kRevision = 1,
    kTextCount,
    kKeyTable,
    kTranslationTable,
    kHashSize,
    kHashTable,
    kHeaderNumbers,
};

std::uint32_t Swapped(std::uint32_t number)
{
    return number >> 24U | (number >> 8U & 0xFF00U) | (number << 8U & 0xFF0000U) | number << 24U;
}

class CatalogueFile
{
public:
    explicit CatalogueFile(std::span<std::byte const> bytes) : m_bytes(bytes) {}

    bool IsSound()
    {
        if (!Holds(0, kHeaderNumbers * kNumberSize))
        {
            return false;
        }
        std::uint32_t const magic = NumberAt(0);
        m_isSwapped = magic == Swapped(kMagic);
        return (magic == kMagic || m_isSwapped) && Header(kRevision) == 0 &&
               HasSoundTexts(Header(kKeyTable)) && HasSoundTexts(Header(kTranslationTable)) && HasSoundHash();
    }

private:
    bool Holds(std::uint64_t offset, std::uint64_t size) const { return offset + size <= m_bytes.size(); }

    std::uint32_t NumberAt(std::uint64_t offset) const
    {
        std::uint32_t number = 0;
        std::memcpy(&number, m_bytes.data() + offset, sizeof number);
        return m_isSwapped ? Swapped(number) : number;
    }

    std::uint32_t Header(HeaderNumber number) const { return NumberAt(number * kNumberSize); }

    bool HasSoundTexts(std::uint64_t table) const
    {
        std::uint64_t const count = Header(kTextCount);
        if (!Holds(table, count * 2 * kNumberSize))
        {
            return false;
        }
        for (std::uint64_t entry = table; entry < table + count * 2 * kNumberSize; entry += 2 * kNumberSize)
        {
            std::uint64_t const length = NumberAt(entry);
            std::uint64_t const start = NumberAt(entry + kNumberSize);
            if (!Holds(start, length + 1) || m_bytes[start + length] != std::byte{0})
            {
                return false;
            }
        }
        return true;
    }

    // A search ends at an empty slot, and meets every slot when their number is a prime. Up to two slots are
    // no table.
    bool HasSoundHash() const
    {
        std::uint64_t const size = Header(kHashSize);
        std::uint64_t const table = Header(kHashTable);
        if (size <= 2)
        {
            return true;
        }
        if (!Holds(table, size * kNumberSize) || !IsPrime(size))
        {
            return false;
        }
        bool hasEmptySlot = false;
        for (std::uint64_t slot = table; slot < table + size * kNumberSize; slot += kNumberSize)
        {
            std::uint32_t const number = NumberAt(slot);
            hasEmptySlot = hasEmptySlot || number == 0;
            if (number > Header(kTextCount))
            {
                return false;
            }
        }
        return hasEmptySlot;
    }

    static bool IsPrime(std::uint64_t number)
    {
        for (std::uint64_t divisor = 2; divisor * divisor <= number; ++divisor)
        {
            if (number % divisor == 0)
            {
                return false;
            }
        }
        return true;
    }

    std::span<std::byte const> m_bytes;
    bool m_isSwapped = false;
};

} // namespace

bool IsSoundCatalogue(std::span<std::byte const> file)
{
    return CatalogueFile(file).IsSound();
}

bool IsSoundCatalogue(std::filesystem::path const& file)
{
    auto const bytes = ReadWholeFile(file, kLargestFile);
    return bytes && IsSoundCatalogue(*bytes);
}

} // namespace platform
