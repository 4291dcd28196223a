// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/price_seed_reader.h"

#include <simdjson.h>

#include <algorithm>
#include <charconv>
#include <map>
#include <utility>

#include "store/records/price_data_error.h"

namespace quillet {

namespace {

namespace ondemand = simdjson::ondemand;
using Point = PriceSeed::Point;

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr double kNewestSchema = 1;
/// Beyond it a number is damage, not a price.
constexpr double kLargestPrice = 1e9;
/// One a day fills more than two centuries.
constexpr std::size_t kMostPoints = 100'000;

/// What stands between the quotes; empty for what is no text.
std::string_view rawText(ondemand::value value) {
  const std::string_view token = value.raw_json_token();
  const std::size_t end = token.rfind('"');
  if (!token.starts_with('"') || end == 0) return {};
  return token.substr(1, end - 1);
}

/// The key's only letter; 0 for a longer key.
char letterOf(const ondemand::raw_json_string& key) {
  return key.raw()[0] != '"' && key.raw()[1] == '"' ? key.raw()[0] : '\0';
}

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

std::int64_t trackIdOf(ondemand::value value) {
  std::string_view token = rawText(value);
  if (token.empty()) token = value.raw_json_token();
  std::int64_t id = 0;
  const auto [end, error] = std::from_chars(token.data(), token.data() + token.size(), id);
  const bool whole =
      error == std::errc() &&
      std::string_view(end, token.data() + token.size()).find_first_not_of(" \t\r\n") ==
          std::string_view::npos;
  return whole ? id : 0;
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

}  // namespace

struct PriceSeedReader::State {
  State(std::string fileText, std::string fileCountry)
      : text(std::move(fileText)), country(std::move(fileCountry)) {
    if (text.starts_with(kByteOrderMark)) text.erase(0, kByteOrderMark.size());
    text.reserve(text.size() + simdjson::SIMDJSON_PADDING);
  }

  void open();
  void findApps();
  bool readEntry(ondemand::value item);
  void readPoints(ondemand::value value);
  void readPoint(ondemand::value item);

  /// The value of a step from one item to the next, which fails where the file is no JSON.
  template <typename T>
  T step(simdjson::simdjson_result<T> result) const {
    T value;
    if (std::move(result).get(value) != simdjson::SUCCESS)
      throw PriceDataError::unreadable(country);
    return value;
  }

  /// Whether there is a value; `absent` is the one error after which the parser can go on.
  [[nodiscard]] bool isThere(simdjson::error_code error, simdjson::error_code absent) const {
    if (error == absent) return false;
    if (error != simdjson::SUCCESS) throw PriceDataError::unreadable(country);
    return true;
  }

  std::string text;
  std::string country;
  std::string stamp;
  ondemand::parser parser;
  ondemand::document document;
  simdjson::simdjson_result<ondemand::array_iterator> app;
  simdjson::simdjson_result<ondemand::array_iterator> end;
  enum class Place { start, inside } place = Place::start;
  std::size_t count = 0;
  PriceSeed::Entry entry;
  std::vector<Point> points;
};

void PriceSeedReader::State::open() {
  double schema = 0;
  if (parser.iterate(text.data(), text.size(), text.capacity()).get(document) !=
          simdjson::SUCCESS ||
      document.find_field_unordered("schema").get_double().get(schema) != simdjson::SUCCESS) {
    throw PriceDataError::unreadable(country);
  }
  if (schema > kNewestSchema) throw PriceDataError::newer();
  ondemand::value made;
  if (isThere(document.find_field_unordered("generatedAt").get(made), simdjson::NO_SUCH_FIELD)) {
    stamp = SeedText(rawText(made)).text().value_or("");
  }
  findApps();
}

void PriceSeedReader::State::findApps() {
  ondemand::array apps;
  if (document.find_field_unordered("storefront").find_field_unordered("apps").get(apps) !=
      simdjson::SUCCESS) {
    throw PriceDataError::unreadable(country);
  }
  app = apps.begin();
  end = apps.end();
}

bool PriceSeedReader::State::readEntry(ondemand::value item) {
  entry = {};
  points.clear();
  ondemand::object object;
  if (!isThere(item.get_object().get(object), simdjson::INCORRECT_TYPE)) return false;
  for (auto next : object) {
    ondemand::field field = step(std::move(next));
    switch (letterOf(field.key())) {
      case 'a': entry.trackId = trackIdOf(field.value()); break;
      case 'n': entry.name = SeedText(rawText(field.value())); break;
      case 's': entry.seller = SeedText(rawText(field.value())); break;
      case 'c': entry.currency = SeedText(rawText(field.value())); break;
      case 'k': entry.kind = SeedText(rawText(field.value())); break;
      case 'p': readPoints(field.value()); break;
      default: break;
    }
  }
  putInOrder(points);
  return entry.trackId > 0 && !points.empty();
}

void PriceSeedReader::State::readPoints(ondemand::value value) {
  points.clear();
  ondemand::array list;
  if (!isThere(value.get_array().get(list), simdjson::INCORRECT_TYPE)) return;
  for (auto item : list) readPoint(step(item));
}

void PriceSeedReader::State::readPoint(ondemand::value item) {
  ondemand::object object;
  if (!isThere(item.get_object().get(object), simdjson::INCORRECT_TYPE)) return;
  std::optional<std::chrono::sys_days> day;
  double price = -1;
  for (auto next : object) {
    ondemand::field field = step(std::move(next));
    const char letter = letterOf(field.key());
    if (letter == 'd') day = parseDay(rawText(field.value()));
    if (letter == 'v' && field.value().get_double().get(price) != simdjson::SUCCESS) price = -1;
  }
  const bool real = day && price >= 0 && price <= kLargestPrice;
  if (real && points.size() < kMostPoints) points.push_back({*day, price});
}

PriceSeedReader::PriceSeedReader(std::string text, std::string country)
    : state_(std::make_unique<State>(std::move(text), std::move(country))) {
  state_->open();
}

PriceSeedReader::~PriceSeedReader() = default;
PriceSeedReader::PriceSeedReader(PriceSeedReader&&) noexcept = default;
PriceSeedReader& PriceSeedReader::operator=(PriceSeedReader&&) noexcept = default;

const std::string& PriceSeedReader::stamp() const { return state_->stamp; }

std::optional<Instant> PriceSeedReader::generatedAt() const {
  return parseInternetDate(state_->stamp);
}

bool PriceSeedReader::next() {
  State& state = *state_;
  for (;;) {
    if (state.place == State::Place::inside) ++state.app;
    state.place = State::Place::inside;
    if (!(state.app != state.end)) break;
    if (state.readEntry(state.step(*state.app))) {
      ++state.count;
      return true;
    }
  }
  if (state.count == 0) throw PriceDataError::empty(state.country);
  return false;
}

const PriceSeed::Entry& PriceSeedReader::entry() const { return state_->entry; }

std::span<const PriceSeed::Point> PriceSeedReader::points() const { return state_->points; }

}  // namespace quillet
