// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "system/locale_formats.h"

#include <fmt/format.h>
#include <unicode/coll.h>
#include <unicode/currunit.h>
#include <unicode/numberformatter.h>
#include <unicode/ucurr.h>

#include <array>
#include <cmath>
#include <map>
#include <optional>

#include "base/numbers.h"

namespace quillet {

namespace {

using icu::number::LocalizedNumberFormatter;
using icu::number::NumberFormatter;
using icu::number::Precision;

using CurrencyCode = std::array<char16_t, 4>;  // three letters and a terminating zero

icu::Locale icuLocale(const std::string& name) { return icu::Locale(name.c_str()); }

/// Formatters for plain numbers and for amounts alike show no sign on what rounds to zero.
LocalizedNumberFormatter unsignedZero(const LocalizedNumberFormatter& formatter) {
  return formatter.sign(UNUM_SIGN_NEGATIVE);
}

LocalizedNumberFormatter numbers(const std::string& locale, const Precision& precision) {
  return unsignedZero(NumberFormatter::withLocale(icuLocale(locale)).precision(precision));
}

/// Null where the collation data cannot be loaded.
std::unique_ptr<icu::Collator> nameCollator(const std::string& locale) {
  UErrorCode status = U_ZERO_ERROR;
  std::unique_ptr<icu::Collator> collator(icu::Collator::createInstance(icuLocale(locale), status));
  if (U_FAILURE(status)) return nullptr;
  collator->setStrength(icu::Collator::SECONDARY);
  collator->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
  collator->setAttribute(UCOL_NORMALIZATION_MODE, UCOL_ON, status);
  return collator;
}

/// In upper case; absent for what is not three letters.
std::optional<CurrencyCode> currencyCode(std::string_view text) {
  if (text.size() != 3) return {};
  CurrencyCode code{};
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    const bool lower = c >= 'a' && c <= 'z';
    if (!lower && (c < 'A' || c > 'Z')) return {};
    code[i] = static_cast<char16_t>(lower ? c - 'a' + 'A' : c);
  }
  return code;
}

bool namesCurrency(const CurrencyCode& code) {
  constexpr std::int32_t kNoCurrency = 999;  // ISO 4217, of what is in no currency
  const std::int32_t number = ucurr_getNumericCode(code.data());
  return number != 0 && number != kNoCurrency;
}

/// Absent where the code names no currency: ICU would print a placeholder sign.
std::optional<LocalizedNumberFormatter> amounts(const std::string& locale,
                                                std::string_view isoCode) {
  const auto code = currencyCode(isoCode);
  if (!code || !namesCurrency(*code)) return {};
  UErrorCode status = U_ZERO_ERROR;
  const icu::CurrencyUnit unit(code->data(), status);
  if (U_FAILURE(status)) return {};
  return unsignedZero(NumberFormatter::withLocale(icuLocale(locale)).unit(unit));
}

template <typename Number>
std::string formatted(const LocalizedNumberFormatter& formatter, Number number) {
  UErrorCode status = U_ZERO_ERROR;
  icu::number::FormattedNumber result;
  if constexpr (std::is_integral_v<Number>) {
    result = formatter.formatInt(number, status);
  } else {
    result = formatter.formatDouble(number, status);
  }
  const icu::UnicodeString text = result.toString(status);
  if (U_FAILURE(status)) return fmt::format("{}", number);
  std::string utf8;
  return text.toUTF8String(utf8);
}

struct ByteUnit {
  std::string_view name;
  double bytes;
  double fractionSteps;  ///< 10 shows one fraction digit, 100 two
};

constexpr std::array<ByteUnit, 6> kByteUnits{{{"KB", 1e3, 1},
                                              {"MB", 1e6, 10},
                                              {"GB", 1e9, 100},
                                              {"TB", 1e12, 100},
                                              {"PB", 1e15, 100},
                                              {"EB", 1e18, 100}}};

double inUnit(double bytes, const ByteUnit& unit) {
  return std::round(bytes / unit.bytes * unit.fractionSteps) / unit.fractionSteps;
}

/// The largest unit that is reached; what rounds up to 1000 of one is 1 of the next.
const ByteUnit& fittingUnit(double bytes) {
  const ByteUnit* unit = &kByteUnits.front();
  for (const ByteUnit& larger : kByteUnits) {
    if (std::abs(inUnit(bytes, *unit)) >= 1000) unit = &larger;
  }
  return *unit;
}

}  // namespace

