// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/dates.h"

namespace quillet {

/// A text as it stands in a file that lives elsewhere, escapes included: most are never looked at.
class SeedText {
 public:
  SeedText() = default;
  /// `raw`: what stands between the quotes.
  explicit SeedText(std::string_view raw) : raw_(raw) {}

  [[nodiscard]] std::string_view raw() const { return raw_; }

  /// The text itself; absent where there is none, an empty one included.
  [[nodiscard]] std::optional<std::string> text() const;

 private:
  std::string_view raw_;
};

/// What the collector published of one storefront: the apps whose price has moved.
struct PriceSeed {
  /// A price, from that day (UTC) until the next point.
  struct Point {
    std::chrono::sys_days day;
    double price = 0;  ///< in the storefront's currency

    friend bool operator==(const Point&, const Point&) = default;
  };

  /// One app. Its texts belong to the file's text.
  struct Entry {
    std::int64_t trackId = 0;
    SeedText name;
    SeedText seller;
    SeedText currency;                               ///< ISO 4217
    SeedText kind;                                   ///< the store's kind word
    std::optional<std::chrono::sys_days> goneSince;  ///< absent while it is sold
  };
};

/// Whether the kind is that of a Mac app; every other one is an iPhone or iPad app.
[[nodiscard]] bool isMacKind(const SeedText& kind);

}  // namespace quillet
