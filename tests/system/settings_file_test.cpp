// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "system/settings_file.h"

#include <gtest/gtest.h>

#include <QSettings>
#include <QString>
#include <fstream>

#include "base/errors.h"
#include "support/temporary_folder.h"

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

TEST(SettingsFile, ForgetsKeysAsIfTheyHadNeverBeenSet) {
  const std::tuple<const char*, const char*, const char*> rows[] = {
      {"key is there", "[General]\nk=1\nx=1\n", "[General]\nx=1\n"},
      {"key twice, section twice", "[General]\nk=1\n; why\n k : 2\n[O]\nk=5\n\n[General]\nk=4",
       "[General]\n; why\n[O]\nk=5\n\n[General]"},
      {"other keys alone", "[General]\r\nkk=1\n\n", "[General]\r\nkk=1\n\n"},
      {"no text", "", ""},
  };
  for (const auto& [situation, before, after] : rows)
    EXPECT_EQ(withoutSettings(before, {"k", "other"}), after) << situation;
  const TemporaryFolder folder;
  const std::filesystem::path path = folder.path() / "new" / "quillet.conf";
  IniSettingsFile file{path};
  file.forget({"k"});
  EXPECT_FALSE(std::filesystem::exists(path.parent_path())) << "there was nothing to forget";
  file.write({{"k", "1"}, {"x", "1"}});
  file.forget({"k"});
  EXPECT_EQ(contentOf(path), "[General]\nx=\"1\"\n");
}

QString qt(const std::string& text) { return QString::fromStdString(text); }

TEST(SettingsFile, HoldsEveryTextAsTheApplicationDoes) {
  const std::string texts[] = {"de",
                               "",
                               "a ; b # c = d, e: f",
                               R"(quote " and back\slash and \x41 and "both")",
                               "line\nfeed\ttab\rreturn\001f\0017\0018\177",
                               "Straße, 東京, 🇩🇪 👩‍👩‍👧 e\u0301",
                               "@home",
                               "@@twice",
                               "  blanks at both ends  ",
                               std::string(5000, 'x') + "end"};
  WritableSettings::Values values;
  for (const std::string& text : texts) values["k." + std::to_string(values.size())] = text;
  const TemporaryFolder folder;
  const std::string ours = folder.path() / "new" / "quillet.conf";
  const std::string its = folder.path() / "application.conf";
  IniSettingsFile file{ours};
  file.write({{"k.0", "older"}, {"kept", "1"}});
  EXPECT_EQ(file.text("k.0"), "older");
  file.write(values);
  EXPECT_EQ(file.text("kept"), "1");
  {
    QSettings application(qt(its), QSettings::IniFormat);
    application.setValue(qt("other/k.0"), 1);
    application.setValue(qt("flag"), true);
    application.setValue(qt("nothing"), QVariant());
    application.setValue(qt("bytes"), QByteArray("a\0b", 3));
    for (const auto& [key, value] : values) application.setValue(qt(key), qt(value));
  }
  const QSettings application(qt(ours), QSettings::IniFormat);
  const IniSettings read{its};
  for (const auto& [key, value] : values) {
    EXPECT_EQ(file.text(key), value);
    EXPECT_EQ(application.value(qt(key)).toString().toStdString(), value);
    EXPECT_EQ(read.text(key), value);
  }
  EXPECT_EQ(read.text("flag"), "true");
  EXPECT_EQ(read.text("nothing"), std::nullopt);
  EXPECT_EQ(read.text("bytes"), std::nullopt);
}

TEST(SettingsFile, SaysWhereNothingCanBeWrittenOrWouldBeLost) {
  EXPECT_THROW(IniSettingsFile{"/dev/null/quillet.conf"}.write({{"k", "1"}}), BadSetting);
  const TemporaryFolder folder;
  const std::filesystem::path tooLarge = folder.path() / "quillet.conf";
  const std::string content((std::size_t{1} << 20) + 1, '#');
  std::ofstream(tooLarge) << content;
  EXPECT_THROW(IniSettingsFile{tooLarge}.write({{"k", "1"}}), BadSetting);
  EXPECT_THROW(IniSettingsFile{tooLarge}.forget({"k"}), BadSetting);
  EXPECT_EQ(contentOf(tooLarge), content);
}

}  // namespace
}  // namespace quillet
