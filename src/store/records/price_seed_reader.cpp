// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/price_seed_reader.h"

#include <simdjson.h>

#include <algorithm>
#include <charconv>
#include <map>
#include <utility>

#include "base/errors.h"
#include "base/json_scanner.h"
#include "base/text.h"
#include "store/records/price_seed_error.h"

namespace quillet {

namespace {

using Point = PriceSeed::Point;

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr double kNewestSchema = 1;
/// Beyond it a number is damage, not a price.
constexpr double kLargestPrice = 1e9;
/// One a day fills more than two centuries.
constexpr std::size_t kMostPoints = 100'000;

/// The key's only letter; 0 for a longer key.
char letterOf(std::string_view key) { return key.size() == 1 ? key.front() : '\0'; }

int digitAt(std::string_view text, std::size_t place) {
  const int digit = text[place] - '0';
  return digit >= 0 && digit <= 9 ? digit : 10'000;
}

/// "2026-10-01"; absent for anything else and for days that no calendar has.
std::optional<std::chrono::sys_days> parseDay(std::string_view text) {
  if (text.size() != 10 || text[4] != '-' || text[7] != '-') return {};
  const auto two = [text](std::size_t place) {
    return 10 * digitAt(text, place) + digitAt(text, place + 1);
  };
  const int year = 100 * two(0) + two(2);
  const int month = two(5);
  const int day = two(8);
  // What is no digit is too large for any of them.
  if (year > 9999 || month > 12 || day > 31) return {};
  const std::chrono::year_month_day date{std::chrono::year(year),
                                         std::chrono::month(static_cast<unsigned>(month)),
                                         std::chrono::day(static_cast<unsigned>(day))};
  if (!date.ok()) return {};
  return std::chrono::sys_days(date);
}

/// `value`: a string or a number as it stands in the file. 0 for anything else.
std::int64_t trackIdOf(std::string_view value) {
  if (value.size() >= 2 && value.starts_with('"')) value = value.substr(1, value.size() - 2);
  std::int64_t id = 0;
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), id);
  return error == std::errc() && end == value.data() + value.size() ? id : 0;
}

/// The text that comes next; none where it is no text.
SeedText takeText(JsonScanner& scanner) {
  if (scanner.next() == '"') return SeedText(scanner.takeString());
  scanner.skipValue();
  return {};
}

/// Absent for what has no day or no price.
std::optional<Point> takePoint(JsonScanner& scanner) {
  std::optional<std::chrono::sys_days> day;
  double price = -1;
  scanner.eachMember([&](std::string_view key) {
    switch (letterOf(key)) {
      case 'd': day = parseDay(takeText(scanner).raw()); break;
      case 'v': price = scanner.takeNumber().value_or(-1); break;
      default: scanner.skipValue();
    }
  });
  if (!day || price < 0 || price > kLargestPrice) return {};
  return Point{*day, price};
}

/// In the order of the days, the last one of a day.
void putInOrder(std::vector<Point>& points) {
  const auto notBefore = [](const Point& left, const Point& right) {
    return left.day >= right.day;
  };
  if (std::adjacent_find(points.begin(), points.end(), notBefore) == points.end()) return;
  std::map<std::chrono::sys_days, double> prices;
  for (const Point& point : points) prices[point.day] = point.price;
  points.clear();
  for (const auto& [day, price] : prices) points.push_back({day, price});
}

JsonScanner required(std::optional<JsonScanner> value) {
  if (!value) throw DecodingError("Something is missing");
  return *value;
}

}  // namespace

struct PriceSeedReader::State {
  State(TextBuffer fileText, std::string fileCountry)
      : text(std::move(fileText)), country(std::move(fileCountry)) {}

  void open();
  bool hasNext();
  bool readEntry();
  void readPoints();

  TextBuffer text;
  std::string country;
  std::string stamp;
  JsonScanner apps{{}};
  enum class Place { start, inside, end } place = Place::start;
  std::size_t count = 0;
  PriceSeed::Entry entry;
  std::vector<Point> points;
};

void PriceSeedReader::State::open() {
  std::string_view whole = trimmed(text.view());
  if (whole.starts_with(kByteOrderMark)) whole.remove_prefix(kByteOrderMark.size());
  // A file that is cut off is refused even by those who would not read so far.
  const bool isWhole = whole.ends_with('}') && simdjson::validate_utf8(whole.data(), whole.size());
  if (!isWhole) throw DecodingError("It is no whole text");
  const JsonScanner file(whole);
  auto schema = required(file.findMember("schema"));
  const auto version = schema.takeNumber();
  if (!version) throw DecodingError("It has no schema");
  if (*version > kNewestSchema) throw PriceSeedError::newer();
  if (auto made = file.findMember("generatedAt")) stamp = takeText(*made).text().value_or("");
  apps = required(required(file.findMember("storefront")).findMember("apps"));
  apps.expect('[');
}

/// Goes to the next item of the list of apps.
bool PriceSeedReader::State::hasNext() {
  if (place == Place::end) return false;
  const bool goesOn = place == Place::start ? !apps.take(']') : apps.take(',');
  if (!goesOn && place == Place::inside) apps.expect(']');
  place = goesOn ? Place::inside : Place::end;
  return goesOn;
}

/// False where the item is no app that can be read.
bool PriceSeedReader::State::readEntry() {
  entry = {};
  points.clear();
  if (apps.next() != '{') {
    apps.skipValue();
    return false;
  }
  apps.eachMember([this](std::string_view key) {
    switch (letterOf(key)) {
      case 'a': entry.trackId = trackIdOf(apps.takeValue()); break;
      case 'n': entry.name = takeText(apps); break;
      case 's': entry.seller = takeText(apps); break;
      case 'c': entry.currency = takeText(apps); break;
      case 'k': entry.kind = takeText(apps); break;
      case 'g': entry.goneSince = parseDay(takeText(apps).raw()); break;
      case 'p': readPoints(); break;
      default: apps.skipValue();
    }
  });
  putInOrder(points);
  return entry.trackId > 0 && !points.empty();
}

void PriceSeedReader::State::readPoints() {
  points.clear();
  if (apps.next() != '[') return apps.skipValue();
  apps.eachItem([this] {
    if (apps.next() != '{') return apps.skipValue();
    const auto point = takePoint(apps);
    if (point && points.size() < kMostPoints) points.push_back(*point);
  });
}

PriceSeedReader::PriceSeedReader(TextBuffer text, std::string country)
    : state_(std::make_unique<State>(std::move(text), std::move(country))) {
  try {
    state_->open();
  } catch (const DecodingError&) {
    throw PriceSeedError::unreadable(state_->country);
  }
}

PriceSeedReader::~PriceSeedReader() = default;
PriceSeedReader::PriceSeedReader(PriceSeedReader&&) noexcept = default;
PriceSeedReader& PriceSeedReader::operator=(PriceSeedReader&&) noexcept = default;

const std::string& PriceSeedReader::stamp() const { return state_->stamp; }

std::optional<Instant> PriceSeedReader::generatedAt() const {
  return parseInternetDate(state_->stamp);
}

bool PriceSeedReader::next() {
  try {
    while (state_->hasNext()) {
      if (!state_->readEntry()) continue;
      ++state_->count;
      return true;
    }
  } catch (const DecodingError&) {
    throw PriceSeedError::unreadable(state_->country);
  }
  if (state_->count == 0) throw PriceSeedError::empty(state_->country);
  return false;
}

const PriceSeed::Entry& PriceSeedReader::entry() const { return state_->entry; }

std::span<const PriceSeed::Point> PriceSeedReader::points() const { return state_->points; }

}  // namespace quillet
