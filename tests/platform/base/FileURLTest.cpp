// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/base/FileURL.h"

#include "platform/sound/Pasteboard.h"

#include <gtest/gtest.h>

using platform::FileURLWithPath;
using platform::PathOfFileURL;

TEST(FileURLTest, EncodesWhatAUrlCannotHold)
{
    EXPECT_EQ(FileURLWithPath("/a b/100%#\xC3\xA9.mp3"), "file:///a%20b/100%25%23%C3%A9.mp3");
    EXPECT_EQ(FileURLWithPath(""), std::nullopt);
}

TEST(FileURLTest, GivesThePathBack)
{
    EXPECT_EQ(PathOfFileURL("file:///a%20b/100%25%23%c3%A9.mp3"), "/a b/100%#\xC3\xA9.mp3");
    EXPECT_EQ(PathOfFileURL("file://localhost/a"), "/a");
}

TEST(FileURLTest, RefusesWhatIsNoFileOfThisMachine)
{
    for (char const* const url : {"", "/a", "http://host.example/a", "file://host.example/a", "file:///a%2",
                                  "file:///a%zz", "file:///a%00b", "file://"})
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
