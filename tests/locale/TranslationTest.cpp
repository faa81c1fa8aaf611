// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Every text in every language, as the game looks it up: whole, with its conversions and with its blanks at
// the ends.
#include "Language.h"
#include "platform/base/Bundle.h"
#include "platform/text/Text.h"
#include "platform/text/TextLayout.h"
#include "ui/MenuText.h"

#include <gtest/gtest.h>

#include <set>

using platform::Bundle::localizedString;

namespace
{

std::string BlanksBefore(std::string const& text)
{
    return text.substr(0, std::min(text.find_first_not_of(' '), text.size()));
}

std::string BlanksAfter(std::string const& text)
{
    return text.substr(text.find_last_not_of(' ') + 1);
}

class Translation : public testing::TestWithParam<std::string>
{
protected:
    language::Spoken const m_spoken{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Language, Translation, testing::ValuesIn(language::Shipped()),
                         [](auto const& parameter) { return parameter.param; });

TEST(Translations, TwelveLanguagesAreShipped)
{
    auto const shipped = language::Shipped();
    EXPECT_EQ(std::set(shipped.begin(), shipped.end()),
              (std::set<std::string>{"de", "es", "fr", "it", "ja", "nl", "pl", "pt_BR", "ru", "tr", "uk",
                                     "zh_CN"}));
    EXPECT_GE(language::Keys().size(), 60U);
}

TEST_P(Translation, SpeaksTheLanguage)
{
    EXPECT_NE(localizedString("Quit"), "Quit");
    EXPECT_NE(localizedString("Start Race"), "Start Race");
}

TEST_P(Translation, KeepsConversions)
{
    for (std::string const& key : language::Keys())
    {
        EXPECT_TRUE(HaveSameConversions(key, localizedString(key.c_str()))) << key;
    }
}

TEST_P(Translation, KeepsBlanksAtTheEnds)
{
    for (std::string const& key : language::Keys())
    {
        std::string const text = localizedString(key.c_str());
        EXPECT_EQ(BlanksBefore(text), BlanksBefore(key)) << text;
        EXPECT_EQ(BlanksAfter(text), BlanksAfter(key)) << text;
    }
}

TEST_P(Translation, KeepsNamesAndAddresses)
{
    EXPECT_EQ(localizedString("Quarrow"), "Quarrow");
    for (std::string const& key : language::Keys())
    {
        for (char const* const name :
             {"Quarrow", "www.quarrow.example", "music@quarrow.example", "contest.example", "'Sable'",
              "'Electro0032'", "'SerialK'", "'Aai_Tookai'", "MIT", "LGPL"})
        {
            EXPECT_TRUE(key.find(name) == std::string::npos ||
                        localizedString(key.c_str()).find(name) != std::string::npos)
                << name << ": " << localizedString(key.c_str());
        }
    }
}

TEST_P(Translation, EveryCharacterHasAGlyph)
{
    platform::TextAttributes const font{"Helvetica", 20.0F};
    for (std::string const& key : language::Keys())
    {
        std::string const text = localizedString(key.c_str());
        EXPECT_EQ(pango_layout_get_unknown_glyphs_count(platform::LayOutLine(text, font)), 0) << text;
    }
}

TEST(Translations, ACharacterOfNoFontCounts)
{
    platform::TextAttributes const font{"Helvetica", 20.0F};
    EXPECT_EQ(pango_layout_get_unknown_glyphs_count(platform::LayOutLine("\U00012000", font)), 1);
}

} // namespace
