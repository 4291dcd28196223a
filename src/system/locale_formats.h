// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "system/user_locale.h"

namespace quillet {

/// Numbers, amounts and the order of names as the user's locale has them. Formatters are kept
/// between calls, so one object serves a whole listing; it is used by one thread at a time.
class LocaleFormats {
 public:
  explicit LocaleFormats(const UserLocale& locale);
  ~LocaleFormats();
  LocaleFormats(LocaleFormats&&) noexcept;
  LocaleFormats& operator=(LocaleFormats&&) noexcept;

  /// The amount in a currency given by its ISO 4217 code: "€2.99", "2,99 €". Where the code names
  /// no currency it follows the plain number as it is: "2.99 ABC"; an empty one is left out.
  [[nodiscard]] std::string currency(double amount, std::string_view isoCode) const;

  /// Likewise without fraction digits: "€3".
  [[nodiscard]] std::string wholeCurrency(double amount, std::string_view isoCode) const;

  /// With exactly one fraction digit.
  [[nodiscard]] std::string oneDecimal(double number) const;

  /// With exactly two fraction digits.
  [[nodiscard]] std::string twoDecimals(double number) const;

  /// With the locale's grouping: "1,234,567".
  [[nodiscard]] std::string integer(std::int64_t number) const;

  /// Decimal units as a file browser shows them: "512 bytes", "48 KB", "1.5 MB", "2.25 GB".
  [[nodiscard]] std::string byteCount(std::int64_t bytes) const;

  /// The order of a file browser: by the locale's alphabet, case ignored, digits by their value
  /// ("App 2" before "App 10"). Names that differ only in case or in bytes are ordered by their
  /// bytes, so that the order is total.
  [[nodiscard]] bool nameLess(std::string_view left, std::string_view right) const;

 private:
  struct Formatters;
  std::unique_ptr<Formatters> formatters_;
};

}  // namespace quillet
