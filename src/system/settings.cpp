// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "system/settings.h"

#include <ini.h>

#include <algorithm>

#include "base/errors.h"
#include "base/text.h"
#include "system/ini_value.h"
#include "system/whole_file.h"

namespace quillet {

namespace {

// A settings file has a few kilobytes.
constexpr std::size_t kLargestFile = std::size_t{1} << 20;

std::string readableText(const std::filesystem::path& file) {
  try {
    return readSettingsFile(file);
  } catch (const FileError&) {
    return {};
  }
}

/// What the parser's two callbacks share. inih cuts lines at its own buffer's size and takes " ;"
/// for a comment even between quotes, so it is asked for sections and keys only; values are read
/// from the whole line.
struct Parsing {
  std::string_view rest;
  std::string_view line;
  std::map<std::string, std::string, std::less<>>& values;
};

/// The next line without blanks at its ends: an indented one would continue the value before.
/// A zero byte would hide the rest of its line from the parser; such a line is left empty.
std::string_view takeLine(std::string_view& rest) {
  const std::size_t end = std::min(rest.find('\n'), rest.size());
  const std::string_view line = rest.substr(0, end);
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return line.find('\0') == std::string_view::npos ? trimmed(line) : std::string_view{};
}

char* handOutLine(char* buffer, int size, void* stream) {
  auto& parsing = *static_cast<Parsing*>(stream);
  if (parsing.rest.empty()) return nullptr;
  parsing.line = takeLine(parsing.rest);
  const std::size_t length = parsing.line.copy(buffer, static_cast<std::size_t>(size) - 1);
  buffer[length] = '\0';
  return buffer;
}

int keepValue(void* user, const char* section, const char* name, const char* /*value*/) {
  auto& parsing = *static_cast<Parsing*>(user);
  if (std::string_view(section) != "General") return 1;
  const std::string_view raw = parsing.line.substr(parsing.line.find_first_of("=:") + 1);
  if (auto text = iniValueText(raw)) parsing.values.insert_or_assign(name, std::move(*text));
  return 1;
}

}  // namespace

std::string readSettingsFile(const std::filesystem::path& file) {
  std::error_code error;
  // Most users have none, and a failure costs time at every start.
  const auto type = std::filesystem::status(file, error).type();
  if (type == std::filesystem::file_type::not_found) return {};
  return readWholeFile(file, kLargestFile);
}

IniSettings::IniSettings(const std::filesystem::path& file)
    : IniSettings(parse(readableText(file))) {}

IniSettings IniSettings::parse(std::string_view text) {
  IniSettings settings;
  Parsing parsing{.rest = text, .line = {}, .values = settings.values_};
  ini_parse_stream(handOutLine, &parsing, keepValue, &parsing);
  return settings;
}

std::optional<std::string> IniSettings::text(std::string_view key) const {
  const auto found = values_.find(key);
  if (found == values_.end()) return {};
  return found->second;
}

}  // namespace quillet
