// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "export/html_text.h"

#include <fmt/format.h>

#include "export/running_text.h"

namespace quillet {

namespace {

std::string escaped(std::string_view text) {
  std::string result;
  for (const char c : text) {
    switch (c) {
      case '&': result += "&amp;"; break;
      case '<': result += "&lt;"; break;
      case '>': result += "&gt;"; break;
      case '"': result += "&quot;"; break;
      case '\'': result += "&#39;"; break;
      default: result += c;
    }
  }
  return result;
}

std::string linesOf(const TextParagraph& lines) {
  std::string result;
  for (const std::string& line : lines) {
    if (!result.empty()) result += "<br>\n";
    result += escaped(line);
  }
  return result;
}

}  // namespace

std::string htmlInline(std::string_view text) { return escaped(inOneLine(text)); }

std::string htmlLines(std::string_view text) {
  std::string result;
  for (const TextParagraph& lines : paragraphsOf(text)) {
    if (!result.empty()) result += "<br><br>\n";
    result += linesOf(lines);
  }
  return result;
}

std::string htmlParagraphs(std::string_view text) {
  std::string result;
  for (const TextParagraph& lines : paragraphsOf(text)) {
    result += fmt::format("<p dir=\"auto\">{}</p>\n", linesOf(lines));
  }
  return result;
}

std::string htmlLink(std::string_view address) {
  return fmt::format("<a href=\"{0}\">{0}</a>", escaped(address));
}

}  // namespace quillet
