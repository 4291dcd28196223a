// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/text_page.h"

#include <algorithm>
#include <utility>

#include "base/columns.h"

namespace quillet {

namespace {

constexpr std::size_t kReadableWidth = 80;

}  // namespace

void TextPage::heading(std::string_view name, std::string_view seller) {
  std::string text = inked(name, Ink::bold, style_);
  if (!seller.empty()) text += "  " + inked(seller, Ink::dim, style_);
  line(text);
}

void TextPage::line(std::string_view text, Ink ink) { text_ += inked(text, ink, style_) + '\n'; }

void TextPage::fact(std::string_view label, std::string_view value, Ink ink) {
  if (value.empty()) return;
  text_ += inked(column(label, kLabelWidth), Ink::dim, style_) + inked(value, ink, style_) + '\n';
}

void TextPage::note(std::string_view text) {
  line((style_.utf8 ? "… " : "... ") + std::string(text), Ink::dim);
}

std::size_t TextPage::textWidth() const {
  return style_.width == 0 ? kReadableWidth : std::min(style_.width, kReadableWidth);
}

std::string TextPage::take() {
  text_.pop_back();  // the runner ends the last line
  return std::move(text_);
}

}  // namespace quillet
