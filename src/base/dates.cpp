// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/dates.h"

#include <algorithm>

namespace quillet {

namespace {

using namespace std::chrono;

/// Reads fixed-width fields from the left; `failed` stays set from the first mismatch on.
class FieldReader {
 public:
  explicit FieldReader(std::string_view text) : rest_(text) {}

  int digits(std::size_t width) {
    int value = 0;
    if (rest_.size() < width) return fail();
    for (std::size_t i = 0; i < width; ++i) {
      if (rest_[i] < '0' || rest_[i] > '9') return fail();
      value = value * 10 + (rest_[i] - '0');
    }
    rest_.remove_prefix(width);
    return value;
  }

  bool accept(char c) {
    if (rest_.empty() || rest_.front() != c) return false;
    rest_.remove_prefix(1);
    return true;
  }

  void expect(char c) {
    if (!accept(c)) fail();
  }

  [[nodiscard]] bool complete() const { return !failed_ && rest_.empty(); }

 private:
  int fail() {
    failed_ = true;
    return 0;
  }

  std::string_view rest_;
  bool failed_ = false;
};

/// The zone at the end: "Z", or an offset from UTC; absent for an offset of a day and more.
std::optional<minutes> readZone(FieldReader& reader) {
  if (reader.accept('Z')) return minutes{0};
  const bool west = reader.accept('-');
  if (!west) reader.expect('+');
  const int hour = reader.digits(2);
  reader.expect(':');
  const int minute = reader.digits(2);
  if (hour > 23 || minute > 59) return {};
  const minutes offset{hour * 60 + minute};
  return west ? -offset : offset;
}

/// The nearest instant whose year has four digits. Beyond them lie years that no calendar type
/// holds, so it comes before any conversion.
Instant clamped(Instant instant) {
  constexpr Instant kFirst = sys_days{year{0} / January / 1};
  constexpr Instant kLast = sys_days{year{9999} / December / 31} + 24h - 1ms;
  return std::clamp(instant, kFirst, kLast);
}

/// Puts `value` into the `width` places before `end`, with leading zeros. By hand, for a listing of
/// thousands of apps writes two dates for each.
void putDigits(char* end, int width, std::int64_t value) {
  for (; width > 0; --width, value /= 10) *--end = static_cast<char>('0' + value % 10);
}

void putDate(std::string& text, sys_days day) {
  const year_month_day date{day};
  putDigits(&text[4], 4, static_cast<int>(date.year()));
  putDigits(&text[7], 2, static_cast<unsigned>(date.month()));
  putDigits(&text[10], 2, static_cast<unsigned>(date.day()));
}

}  // namespace

std::optional<Instant> parseInternetDate(std::string_view text) {
  FieldReader reader(text);
  const year y{reader.digits(4)};
  reader.expect('-');
  const month m{static_cast<unsigned>(reader.digits(2))};
  reader.expect('-');
  const day d{static_cast<unsigned>(reader.digits(2))};
  reader.expect('T');
  const int hour = reader.digits(2);
  reader.expect(':');
  const int minute = reader.digits(2);
  reader.expect(':');
  const int second = reader.digits(2);
  const auto offset = readZone(reader);

  const year_month_day date{y, m, d};
  // 60 is a leap second, which the clock counts as the next minute's first.
  if (!reader.complete() || !offset || !date.ok()) return {};
  if (hour > 23 || minute > 59 || second > 60) return {};
  return sys_days{date} + hours{hour} + minutes{minute} + seconds{second} - *offset;
}

std::string formatInternetDate(Instant instant) {
  const auto whole = floor<seconds>(clamped(instant));
  const auto dayStart = floor<days>(whole);
  const hh_mm_ss time{whole - dayStart};
  std::string text = "yyyy-mm-ddThh:mm:ssZ";
  putDate(text, dayStart);
  putDigits(&text[13], 2, time.hours().count());
  putDigits(&text[16], 2, time.minutes().count());
  putDigits(&text[19], 2, time.seconds().count());
  return text;
}

std::string formatDay(Instant instant) {
  std::string text = "yyyy-mm-dd";
  putDate(text, floor<days>(clamped(instant)));
  return text;
}

}  // namespace quillet
