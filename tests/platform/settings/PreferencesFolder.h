// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A folder of its own for each test, with a settings file that tests write and read by hand.
#pragma once

#include "platform/settings/Preferences.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

class PreferencesFolder : public testing::Test
{
protected:
    void SetUp() override
    {
        auto const* const test = testing::UnitTest::GetInstance()->current_test_info();
        m_folder = std::filesystem::path(testing::TempDir()) / (std::string("preferences-") + test->name());
        std::filesystem::remove_all(m_folder);
        std::filesystem::create_directories(m_folder);
    }

    void TearDown() override { std::filesystem::remove_all(m_folder); }

    std::filesystem::path file() const { return m_folder / "settings.ini"; }
    void write(std::string const& text) const { std::ofstream(file(), std::ios::binary) << text; }
    void writeSettings(std::string const& lines) const { write("[Settings]\n" + lines); }

    std::string text() const
    {
        std::ostringstream all;
        all << std::ifstream(file(), std::ios::binary).rdbuf();
        return all.str();
    }

    // A run of the game that sets these.
    void store(platform::Preferences::Defaults const& values) const
    {
        platform::Preferences preferences(file());
        for (auto const& [key, value] : values)
        {
            preferences.setValue(key, value);
        }
    }

    std::vector<std::string> others() const // names beside settings.ini
    {
        std::vector<std::string> names;
        for (auto const& entry : std::filesystem::directory_iterator(m_folder))
        {
            if (entry.path() != file())
            {
                names.push_back(entry.path().filename().string());
            }
        }
        return names;
    }

    static platform::Preferences::Defaults defaults()
    {
        return {{"Number", 7}, {"Real", 0.1F}, {"Text", "word"}, {"List", std::vector<int>{1, 2}}};
    }

    std::filesystem::path m_folder;
};
