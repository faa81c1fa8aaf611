// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/window/InterfaceFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace
{

using platform::InterfaceFile;
using platform::ParseKeyEquivalent;
using testing::HasSubstr;

constexpr char const* kWindow = "[window]\ntitle = \"T\"\nwidth = 10\nheight = 20\nview = \"V\"\n";

class InterfaceFileTest : public testing::Test
{
protected:
    void TearDown() override { std::filesystem::remove(m_path); }

    std::optional<InterfaceFile> load(std::string const& text)
    {
        std::ofstream(m_path) << text;
        return InterfaceFile::load(m_path);
    }

    void expectRefusal(std::string const& text, std::string const& word)
    {
        testing::internal::CaptureStderr();
        EXPECT_FALSE(load(text));
        std::string const told = testing::internal::GetCapturedStderr();
        EXPECT_THAT(told, HasSubstr(m_path.filename().string()));
        EXPECT_THAT(told, HasSubstr(word));
        EXPECT_EQ(std::count(told.begin(), told.end(), '\n'), 1) << told;
    }

    std::filesystem::path m_path = std::filesystem::path(testing::TempDir()) / "interface-test.toml";
};

TEST_F(InterfaceFileTest, WindowAndCommandsAreRead)
{
    auto const interface =
        load(std::string(kWindow) + "[[command]]\naction = \"terminate\"\nkeys = [\"Ctrl+Q\"]\n");
    ASSERT_TRUE(interface);
    EXPECT_EQ(interface->windowTitle, "T");
    EXPECT_EQ(interface->contentSize.width, 10.0F);
    EXPECT_EQ(interface->contentSize.height, 20.0F);
    EXPECT_EQ(interface->viewClass, "V");
    ASSERT_EQ(interface->commands.size(), 1U);
    EXPECT_EQ(interface->commands[0].action, "terminate");
    ASSERT_EQ(interface->commands[0].keys.size(), 1U);
    EXPECT_TRUE(interface->commands[0].keys[0].control);
    EXPECT_EQ(interface->commands[0].keys[0].key, "Q");
}

TEST_F(InterfaceFileTest, TheGamesOwnNamesFullScreenAndQuit)
{
    auto const interface = InterfaceFile::load(QUARROW_RESOURCE_DIR "/Interface/Main.toml");
    ASSERT_TRUE(interface);
    EXPECT_EQ(interface->windowTitle, "Quarrow");
    EXPECT_EQ(interface->viewClass, "kGLView");
    ASSERT_EQ(interface->commands.size(), 2U);
    EXPECT_EQ(interface->commands[0].action, "toggleFullScreen");
    EXPECT_EQ(interface->commands[0].keys.size(), 2U);
}

TEST_F(InterfaceFileTest, WhatCannotBeUsedIsToldInOneLine)
{
    expectRefusal("[window\n", "");
    expectRefusal("", "window");
    expectRefusal("[window]\ntitle = 3\n", "title");
    expectRefusal("[window]\ntitle = \"T\"\nwidth = 0\nheight = 1\nview = \"V\"\n", "width");
    expectRefusal(std::string(kWindow) + "[[command]]\naction = \"dance\"\nkeys = []\n", "dance");
    expectRefusal(std::string(kWindow) + "[[command]]\naction = \"terminate\"\nkeys = [\"Ctrl+\"]\n",
                  "Ctrl+");
    expectRefusal(std::string(kWindow) + "[[command]]\naction = \"terminate\"\n", "keys");
}

TEST_F(InterfaceFileTest, MissingFileIsRefused)
{
    EXPECT_FALSE(InterfaceFile::load("/nowhere/Main.toml"));
}

TEST_F(InterfaceFileTest, HugeFileIsRefusedUnread)
{
    std::ofstream(m_path) << kWindow;
    std::filesystem::resize_file(m_path, std::uintmax_t{2} << 30U); // sparse
    testing::internal::CaptureStderr();
    EXPECT_FALSE(InterfaceFile::load(m_path));
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("cannot be read"));
}

TEST(KeyEquivalentTest, ModifiersComeInAnyOrder)
{
    auto const key = ParseKeyEquivalent("Shift+Ctrl+Alt+F11");
    ASSERT_TRUE(key);
    EXPECT_TRUE(key->control && key->alt && key->shift);
    EXPECT_EQ(key->key, "F11");
}

TEST(KeyEquivalentTest, NoKeyIsNoEquivalent)
{
    for (char const* text : {"", "Ctrl+", "Ctrl++", "F 1", "+Q", "Ctrl+Nothing"})
    {
        EXPECT_FALSE(ParseKeyEquivalent(text)) << text;
    }
}

} // namespace
