// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "system/settings_file.h"

#include <algorithm>
#include <system_error>
#include <vector>

#include "base/errors.h"
#include "base/text.h"
#include "system/ini_value.h"
#include "system/whole_file.h"

namespace quillet {

namespace {

constexpr std::string_view kSection = "[General]";

std::string_view keyOf(std::string_view line) {
  return trimmed(line.substr(0, std::min(line.find_first_of("=:"), line.size())));
}

std::string lineOf(const std::string& key, const std::string& value) {
  return key + '=' + iniValue(value);
}

struct KeptLines {
  std::vector<std::string> lines;
  std::size_t sectionEnd = 0;  ///< where new keys go; 0 while there is no section
};

/// All but those of the section's keys that go.
template <typename Goes>
KeptLines linesWithout(std::string_view text, const Goes& goes) {
  KeptLines kept;
  bool isInside = false;
  for (const std::string_view line : split(text, '\n')) {
    if (trimmed(line).starts_with('[')) isInside = trimmed(line) == kSection;
    if (isInside && goes(std::string(keyOf(line)))) continue;
    kept.lines.emplace_back(line);
    if (isInside && !trimmed(line).empty()) kept.sectionEnd = kept.lines.size();
  }
  return kept;
}

/// Writes nothing where nothing changes: who never set anything has no file, and gets none.
template <typename Change>
void changeFile(const std::filesystem::path& file, const Change& change) {
  try {
    const std::string before = readSettingsFile(file);
    const std::string after = change(before);
    if (after == before) return;
    std::error_code error;
    std::filesystem::create_directories(file.parent_path(), error);
    replaceFile(file, after);
  } catch (const FileError& failure) {
    throw BadSetting(std::string("The settings could not be kept: ") + failure.what());
  }
}

}  // namespace

std::string withSettings(std::string_view text, const WritableSettings::Values& values) {
  KeptLines kept =
      linesWithout(text, [&values](const std::string& key) { return values.contains(key); });
  std::vector<std::string>& lines = kept.lines;
  while (!lines.empty() && lines.back().empty()) lines.pop_back();
  if (kept.sectionEnd == 0) {
    lines.emplace_back(kSection);
    kept.sectionEnd = lines.size();
  }
  std::vector<std::string> added;
  for (const auto& [key, value] : values) added.push_back(lineOf(key, value));
  lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(kept.sectionEnd), added.begin(),
               added.end());
  return join(lines, "\n") + '\n';
}

std::string withoutSettings(std::string_view text, const WritableSettings::Keys& keys) {
  return join(
      linesWithout(text, [&keys](const std::string& key) { return keys.contains(key); }).lines,
      "\n");
}

std::optional<std::string> IniSettingsFile::text(std::string_view key) const {
  return IniSettings(file_).text(key);
}

void IniSettingsFile::write(const Values& values) {
  changeFile(file_, [&values](const std::string& text) { return withSettings(text, values); });
}

void IniSettingsFile::forget(const Keys& keys) {
  changeFile(file_, [&keys](const std::string& text) { return withoutSettings(text, keys); });
}

}  // namespace quillet
