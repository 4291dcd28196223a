// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/page.h"

#include <algorithm>

#include "base/columns.h"
#include "base/text.h"

namespace quillet {

namespace {

constexpr std::size_t kReadableWidth = 80;
constexpr std::size_t kSellerGap = 2;

}  // namespace

void Page::heading(std::string_view name, std::string_view seller) {
  const std::size_t width = style_.width == 0 ? std::string_view::npos : style_.width;
  const std::string fitted = shortened(name, width, style_);
  const std::size_t taken = columnCount(fitted) + kSellerGap;
  std::string text = inked(fitted, Ink::bold, style_);
  if (!seller.empty() && taken < width) {
    text += std::string(kSellerGap, ' ') +
            inked(shortened(seller, width - taken, style_), Ink::dim, style_);
  }
  line(text);
}

void Page::line(std::string_view text, Ink ink) { text_ += inked(text, ink, style_) + '\n'; }

void Page::fact(std::string_view label, std::string_view value, Ink ink) {
  if (value.empty()) return;
  text_ +=
      inked(column(label, kPageLabelWidth), Ink::dim, style_) + inked(value, ink, style_) + '\n';
}

void Page::note(std::string_view text) {
  line(std::string(cutMark(style_)).append(" ").append(text), Ink::dim);
}

std::size_t Page::textWidth() const {
  return style_.width == 0 ? kReadableWidth : std::min(style_.width, kReadableWidth);
}

std::string Page::take() {
  text_.pop_back();
  return std::move(text_);
}

std::vector<std::string> runningLines(std::string_view text, std::size_t width) {
  std::vector<std::string> lines;
  for (std::string& line : wrapped(printable(trimmed(text), LineFeeds::keep), width)) {
    const bool surplus = line.empty() && (lines.empty() || lines.back().empty());
    if (!surplus) lines.push_back(std::move(line));
  }
  return lines;
}

}  // namespace quillet
