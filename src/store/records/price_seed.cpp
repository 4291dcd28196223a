// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/price_seed.h"

#include "base/errors.h"
#include "base/json_reader.h"
#include "store/records/itunes_app.h"

namespace quillet {

namespace {

std::optional<std::string> unescaped(std::string_view raw) {
  try {
    const JsonDocument document('"' + std::string(raw) + '"');
    std::string text;
    readElement(document.root(), "text", text);
    return text;
  } catch (const DecodingError&) {
    return {};  // an escape that JSON lacks
  }
}

}  // namespace

std::optional<std::string> SeedText::text() const {
  if (raw_.empty()) return {};
  if (raw_.find('\\') == std::string_view::npos) return std::string(raw_);
  return unescaped(raw_);
}

bool isMacKind(const SeedText& kind) { return kind.raw() == kMacSoftwareKind; }

}  // namespace quillet
