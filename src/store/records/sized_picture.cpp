// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/sized_picture.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace quillet {

namespace {

constexpr std::string_view kFullSize = "/9999x9999bb.jpg";
constexpr std::array kSizes{64, 128, 256, 512, 1024};

/// Takes the characters of a kind from the front; false where there are none.
template <typename IsOfKind>
bool takeAll(std::string_view& text, IsOfKind isOfKind) {
  const auto end = std::find_if_not(text.begin(), text.end(), isOfKind);
  const auto count = static_cast<std::size_t>(end - text.begin());
  text.remove_prefix(count);
  return count > 0;
}

bool take(std::string_view& text, std::string_view word) {
  if (!text.starts_with(word)) return false;
  text.remove_prefix(word.size());
  return true;
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

/// "392x696bb.png"
bool namesSize(std::string_view part) {
  return takeAll(part, isDigit) && take(part, "x") && takeAll(part, isDigit) && take(part, "bb.") &&
         takeAll(part, isLetter) && part.empty();
}

/// The address up to the slash before its size; empty where it does not end in one.
std::string_view withoutSize(std::string_view address) {
  const std::size_t slash = address.rfind('/');
  if (slash == std::string_view::npos || !namesSize(address.substr(slash + 1))) return {};
  return address.substr(0, slash);
}

/// 0 for one that is too large.
int takeNumber(std::string_view& text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return error == std::errc() ? number : 0;
}

}  // namespace

std::string fullSizeAddress(std::string_view address) {
  const std::string_view base = withoutSize(address);
  return base.empty() ? std::string(address) : std::string(base).append(kFullSize);
}

std::optional<double> namedRatio(std::string_view address) {
  const std::string_view base = withoutSize(address);
  if (base.empty()) return {};
  std::string_view size = address.substr(base.size() + 1);
  const int width = takeNumber(size);
  size.remove_prefix(1);  // the "x"
  const int height = takeNumber(size);
  if (width <= 0 || height <= 0) return {};
  return static_cast<double>(width) / height;
}

std::string sizedAddress(std::string_view address, int pixels) {
  const std::string_view base = withoutSize(address);
  if (base.empty()) return std::string(address);
  const auto fitting = std::ranges::lower_bound(kSizes, pixels);
  const int size = fitting == kSizes.end() ? kSizes.back() : *fitting;
  const std::string_view kind = address.substr(address.rfind('.'));
  return fmt::format("{0}/{1}x{1}bb{2}", base, size, kind);
}

std::string filledTemplate(std::string pattern, const PictureFormat& format) {
  const std::pair<std::string_view, std::string> parts[] = {{"{w}", std::to_string(format.width)},
                                                            {"{h}", std::to_string(format.height)},
                                                            {"{c}", "bb"},
                                                            {"{f}", std::string(format.ending)}};
  for (const auto& [name, value] : parts) {
    for (std::size_t at = 0; (at = pattern.find(name, at)) != std::string::npos;) {
      pattern.replace(at, name.size(), value);
      at += value.size();
    }
  }
  return pattern;
}

std::string artworkAddress(std::string pattern) {
  return filledTemplate(std::move(pattern), {512, 512, "png"});
}

}  // namespace quillet
