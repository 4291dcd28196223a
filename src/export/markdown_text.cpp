// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "export/markdown_text.h"

#include <fmt/format.h>

#include <algorithm>

#include "export/running_text.h"

namespace quillet {

namespace {

/// What can begin or end something inside a line. "#" is here for the end of headings.
constexpr std::string_view kMarks = "\\`*_[]<>|~#";

/// What makes a heading, a list, a line across or a table's second line of a line that it begins.
constexpr std::string_view kLineMarks = "-+=:";

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// "&copy;", "&#35;".
bool mayBeReference(std::string_view text) {
  return text.starts_with('&') && text.size() > 1 && text[1] != ' ';
}

std::string escaped(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool mark = kMarks.find(text[i]) != std::string_view::npos;
    if (mark || mayBeReference(text.substr(i))) result += '\\';
    result += text[i];
  }
  return result;
}

/// "1\. first": what would begin a numbered list.
std::string lineEscaped(std::string_view line) {
  std::string result = escaped(line);
  if (kLineMarks.find(result.front()) != std::string_view::npos) return '\\' + result;
  const auto end = std::find_if_not(result.begin(), result.end(), isDigit);
  if (end != result.begin() && end != result.end() && (*end == '.' || *end == ')')) {
    result.insert(end, '\\');
  }
  return result;
}

/// A backslash at the end of a line keeps the line's end.
std::string paragraph(const TextParagraph& lines) {
  std::string result;
  for (const std::string& line : lines) {
    if (!result.empty()) result += "\\\n";
    result += lineEscaped(line);
  }
  return result;
}

}  // namespace

std::string markdownInline(std::string_view text) { return escaped(inOneLine(text)); }

std::string markdownParagraphs(std::string_view text) {
  std::string result;
  for (const TextParagraph& lines : paragraphsOf(text)) {
    if (!result.empty()) result += "\n\n";
    result += paragraph(lines);
  }
  return result;
}

std::string markdownLink(std::string_view address) {
  std::string encoded;
  for (const char c : address) {
    // A table would end its cell, and a backslash would escape what follows.
    encoded += c == '|' ? "%7C" : c == '\\' ? "%5C" : std::string(1, c);
  }
  return fmt::format("<{}>", encoded);
}

}  // namespace quillet
