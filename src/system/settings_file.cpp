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

}  // namespace

std::string withSettings(std::string_view text, const WritableSettings::Values& values) {
  std::vector<std::string> lines;
  std::size_t sectionEnd = 0;  // where new keys go; 0 while there is no section
  bool inside = false;
  for (const std::string_view line : split(text, '\n')) {
    if (trimmed(line).starts_with('[')) inside = trimmed(line) == kSection;
    if (inside && values.contains(std::string(keyOf(line)))) continue;
    lines.emplace_back(line);
    if (inside && !trimmed(line).empty()) sectionEnd = lines.size();
  }
  while (!lines.empty() && lines.back().empty()) lines.pop_back();
  if (sectionEnd == 0) {
    lines.emplace_back(kSection);
    sectionEnd = lines.size();
  }
  std::vector<std::string> added;
  for (const auto& [key, value] : values) added.push_back(lineOf(key, value));
  lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(sectionEnd), added.begin(), added.end());
  return join(lines, "\n") + '\n';
}

std::optional<std::string> IniSettingsFile::text(std::string_view key) const {
  return IniSettings(file_).text(key);
}

void IniSettingsFile::write(const Values& values) {
  std::error_code error;
  std::filesystem::create_directories(file_.parent_path(), error);
  try {
    replaceFile(file_, withSettings(readSettingsFile(file_), values));
  } catch (const FileError& failure) {
    throw BadSetting(std::string("The settings could not be kept: ") + failure.what());
  }
}

}  // namespace quillet
