// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Settings of their own for the processes that a test starts with EXPECT_EXIT: they begin without any, and
// share what they store. For death tests of the style "threadsafe", which is set here.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace test
{

// A process that a test starts finds the variable set, and shares the folder of the one that started it.
class OwnHome
{
public:
    OwnHome()
    {
        GTEST_FLAG_SET(death_test_style, "threadsafe");
        if (std::getenv(kMark) != nullptr)
        {
            return;
        }
        std::string name = (std::filesystem::temp_directory_path() / "quarrow-home-XXXXXX").string();
        m_folder = mkdtemp(name.data());
        char const* const config = std::getenv(kVariable);
        m_before = config != nullptr ? config : "";
        setenv(kVariable, m_folder.c_str(), 1);
        setenv(kMark, "1", 1);
    }
    ~OwnHome()
    {
        if (!m_folder.empty())
        {
            setenv(kVariable, m_before.c_str(), 1);
            unsetenv(kMark);
            std::filesystem::remove_all(m_folder);
        }
    }
    OwnHome(OwnHome const&) = delete;
    OwnHome& operator=(OwnHome const&) = delete;

private:
    static constexpr char const* kVariable = "XDG_CONFIG_HOME";
    static constexpr char const* kMark = "QUARROW_TEST_RUNS";

    std::filesystem::path m_folder; // empty in a process that a test started
    std::string m_before;
};

} // namespace test
