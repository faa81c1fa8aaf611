// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/settings/TomlText.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

using platform::TomlText;

TEST(TomlTextTest, PlainValuesComeBeforeTheSections)
{
    toml::table const document = toml::parse("[section]\n"
                                             "day = 2001-02-03\n"
                                             "[[rows]]\n"
                                             "[rows.below]\n"
                                             "on = true\n"
                                             "[[rows]]\n"
                                             "[a.b.c]\n"
                                             "[z]\n"
                                             "list = [[], {}, [1, 'x'], {p.q = 0x1F, p.r.s = 0.1}]\n"
                                             "real = 100.0\n");
    EXPECT_EQ(TomlText(document), "\n[a.b.c]\n"
                                  "\n[[rows]]\n"
                                  "\n[rows.below]\n"
                                  "on = true\n"
                                  "\n[[rows]]\n"
                                  "\n[section]\n"
                                  "day = 2001-02-03\n"
                                  "\n[z]\n"
                                  "list = [ [], {}, [ 1, \"x\" ], { p.q = 0x1F, p.r.s = 0.1 } ]\n"
                                  "real = 100.0\n");
    EXPECT_EQ(TomlText(toml::table{{"z", 1}, {"a", toml::table{}}}), "z = 1\n\n[a]\n");
    EXPECT_EQ(TomlText(toml::table{}), "");
}

TEST(TomlTextTest, KeysStandInQuotesUnlessBare)
{
    EXPECT_EQ(TomlText(toml::table{{"Az_09-", 1}}), "Az_09- = 1\n");
    EXPECT_EQ(TomlText(toml::table{{"", 1}}), "\"\" = 1\n");
    EXPECT_EQ(TomlText(toml::table{{"ke'y", 1}}), "\"ke'y\" = 1\n");
    EXPECT_EQ(TomlText(toml::table{{"a.b", 1}}), "\"a.b\" = 1\n");
    EXPECT_EQ(TomlText(toml::table{{"\xD0\x96", 1}}), "\"\xD0\x96\" = 1\n");
    EXPECT_EQ(TomlText(toml::table{{"\"\\\n\t\x01\x7F", 1}}), "\"\\\"\\\\\\n\\t\\u0001\\u007F\" = 1\n");
}

class OddDocument : public testing::TestWithParam<std::string>
{
};

TEST_P(OddDocument, ReadsBackAsItWas)
{
    toml::table const document = toml::parse(GetParam());
    std::string const text = TomlText(document);
    EXPECT_EQ(toml::parse(text), document) << text;
}

std::string Nested(int levels)
{
    std::string text = "k";
    for (int i = 1; i < levels; ++i)
    {
        text += ".k";
    }
    return text;
}

INSTANTIATE_TEST_SUITE_P(
    Texts, OddDocument,
    testing::Values("\"ke'y\" = true", "[\"ke'y\"]\n\"a\\tb\" = 1", "[[\"x'y\"]]\n'q\"' = 1\n[\"x'y\".z]\n",
                    "a = {\"ke'y\" = 1, \"\\u0000\" = {}}", "\"\\u0085\\u2028\\u007F\" = \"\\u0085\\u2028\"",
                    "a = \"\"\"\n\nlines and \\\"\\\"\\\" '''\n\"\"\"",
                    "a = [inf, -inf, -0.0, 1e300, 5e-324, 0.1]",
                    "a = [-9223372036854775808, 0xFF, 0o17, 0b101]",
                    "a = [1979-05-27T07:32:00.999-07:00, 1979-05-27T07:32:00, 07:32:00.5, 0001-01-01]",
                    "a.b.c = 1\na.b.d = [{}]\na.e = {f.g = {h = 1}}", "a = [[{b = [[{c = []}]]}], []]",
                    "[[a]]\nb = 1\n[[a.c]]\n[[a.c]]\nd = 2\n[[a]]\n", "[a]\n[a.b]\n[c.d]\n[c]\ne = 1",
                    "x = {" + Nested(1000) + " = 1}", Nested(1000) + " = 1"),
    [](auto const& text) { return "Text" + std::to_string(text.index); });

} // namespace
