// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Compiled catalogues, sound and damaged. Whatever is taken for sound must not bring gettext down.
#include "platform/base/CatalogueFile.h"

#include "Language.h"
#include "platform/base/Bundle.h"
#include "platform/base/File.h"
#include "support/CapturedLog.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <fstream>

using platform::IsSoundCatalogue;

namespace
{

namespace fs = std::filesystem;
using Bytes = std::vector<std::byte>;

// Offsets in the header, from the manual of GNU gettext.
constexpr std::size_t kRevision = 4;
constexpr std::size_t kTextCount = 8;
constexpr std::size_t kKeyTable = 12;
constexpr std::size_t kHashSize = 20;
constexpr std::size_t kHashTable = 24;
constexpr std::size_t kHeaderSize = 28;

Bytes German()
{
    return *platform::ReadWholeFile(language::Catalogues() / "de" / "LC_MESSAGES" / "quarrow.mo");
}

std::uint32_t NumberAt(Bytes const& file, std::size_t offset)
{
    std::uint32_t number = 0;
    std::memcpy(&number, file.data() + offset, sizeof number);
    return number;
}

Bytes With(Bytes file, std::size_t offset, std::uint32_t number)
{
    std::memcpy(file.data() + offset, &number, sizeof number);
    return file;
}

TEST(CatalogueFile, EveryShippedCatalogueIsSound)
{
    for (std::string const& name : language::Shipped())
    {
        EXPECT_TRUE(IsSoundCatalogue(language::Catalogues() / name / "LC_MESSAGES" / "quarrow.mo")) << name;
    }
}

TEST(CatalogueFile, CatalogueOfTheOtherByteOrderIsSound)
{
    Bytes file = German();
    std::size_t const count = NumberAt(file, kTextCount);
    std::size_t const numbers = NumberAt(file, kHashTable) / 4 + NumberAt(file, kHashSize);
    ASSERT_EQ(NumberAt(file, kHashTable), kHeaderSize + 16 * count) << "the tables follow each other";
    for (std::size_t i = 0; i < numbers; ++i)
    {
        std::reverse(file.begin() + static_cast<std::ptrdiff_t>(4 * i),
                     file.begin() + static_cast<std::ptrdiff_t>(4 * i + 4));
    }
    EXPECT_TRUE(IsSoundCatalogue(file));
}

TEST(CatalogueFile, MissingFileIsNotSound)
{
    EXPECT_FALSE(IsSoundCatalogue(fs::path("/nonexistent/quarrow.mo")));
}

TEST(CatalogueFile, EveryShorterFileIsNotSound)
{
    Bytes const file = German();
    for (std::size_t size = 0; size < file.size(); ++size)
    {
        ASSERT_FALSE(IsSoundCatalogue(std::span(file).first(size))) << size;
    }
}

TEST(CatalogueFile, OffsetsAndLengthsOutsideTheFileAreFound)
{
    Bytes const file = German();
    std::size_t const keys = NumberAt(file, kKeyTable);
    for (std::uint32_t const number : {std::uint32_t(file.size()), 0x7FFFFFFFU, 0xFFFFFFFFU})
    {
        EXPECT_FALSE(IsSoundCatalogue(With(file, kTextCount, number)));
        EXPECT_FALSE(IsSoundCatalogue(With(file, kKeyTable, number)));
        EXPECT_FALSE(IsSoundCatalogue(With(file, kHashSize, number)));
        EXPECT_FALSE(IsSoundCatalogue(With(file, kHashTable, number)));
        EXPECT_FALSE(IsSoundCatalogue(With(file, keys + 8, number)));
        EXPECT_FALSE(IsSoundCatalogue(With(file, keys + 12, number)));
    }
}

TEST(CatalogueFile, TextWithoutItsZeroByteIsFound)
{
    Bytes const file = German();
    std::size_t const keys = NumberAt(file, kKeyTable);
    EXPECT_FALSE(IsSoundCatalogue(With(file, keys + 8, NumberAt(file, keys + 8) - 1)));
}

TEST(CatalogueFile, UnknownRevisionIsNotSound)
{
    EXPECT_FALSE(IsSoundCatalogue(With(German(), kRevision, 1)));
}

// A search in a table without an empty slot, or whose size is no prime, may never end.
TEST(CatalogueFile, HashTableThatASearchMayNotLeaveIsFound)
{
    Bytes const file = German();
    std::size_t const size = NumberAt(file, kHashSize);
    std::size_t const table = NumberAt(file, kHashTable);
    EXPECT_FALSE(IsSoundCatalogue(With(file, kHashSize, static_cast<std::uint32_t>(size - 1))));
    EXPECT_FALSE(IsSoundCatalogue(With(file, table, NumberAt(file, kTextCount) + 1)));
    Bytes full = file;
    for (std::size_t slot = table; slot < table + 4 * size; slot += 4)
    {
        full = With(full, slot, 1);
    }
    EXPECT_FALSE(IsSoundCatalogue(full));
}

// Every third byte of header and tables, so that each byte of a number has its turn. A folder of its own for
// each lookup, because gettext reads no file twice.
TEST(CatalogueFile, NoDamagedNumberBringsALookupDown)
{
    Bytes const file = German();
    std::vector<std::string> const keys = language::Keys();
    language::Spoken const german("de");
    std::size_t const tablesEnd = NumberAt(file, kHashTable) + 4 * NumberAt(file, kHashSize);
    std::size_t refused = 0;
    CapturedLog log;
    for (std::size_t byte = 0; byte < tablesEnd; byte += 3)
    {
        language::Folder const folder;
        Bytes damaged = file;
        damaged[byte] ^= static_cast<std::byte>(1 + byte * 37 % 255);
        refused += IsSoundCatalogue(damaged) ? 0 : 1;
        std::ofstream(folder.Catalogue("de"), std::ios::binary)
            .write(reinterpret_cast<char const*>(damaged.data()),
                   static_cast<std::streamsize>(damaged.size()));
        language::Select(folder.path());
        std::ranges::for_each(keys, [](auto const& key) { platform::Bundle::localizedString(key.c_str()); });
    }
    EXPECT_EQ(log.lines().size(), refused);
    EXPECT_GT(refused, tablesEnd / 6) << "most of the damage is found";
}

} // namespace
