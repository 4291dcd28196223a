// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT
//
// Writes a storefront's price file to standard output: price_file [APPS]. Every app has five points
// on average, from two to eight, as a year of sales leaves them; a third of the apps are on sale
// today. Numbers come in no order, as from a store, and every name is made up. Equal arguments give
// equal bytes.

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <set>
#include <string>
#include <string_view>

#include "base/dates.h"

namespace {

using quillet::formatDay;

using std::chrono::sys_days;

constexpr sys_days kToday = std::chrono::year{2026} / 11 / 20;
constexpr std::int64_t kKnownApp = 1480068668;  // so that a benchmark can ask for one
constexpr std::array<std::string_view, 8> kPrices{"0",    "0.99", "1.99",  "2.99",
                                                  "4.99", "9.99", "19.99", "49.99"};
constexpr std::array<std::string_view, 10> kFirst{"Amber", "Birch", "Cove",   "Drift",   "Ember",
                                                  "Fjord", "Grove", "Harbor", "Inkwell", "Juniper"};
constexpr std::array<std::string_view, 10> kSecond{"Notes", "Tables", "Sketch", "Ledger", "Garden",
                                                   "Atlas", "Chord",  "Lens",   "Tasks",  "Dice"};

/// The same everywhere, unlike the library's distributions.
class Random {
 public:
  std::uint64_t below(std::uint64_t bound) { return engine_() % bound; }
  template <typename List>
  auto pick(const List& list) {
    return list[below(list.size())];
  }

 private:
  std::mt19937_64 engine_{1};
};

std::string pointsText(Random& random) {
  const std::size_t regular = 2 + random.below(kPrices.size() - 2);
  const std::size_t reduced = random.below(regular);
  const std::size_t count = 2 + random.below(7);
  std::set<std::uint64_t> agos;
  while (agos.size() < count) agos.insert(random.below(365));
  bool onSale = (random.below(3) == 0) == (count % 2 == 1);
  std::string text;
  for (auto ago = agos.rbegin(); ago != agos.rend(); ++ago, onSale = !onSale) {
    text += fmt::format(R"({}{{"d":"{}","v":{}}})", text.empty() ? "" : ",",
                        formatDay(kToday - std::chrono::days(*ago)),
                        kPrices[onSale ? reduced : regular]);
  }
  return text;
}

std::string appText(std::int64_t trackId, Random& random) {
  const auto first = random.pick(kFirst);
  const auto second = random.pick(kSecond);
  const auto number = 1 + random.below(9999);
  const auto seller = random.pick(kFirst);
  const auto kind = random.below(5) == 0 ? "mac-software" : "software";
  return fmt::format(
      R"({{"a":"{}","n":"{} {} {}","s":"{} & Daughters","c":"USD","k":"{}","p":[{}]}})", trackId,
      first, second, number, seller, kind, pointsText(random));
}

}  // namespace

int main(int argc, char** argv) {
  const long apps = argc > 1 ? std::strtol(argv[1], nullptr, 10) : 200'000;
  Random random;
  fmt::print(R"({{"schema":1,"generatedAt":"{}T03:00:00Z","storefront":{{"country":"us","apps":[)",
             formatDay(kToday));
  for (long i = 1; i < apps; ++i) {
    const auto trackId = static_cast<std::int64_t>(300'000'000 + random.below(1'000'000'000));
    fmt::print("{},", appText(trackId, random));
  }
  fmt::print("{}]}}}}\n", appText(kKnownApp, random));
}
