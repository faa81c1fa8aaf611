// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/base/Bundle.h"

#include <gtest/gtest.h>

namespace
{

namespace Bundle = platform::Bundle;

TEST(BundleTest, ResourcesAreFoundBesideTheProgram)
{
    auto const path = Bundle::pathForResource("roid-128.jpg", "Images");
    ASSERT_TRUE(path);
    EXPECT_TRUE(std::filesystem::is_regular_file(*path));
}

TEST(BundleTest, MissingResourceIsNothing)
{
    EXPECT_FALSE(Bundle::pathForResource("roid-129.jpg", "Images"));
    EXPECT_FALSE(Bundle::pathForResource("roid-128.jpg", "Nowhere"));
}

TEST(BundleTest, FolderIsNoResource)
{
    EXPECT_FALSE(Bundle::pathForResource("Images", "."));
}

TEST(BundleTest, TextWithoutATranslationIsTheEnglishOne)
{
    EXPECT_EQ(Bundle::localizedString("No catalogue has this"), "No catalogue has this");
    EXPECT_EQ(Bundle::localizedString(""), "");
}

} // namespace
