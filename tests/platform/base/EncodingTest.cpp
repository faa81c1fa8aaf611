// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/base/Encoding.h"

#include "platform/sound/Pasteboard.h"

#include <gtest/gtest.h>

using platform::FileURLWithPath;
using platform::PathOfFileURL;
using platform::Utf16FromUtf8;
using platform::Utf8FromUtf16;

TEST(EncodingTest, EveryLengthGoesThereAndBack)
{
    std::string const text = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x9A\x80"; // a, e acute, euro, rocket
    std::u16string const units = u"a\u00E9\u20AC\U0001F680";
    EXPECT_EQ(Utf16FromUtf8(text), units);
    EXPECT_EQ(Utf8FromUtf16(units), text);
}

TEST(EncodingTest, IllFormedBytesAreReplacedOneByOne)
{
    EXPECT_EQ(Utf16FromUtf8("\x80x"), u"\uFFFDx");
    EXPECT_EQ(Utf16FromUtf8("\xE2\x82"), u"\uFFFD\uFFFD"); // cut off
}

TEST(EncodingTest, LoneSurrogateIsReplaced)
{
    EXPECT_EQ(Utf8FromUtf16(std::u16string(1, char16_t{0xD800})), "\xEF\xBF\xBD");
}

TEST(EncodingTest, PathsGoIntoURLsAndBack)
{
    std::filesystem::path const path = "/a b/100%#\xC3\xA9.mp3";
    EXPECT_EQ(FileURLWithPath(path), "file:///a%20b/100%25%23%C3%A9.mp3");
    EXPECT_EQ(PathOfFileURL("file:///a%20b/100%25%23%C3%A9.mp3"), path);
    EXPECT_EQ(FileURLWithPath(""), std::nullopt);
    EXPECT_EQ(FileURLWithPath("a"), FileURLWithPath(std::filesystem::current_path() / "a"));
}

TEST(EncodingTest, WhatIsNoFileURLHasNoPath)
{
    for (char const* const url : {"", "/a", "http://host.example/a", "file:///a%2", "file:///a%00b"})
    {
        EXPECT_EQ(PathOfFileURL(url), std::nullopt) << url;
    }
}

TEST(PasteboardTest, NamesTheFileOfItsFirstLine)
{
    EXPECT_EQ(platform::Pasteboard{"file:///a%20b\r\nfile:///c\r\n"}.file(), "/a b");
    EXPECT_EQ(platform::Pasteboard{"/a b\n/c"}.file(), "/a b");
    EXPECT_EQ(platform::Pasteboard{"some words"}.file(), std::nullopt);
    EXPECT_EQ(platform::Pasteboard{""}.file(), std::nullopt);
}
