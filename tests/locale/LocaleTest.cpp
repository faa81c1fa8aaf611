// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// Which language the game speaks, for what the environment asks. No locale but C and C.UTF-8 need be
// generated.
#include "platform/base/Locale.h"

#include "Language.h"
#include "platform/base/Bundle.h"
#include "support/CapturedLog.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <filesystem>

using language::Environment;
using platform::Bundle::localizedString;

namespace
{

namespace fs = std::filesystem;

class Locale : public testing::Test
{
protected:
    ~Locale() override
    {
        Environment const english(language::Values{{"LANG", "C"}});
        language::Select(language::Catalogues());
    }

    // What the main menu's last item says to such a user.
    static std::string QuitFor(language::Values const& values,
                               fs::path const& folder = language::Catalogues())
    {
        Environment const environment(values);
        language::Select(folder);
        return localizedString("Quit");
    }
};

TEST_F(Locale, LangNamesTheLanguage)
{
    EXPECT_EQ(QuitFor({{"LANG", "de_DE.UTF-8"}}), "Beenden");
    EXPECT_EQ(QuitFor({{"LANG", "pl_PL.UTF-8"}}), "Wyjdź");
}

TEST_F(Locale, MessagesGoBeforeLangAndAllBeforeBoth)
{
    EXPECT_EQ(QuitFor({{"LANG", "de_DE.UTF-8"}, {"LC_MESSAGES", "fr_FR.UTF-8"}}), "Quitter");
    EXPECT_EQ(QuitFor({{"LANG", "de_DE.UTF-8"}, {"LC_MESSAGES", "fr_FR.UTF-8"}, {"LC_ALL", "it_IT.UTF-8"}}),
              "Esci");
}

TEST_F(Locale, EmptyVariablesCountAsUnset)
{
    EXPECT_EQ(QuitFor({{"LANG", "de_DE.UTF-8"}, {"LC_MESSAGES", ""}, {"LC_ALL", ""}, {"LANGUAGE", ""}}),
              "Beenden");
}

TEST_F(Locale, LanguageGoesBeforeTheLocale)
{
    EXPECT_EQ(QuitFor({{"LC_ALL", "C.UTF-8"}, {"LANGUAGE", "fr"}}), "Quitter");
    EXPECT_EQ(QuitFor({{"LANG", "de_DE.UTF-8"}, {"LANGUAGE", "fr_CA:es"}}), "Quitter");
}

TEST_F(Locale, LanguageListGivesTheFirstOneThatThereIs)
{
    EXPECT_EQ(QuitFor({{"LANG", "fi_FI.UTF-8"}, {"LANGUAGE", "fi:sv:nl:de"}}), "Afsluiten");
}

TEST_F(Locale, EnglishInTheListEndsTheSearch)
{
    EXPECT_EQ(QuitFor({{"LANG", "en_GB.UTF-8"}, {"LANGUAGE", "en_GB:en:de"}}), "Quit");
}

TEST_F(Locale, PlainCMeansEnglishWhateverTheList)
{
    EXPECT_EQ(QuitFor({{"LC_ALL", "C"}, {"LANGUAGE", "de"}}), "Quit");
    EXPECT_EQ(QuitFor({{"LANG", "POSIX"}, {"LANGUAGE", "de"}}), "Quit");
    EXPECT_EQ(QuitFor({{"LANGUAGE", "de"}}), "Quit");
}

TEST_F(Locale, TerritoryWithoutCatalogueTakesTheLanguages)
{
    EXPECT_EQ(QuitFor({{"LANG", "de_AT.ISO-8859-15@euro"}}), "Beenden");
}

TEST_F(Locale, CatalogueOfOneTerritoryIsNotTakenForAnother)
{
    EXPECT_EQ(QuitFor({{"LANG", "pt_BR.UTF-8"}}), "Sair");
    EXPECT_EQ(QuitFor({{"LANG", "zh_TW.UTF-8"}}), "Quit");
}

TEST_F(Locale, TextsAreUtf8WhateverTheLocalesCodeset)
{
    EXPECT_EQ(QuitFor({{"LANG", "zh_CN.GB18030"}}), "退出");
    EXPECT_EQ(QuitFor({{"LANG", "ru_RU.KOI8-R"}}), "Выход");
}

TEST_F(Locale, UnknownAndSenselessNamesMeanEnglish)
{
    for (char const* const name :
         {"xx_YY.UTF-8", "..", "../de", "/de", "de/..", "_", ".", "@", ":::", "\xFF\xFE", "%s%n"})
    {
        EXPECT_EQ(QuitFor({{"LANG", name}}), "Quit") << name;
        EXPECT_EQ(QuitFor({{"LANG", "C.UTF-8"}, {"LANGUAGE", name}}), "Quit") << name;
    }
    EXPECT_EQ(QuitFor({{"LANG", std::string(100000, 'd')}}), "Quit");
}

TEST_F(Locale, AnotherLanguageCanFollow)
{
    EXPECT_EQ(QuitFor({{"LANG", "de_DE.UTF-8"}}), "Beenden");
    EXPECT_EQ(QuitFor({{"LANG", "fr_FR.UTF-8"}}), "Quitter");
    EXPECT_EQ(QuitFor({{"LANG", "en_US.UTF-8"}}), "Quit");
}

TEST_F(Locale, NumbersKeepTheirCForm)
{
    EXPECT_EQ(QuitFor({{"LC_ALL", "de_DE.UTF-8"}}), "Beenden");
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
    char text[16];
    std::snprintf(text, sizeof text, "%.1f", 2.5);
    EXPECT_STREQ(text, "2.5");
}

TEST_F(Locale, FolderWithoutCataloguesMeansEnglish)
{
    EXPECT_EQ(QuitFor({{"LANG", "de_DE.UTF-8"}}, "/nonexistent"), "Quit");
}

TEST_F(Locale, DamagedCatalogueMeansEnglishAndOneLogLine)
{
    language::Folder const folder;
    fs::path const file = folder.Catalogue("de");
    fs::copy_file(language::Catalogues() / "de" / "LC_MESSAGES" / "quarrow.mo", file);
    fs::resize_file(file, fs::file_size(file) / 2);

    CapturedLog log;
    std::string const quit = QuitFor({{"LANG", "de_DE.UTF-8"}}, folder.path());
    EXPECT_EQ(log.lines(),
              std::vector{"The catalogue " + file.string() + " is damaged: the texts are in English"});
    EXPECT_EQ(quit, "Quit");
}

TEST_F(Locale, EmptyTextIsNeverTheCataloguesHeader)
{
    Environment const environment(language::Values{{"LANG", "de_DE.UTF-8"}});
    language::Select(language::Catalogues());
    EXPECT_EQ(localizedString(""), "");
}

} // namespace
