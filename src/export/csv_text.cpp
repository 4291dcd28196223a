// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "export/csv_text.h"

#include <string_view>

#include "base/text.h"
#include "export/running_text.h"

namespace quillet {

namespace {

/// Spreadsheets take what begins so for something to work out; an apostrophe makes it a text.
bool looksLikeFormula(std::string_view text) {
  constexpr std::string_view kBeginnings = "=+-@";
  return !text.empty() && kBeginnings.find(text.front()) != std::string_view::npos;
}

std::string csvField(std::string_view text) {
  std::string field = inOneLine(text);
  if (looksLikeFormula(field)) field.insert(field.begin(), '\'');
  if (field.find_first_of(",\"") == std::string::npos) return field;
  std::string quoted;
  for (const char c : field) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
  return '"' + quoted + '"';
}

}  // namespace

std::string csvRow(const std::vector<std::string>& cells) {
  std::vector<std::string> fields;
  for (const std::string& cell : cells) fields.push_back(csvField(cell));
  return join(fields, ",") + "\r\n";
}

}  // namespace quillet
