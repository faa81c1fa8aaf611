// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/window/InterfaceFile.h"

#include "support/CapturedLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace
{

using platform::InterfaceFile;
using platform::KeyEquivalent;
using testing::ElementsAre;
using testing::HasSubstr;

class InterfaceFileTest : public testing::Test
{
protected:
    void TearDown() override { std::filesystem::remove(m_path); }

    std::optional<InterfaceFile> load(std::string const& text)
    {
        std::ofstream(m_path) << text;
        return InterfaceFile::load(m_path);
    }

    std::filesystem::path m_path = std::filesystem::path(testing::TempDir()) / "interface-test.ini";
};

TEST_F(InterfaceFileTest, WindowAndCommandsAreRead)
{
    auto const interface = load("[Window]\ntitle=T\nwidth=10\nheight=20\n"
                                "[Commands]\ntoggleFullScreen=F11;Alt+Return\nterminate=Ctrl+Q\n");
    ASSERT_TRUE(interface);
    EXPECT_EQ(interface->windowTitle, "T");
    EXPECT_EQ(interface->contentSize.width, 10.0F);
    EXPECT_EQ(interface->contentSize.height, 20.0F);
    ASSERT_EQ(interface->commands.size(), 2U);
    EXPECT_EQ(interface->commands[0].action, "toggleFullScreen");
    ASSERT_EQ(interface->commands[0].keys.size(), 2U);
    EXPECT_TRUE(interface->commands[0].keys[1].alt);
    EXPECT_EQ(interface->commands[0].keys[1].key, "Return");
    EXPECT_EQ(interface->commands[1].action, "terminate");
}

TEST_F(InterfaceFileTest, TheGamesOwnNamesFullScreenAndQuit)
{
    auto const interface = InterfaceFile::load(QUARROW_RESOURCE_DIR "/Interface/Main.ini");
    ASSERT_TRUE(interface);
    EXPECT_EQ(interface->windowTitle, "Quarrow");
    ASSERT_EQ(interface->commands.size(), 2U);
    EXPECT_EQ(interface->commands[0].action, "toggleFullScreen");
    EXPECT_EQ(interface->commands[0].keys.size(), 2U);
}

TEST_F(InterfaceFileTest, FileThatIsMissingOrNoKeyFileIsToldInOneLine)
{
    for (char const* const text : {static_cast<char const*>(nullptr), "[Window\n", "title=T\n"})
    {
        CapturedLog log;
        EXPECT_FALSE(text != nullptr ? load(text) : InterfaceFile::load(m_path));
        EXPECT_THAT(log.allLines(), ElementsAre(HasSubstr(m_path.filename().string())));
    }
}

TEST_F(InterfaceFileTest, ModifiersOfAKeyComeInAnyOrder)
{
    auto const interface = load("[Commands]\ntoggleFullScreen=Shift+Ctrl+Alt+F11;F11\n");
    ASSERT_TRUE(interface);
    std::vector<KeyEquivalent> const& keys = interface->commands.at(0).keys;
    ASSERT_EQ(keys.size(), 2U);
    EXPECT_TRUE(keys[0].control && keys[0].alt && keys[0].shift);
    EXPECT_EQ(keys[0].key, "F11");
    EXPECT_FALSE(keys[1].control || keys[1].alt || keys[1].shift);
    EXPECT_EQ(keys[1].key, "F11");
}

} // namespace
