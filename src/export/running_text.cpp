// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "export/running_text.h"

#include "base/text.h"

namespace quillet {

std::vector<TextParagraph> paragraphsOf(std::string_view text) {
  const std::string shown = printable(text, LineFeeds::keep);
  std::vector<TextParagraph> paragraphs;
  bool begins = true;
  for (const std::string_view line : split(shown, '\n')) {
    const std::string_view content = trimmed(line);
    if (content.empty()) {
      begins = true;
      continue;
    }
    if (begins) paragraphs.emplace_back();
    paragraphs.back().emplace_back(content);
    begins = false;
  }
  return paragraphs;
}

std::string inOneLine(std::string_view text) { return std::string(trimmed(printable(text))); }

}  // namespace quillet
