// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "system/settings_file.h"

#include <gtest/gtest.h>

#include <QSettings>
#include <QString>
#include <QTemporaryDir>
#include <fstream>

#include "base/errors.h"

namespace quillet {
namespace {

TEST(SettingsFile, ChangesNothingButWhatItWasToldTo) {
  const std::tuple<const char*, const char*, const char*> rows[] = {
      {"no file", "", "[General]\nk=\"2\"\n"},
      {"key is there", "[General]\nk=1\nx=1\n", "[General]\nx=1\nk=\"2\"\n"},
      {"key twice, section twice", "[General]\n k = 1\n[O]\nk=5\n\n[General]\nk=4\n; why\n",
       "[General]\n[O]\nk=5\n\n[General]\n; why\nk=\"2\"\n"},
      {"other sections", "[A]\na=1\n\n[General]\nx=1\n\n[B]\nk=7",
       "[A]\na=1\n\n[General]\nx=1\nk=\"2\"\n\n[B]\nk=7\n"},
  };
  for (const auto& [situation, before, after] : rows) {
    EXPECT_EQ(withSettings(before, {{"k", "2"}}), after) << situation;
  }
}

TEST(SettingsFile, WritesEveryTextSoThatItAndTheApplicationReadItBack) {
  const QTemporaryDir folder;
  const std::string path = folder.filePath(QStringLiteral("new/quillet.conf")).toStdString();
  const WritableSettings::Values values{{"plain", "2026-11-20T03:00:00Z"},
                                        {"dotted.us", "us,gb"},
                                        {"quotes", R"(a "b" \c \x41 ; # =)"},
                                        {"controls",
                                         "line\nfeed\t\001"
                                         "7\0018\177"},
                                        {"at", "@home"},
                                        {"blanks", "  x  "},
                                        {"empty", ""},
                                        {"more", "Straße 東京 🇩🇪"}};
  IniSettingsFile file{path};
  const IniSettingsFile later{path};
  file.write({{"plain", "older"}, {"kept", "1"}});
  EXPECT_EQ(later.text("plain"), "older");
  file.write(values);
  QSettings application(QString::fromStdString(path), QSettings::IniFormat);
  for (const auto& [key, value] : values) {
    EXPECT_EQ(later.text(key), value);
    EXPECT_EQ(application.value(QString::fromStdString(key)).toString().toStdString(), value);
  }
  EXPECT_EQ(later.text("kept"), "1");
}

TEST(SettingsFile, SaysWhereNothingCanBeWrittenOrWouldBeLost) {
  const QTemporaryDir folder;
  EXPECT_THROW(IniSettingsFile{"/dev/null/quillet.conf"}.write({{"k", "1"}}), BadSetting);

  const std::filesystem::path tooLarge = folder.path().toStdString() + "/quillet.conf";
  constexpr std::size_t kMebibyte = std::size_t{1} << 20;
  std::ofstream(tooLarge) << std::string(kMebibyte + 1, '#');
  EXPECT_THROW(IniSettingsFile{tooLarge}.write({{"k", "1"}}), BadSetting);
  EXPECT_EQ(std::filesystem::file_size(tooLarge), kMebibyte + 1);
}

}  // namespace
}  // namespace quillet
