// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/base/Unicode.h"

#include <gtest/gtest.h>

namespace
{

using platform::Utf16FromUtf8;
using platform::Utf8FromUtf16;

TEST(UnicodeTest, EveryLengthGoesThereAndBack)
{
    std::string const text = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x9A\x80"; // a, e acute, euro, rocket
    std::u16string const units = u"a\u00E9\u20AC\U0001F680";
    EXPECT_EQ(Utf16FromUtf8(text), units);
    EXPECT_EQ(Utf8FromUtf16(units), text);
}

TEST(UnicodeTest, FunctionKeysHaveThreeBytes)
{
    EXPECT_EQ(Utf8FromUtf16(u"\uF700"), "\xEF\x9C\x80");
}

TEST(UnicodeTest, IllFormedBytesAreReplacedOneByOne)
{
    EXPECT_EQ(Utf16FromUtf8("\x80x"), u"\uFFFDx");
    EXPECT_EQ(Utf16FromUtf8("\xE2\x82"), u"\uFFFD\uFFFD");           // cut off
    EXPECT_EQ(Utf16FromUtf8("\xC0\x80"), u"\uFFFD\uFFFD");           // longer than needed
    EXPECT_EQ(Utf16FromUtf8("\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD"); // a surrogate
}

TEST(UnicodeTest, LoneSurrogatesAreReplaced)
{
    EXPECT_EQ(Utf8FromUtf16(std::u16string(1, char16_t{0xD800})), "\xEF\xBF\xBD");
    EXPECT_EQ(Utf8FromUtf16(std::u16string(1, char16_t{0xDC00})), "\xEF\xBF\xBD");
}

} // namespace
