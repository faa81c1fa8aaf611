// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Which language the game speaks, for what the environment asks.
#include "Language.h"
#include "platform/base/Bundle.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>

using platform::Bundle::localizedString;

namespace
{

// What the main menu's last item says to such a user.
std::string QuitFor(language::Values const& values)
{
    language::Spoken const spoken(values);
    return localizedString("Quit");
}

TEST(Locale, LangNamesTheLanguage)
{
    EXPECT_EQ(QuitFor({{"LANG", "de_DE.UTF-8"}}), "Beenden");
    EXPECT_EQ(QuitFor({{"LANG", "pl_PL.UTF-8"}}), "Wyjdź");
    EXPECT_EQ(QuitFor({{"LANG", "C.UTF-8"}}), "Quit");
    EXPECT_EQ(QuitFor({}), "Quit");
}

TEST(Locale, MessagesGoBeforeLangAndAllBeforeBoth)
{
    EXPECT_EQ(QuitFor({{"LANG", "de_DE.UTF-8"}, {"LC_MESSAGES", "fr_FR.UTF-8"}}), "Quitter");
    EXPECT_EQ(QuitFor({{"LANG", "de_DE.UTF-8"}, {"LC_MESSAGES", "fr_FR.UTF-8"}, {"LC_ALL", "it_IT.UTF-8"}}),
              "Esci");
}

TEST(Locale, FirstLanguageOfTheListThatThereIsGoesBeforeTheLocale)
{
    EXPECT_EQ(QuitFor({{"LANG", "de_DE.UTF-8"}, {"LANGUAGE", "fi:sv:nl:es"}}), "Afsluiten");
}

TEST(Locale, TextsAreUtf8WhateverTheLocalesCodeset)
{
    EXPECT_EQ(QuitFor({{"LANG", "ru_RU.KOI8-R"}}), "Выход");
}

TEST(Locale, LocaleThatTheSystemLacksMeansEnglish)
{
    EXPECT_EQ(QuitFor({{"LANG", "fr_CA.UTF-8"}}), "Quit");
    EXPECT_EQ(QuitFor({{"LANG", "../de"}}), "Quit");
}

TEST(Locale, NumbersKeepTheirCForm)
{
    language::Spoken const german(language::Values{{"LC_ALL", "de_DE.UTF-8"}});
    EXPECT_EQ(localizedString("Quit"), "Beenden");
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
    char text[16];
    std::snprintf(text, sizeof text, "%.1f", 2.5);
    EXPECT_STREQ(text, "2.5");
}

TEST(Locale, EmptyTextIsNeverTheCataloguesHeader)
{
    language::Spoken const german("de");
    EXPECT_EQ(localizedString(""), "");
}

} // namespace