struct LocaleFormats::Formatters {
  explicit Formatters(const UserLocale& userLocale)
      : locale(userLocale),
        oneDecimal(numbers(locale.numeric, Precision::fixedFraction(1))),
        twoDecimals(numbers(locale.numeric, Precision::fixedFraction(2))),
        shortDecimals(numbers(locale.numeric, Precision::maxFraction(2))),
        integers(numbers(locale.numeric, Precision::integer())) {}

  const std::optional<LocalizedNumberFormatter>& amountsIn(std::string_view isoCode) {
    const auto known = currencies.find(isoCode);
    if (known != currencies.end()) return known->second;
    return currencies.emplace(isoCode, amounts(locale.monetary, isoCode)).first->second;
  }

  const icu::Collator* names() {
    if (!collator) collator = nameCollator(locale.collation);
    return collator.get();
  }

  UserLocale locale;
  LocalizedNumberFormatter oneDecimal;
  LocalizedNumberFormatter twoDecimals;
  LocalizedNumberFormatter shortDecimals;
  LocalizedNumberFormatter integers;
  std::map<std::string, std::optional<LocalizedNumberFormatter>, std::less<>> currencies;
  std::unique_ptr<icu::Collator> collator;
};

LocaleFormats::LocaleFormats(const UserLocale& locale)
    : formatters_(std::make_unique<Formatters>(locale)) {}
LocaleFormats::~LocaleFormats() = default;
LocaleFormats::LocaleFormats(LocaleFormats&&) noexcept = default;
LocaleFormats& LocaleFormats::operator=(LocaleFormats&&) noexcept = default;

std::string LocaleFormats::currency(double amount, std::string_view isoCode) const {
  const auto& formatter = formatters_->amountsIn(isoCode);
  if (formatter) return formatted(*formatter, amount);
  std::string text = twoDecimals(amount);
  if (!isoCode.empty()) text.append(" ").append(isoCode);
  return text;
}

std::string LocaleFormats::wholeCurrency(double amount, std::string_view isoCode) const {
  const auto& formatter = formatters_->amountsIn(isoCode);
  if (formatter) return formatted(formatter->precision(Precision::integer()), amount);
  std::string text = formatted(formatters_->integers, amount);
  if (!isoCode.empty()) text.append(" ").append(isoCode);
  return text;
}

std::string LocaleFormats::oneDecimal(double number) const {
  // Rounded as it is to the last bit: ICU rounds the shortest decimal that reads back as the
  // number.
  const std::string rounded = fmt::format("{:.1f}", number);
  return formatted(formatters_->oneDecimal, parseDecimal(rounded).value_or(number));
}

std::string LocaleFormats::twoDecimals(double number) const {
  return formatted(formatters_->twoDecimals, number);
}

std::string LocaleFormats::integer(std::int64_t number) const {
  return formatted(formatters_->integers, number);
}

std::string LocaleFormats::byteCount(std::int64_t bytes) const {
  if (bytes > -1000 && bytes < 1000)
    return fmt::format("{} {}", bytes, bytes == 1 ? "byte" : "bytes");
  const auto size = static_cast<double>(bytes);
  const ByteUnit& unit = fittingUnit(size);
  return fmt::format("{} {}", formatted(formatters_->shortDecimals, inUnit(size, unit)), unit.name);
}

bool LocaleFormats::nameLess(std::string_view left, std::string_view right) const {
  const auto piece = [](std::string_view text) {
    return icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size()));
  };
  if (const icu::Collator* collator = formatters_->names()) {
    UErrorCode status = U_ZERO_ERROR;
    const UCollationResult order = collator->compareUTF8(piece(left), piece(right), status);
    if (U_SUCCESS(status) && order != UCOL_EQUAL) return order == UCOL_LESS;
  }
  return left < right;
}

}  // namespace quillet
