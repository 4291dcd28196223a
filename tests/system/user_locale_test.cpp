// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "system/user_locale.h"

#include <gtest/gtest.h>

#include "support/map_environment.h"
#include "support/memory_settings.h"
#include "system/settings_keys.h"

namespace quillet {
namespace {

using Variables = MapEnvironment::Variables;

TEST(UserLocale, VariablesCountInTheirOrder) {
  const std::tuple<const char*, Variables, UserLocale> cases[] = {
      {"LANG for all", {{"LANG", "de_DE.UTF-8"}}, {"de_DE", "de_DE", "de_DE", "de_DE"}},
      {"a category before LANG",
       {{"LANG", "en_GB.UTF-8"}, {"LC_MONETARY", "ja_JP.UTF-8"}, {"LC_TIME", "C"}},
       {"ja_JP", "en_GB", "en_GB", "en_US"}},
      {"LC_ALL before all, LANGUAGE and LC_MESSAGES for nothing",
       {{"LC_ALL", "fr_CA"}, {"LC_NUMERIC", "de_DE"}, {"LC_MESSAGES", "es_ES"}, {"LANGUAGE", "nl"}},
       {"fr_CA", "fr_CA", "fr_CA", "fr_CA"}},
      {"an empty one is unset",
       {{"LC_ALL", ""}, {"LC_COLLATE", "sv_SE"}, {"LANG", "es"}},
       {"es", "es", "sv_SE", "es"}},
  };
  for (const auto& [situation, variables, expected] : cases) {
    EXPECT_EQ(findUserLocale(MapEnvironment(variables)), expected) << situation;
  }
}

TEST(UserLocale, NamesEncodingAndDefaultStorefront) {
  const std::tuple<const char*, const char*, const char*, bool> cases[] = {
      {"POSIX", "en_US", "us", false},
      {"C.UTF-8", "en_US", "us", true},
      {"en_GB.utf8", "en_GB", "gb", true},
      {"de_AT@euro", "de_AT", "at", false},
      {"sr_RS.UTF-8@latin", "sr_Latn_RS", "rs", true},
      {"es_419", "es_419", "us", false},
      {"xx_", "xx", "us", false},
      {"../../etc_PW", "en_US", "us", false},
      {"en_U\xC3", "en", "us", false},
  };
  for (const auto& [name, locale, storefront, isUtf8] : cases) {
    const MapEnvironment environment(Variables{{"LANG", name}});
    EXPECT_EQ(findUserLocale(environment).monetary, locale) << name;
    EXPECT_EQ(defaultStorefront(MemorySettings(), environment), storefront) << name;
    EXPECT_EQ(usesUtf8(environment), isUtf8) << name;
  }
}

TEST(DefaultStorefront, SettingBeforeMonetaryLocale) {
  const std::tuple<const char*, Variables, const char*> cases[] = {
      {"GB", {{"LC_ALL", "de_DE"}}, "gb"},
      {"gbr", {{"LC_ALL", "de_DE"}}, "de"},
      {"", {{"LC_MONETARY", "fr_FR"}, {"LANG", "de_DE"}}, "fr"},
      {"g1", {{"LC_ALL", "C"}, {"LANG", "de_DE"}}, "us"},
  };
  for (const auto& [setting, variables, expected] : cases) {
    const MemorySettings settings({{"storefrontCountry", setting}});
    EXPECT_EQ(defaultStorefront(settings, MapEnvironment(variables)), expected) << setting;
  }
}

TEST(DefaultStorefront, KnowsASettingThatIsNoCountry) {
  const std::pair<const char*, bool> cases[] = {
      {"us", false}, {"XK", false}, {"zw", false}, {"", false}, {"uk", true},
      {"usa", true}, {"s ", true},  {"g1", true},  {"z", true},
  };
  EXPECT_EQ(unknownStorefront(MemorySettings()), std::nullopt);
  for (const auto& [setting, isUnknown] : cases) {
    const MemorySettings settings({{"storefrontCountry", setting}});
    EXPECT_EQ(unknownStorefront(settings),
              isUnknown ? std::optional<std::string>(setting) : std::nullopt)
        << setting;
  }
}

}  // namespace
}  // namespace quillet
