// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/xml_plist_scanner.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <utility>
#include <vector>

#include "base/errors.h"
#include "base/plist_scalars.h"
#include "base/text.h"

namespace quillet {
namespace {

using Tag = XmlPlistScanner::Tag;

bool isSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

bool isUtf8(std::string_view text) {
  while (!text.empty()) {
    const std::size_t length = utf8SequenceLength(text);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

bool isContainer(std::string_view name) { return name == "dict" || name == "array"; }

bool isLeaf(std::string_view name) {
  constexpr std::array<std::string_view, 8> kLeaves{"key",  "string", "integer", "real",
                                                    "date", "data",   "true",    "false"};
  return std::find(kLeaves.begin(), kLeaves.end(), name) != kLeaves.end();
}

constexpr std::array<std::pair<std::string_view, char>, 5> kEntities{
    {{"lt", '<'}, {"gt", '>'}, {"amp", '&'}, {"quot", '"'}, {"apos", '\''}}};

/// What stands behind "&#": decimal digits, or hexadecimal ones behind an x. 0 where it is no
/// number.
char32_t numberedPoint(std::string_view digits) {
  const int base = digits.starts_with('x') ? 16 : 10;
  if (base == 16) digits.remove_prefix(1);
  std::uint32_t point = 0;
  const auto [end, error] =
      std::from_chars(digits.data(), digits.data() + digits.size(), point, base);
  return error == std::errc{} && end == digits.data() + digits.size() ? point : 0;
}

}  // namespace

bool Tag::opens(std::string_view element) const { return kind != Kind::closing && name == element; }

bool Tag::closes(std::string_view element) const {
  return kind == Kind::closing && name == element;
}

XmlPlistScanner::XmlPlistScanner(std::string_view text) : text_(text) {
  skipProlog();
  const Tag plist = takeTag();
  if (plist.kind != Tag::Kind::opening || plist.name != "plist") refuse("it is no property list");
}

void XmlPlistScanner::skipProlog() {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  static_cast<void>(take(kByteOrderMark));
  if (!skipSpaceAndComments()) refuse("it is no property list");
  if (!take("<!DOCTYPE")) return;
  // A declaration of its own could name entities that grow without end.
  if (takeUntil(">").find('[') != std::string_view::npos) refuse("it declares entities");
}

bool XmlPlistScanner::skipSpaceAndComments() {
  while (true) {
    while (at_ < text_.size() && isSpace(text_[at_])) ++at_;
    if (take("<!--")) {
      takeUntil("-->");
    } else if (take("<?")) {
      takeUntil("?>");
    } else {
      return at_ < text_.size() && text_[at_] == '<';
    }
  }
}

bool XmlPlistScanner::take(std::string_view expected) {
  if (!text_.substr(at_).starts_with(expected)) return false;
  at_ += expected.size();
  return true;
}

std::string_view XmlPlistScanner::takeUntil(std::string_view end) {
  const std::size_t found = text_.find(end, at_);
  if (found == std::string_view::npos) refuse("it ends too early");
  const std::string_view before = text_.substr(at_, found - at_);
  at_ = found + end.size();
  return before;
}

Tag XmlPlistScanner::takeTag() {
  if (!skipSpaceAndComments()) {
    refuse(at_ == text_.size() ? "it ends too early" : "text stands between its values");
  }
  ++at_;
  return tagOf(takeInsideOfTag());
}

std::string_view XmlPlistScanner::takeInsideOfTag() {
  const std::size_t begin = at_;
  char quote = 0;
  for (; at_ < text_.size(); ++at_) {
    const char c = text_[at_];
    if (quote != 0) {
      if (c == quote) quote = 0;
    } else if (c == '"' || c == '\'') {
      quote = c;
    } else if (c == '>') {
      return text_.substr(begin, at_++ - begin);
    }
  }
  refuse("it ends too early");
}

Tag XmlPlistScanner::tagOf(std::string_view inside) const {
  Tag tag;
  if (inside.starts_with('/')) {
    tag.kind = Tag::Kind::closing;
    inside.remove_prefix(1);
  } else if (inside.ends_with('/')) {
    tag.kind = Tag::Kind::empty;
    inside.remove_suffix(1);
  }
  tag.name = inside.substr(0, std::find_if(inside.begin(), inside.end(), isSpace) - inside.begin());
  return tag;
}

std::string XmlPlistScanner::takeText(const Tag& tag) {
  std::string text;
  if (tag.kind == Tag::Kind::empty) return text;
  while (true) {
    const std::size_t special = std::min(text_.find_first_of("<&", at_), text_.size());
    text += text_.substr(at_, special - at_);
    at_ = special;
    if (take("&")) {
      appendEntity(text);
    } else if (take("<![CDATA[")) {
      text += takeUntil("]]>");
    } else if (take("<!--")) {
      takeUntil("-->");
    } else {
      break;
    }
  }
  if (!takeTag().closes(tag.name)) refuse("a text holds another value");
  if (!isUtf8(text)) refuse("a text is not in UTF-8");
  return text;
}

void XmlPlistScanner::appendEntity(std::string& text) {
  const std::string_view name = takeUntil(";");
  if (name.starts_with('#')) {
    const char32_t point = numberedPoint(name.substr(1));
    if (point == 0) refuse("a character's number is none");
    appendUtf8(text, point);
    return;
  }
  const auto* known = std::find_if(kEntities.begin(), kEntities.end(),
                                   [&](const auto& entity) { return entity.first == name; });
  if (known == kEntities.end()) refuse("it names an entity that XML does not have");
  text += known->second;
}

void XmlPlistScanner::skip(const Tag& tag) {
  std::vector<std::string_view> open;
  Tag next = tag;
  while (true) {
    if (next.kind == Tag::Kind::closing) {
      if (open.empty() || open.back() != next.name) refuse("its values are not well nested");
      open.pop_back();
    } else if (!isContainer(next.name)) {
      skipLeaf(next);
    } else if (next.kind == Tag::Kind::opening) {
      open.push_back(next.name);
      // One more is open around them all.
      if (open.size() >= kDeepestPlist) {
        refuse(fmt::format("it nests deeper than {} levels", kDeepestPlist));
      }
    }
    if (open.empty()) return;
    next = takeTag();
  }
}

void XmlPlistScanner::skipLeaf(const Tag& tag) {
  if (!isLeaf(tag.name)) refuse("it holds a value of an unknown type");
  if (tag.kind == Tag::Kind::empty) return;
  while (true) {
    takeUntil("<");
    if (take("![CDATA[")) {
      takeUntil("]]>");
    } else if (take("!--")) {
      takeUntil("-->");
    } else {
      break;
    }
  }
  if (!tagOf(takeInsideOfTag()).closes(tag.name)) refuse("a text holds another value");
}

void XmlPlistScanner::refuse(std::string_view complaint) const {
  throw DecodingError(fmt::format("{} (byte {})", complaint, at_));
}

}  // namespace quillet
