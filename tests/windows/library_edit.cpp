// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// Writes libraries for the tests from outside and for benchmarks, by the data store's own
// operations:
//
//   library_edit LIBRARY fill APPS                   makes it, with so many watched apps
//   library_edit LIBRARY hostile                     makes it, with texts that break layouts
//   library_edit LIBRARY price ID COUNTRY PRICE      what a price check finds of a watched app
//   library_edit LIBRARY add ID COUNTRY NAME PRICE   watches an app
//   library_edit LIBRARY remove ID COUNTRY           watches it no longer
//   library_edit LIBRARY point ID COUNTRY PRICE CURRENCY DAYS   a price that was seen so many days
//   ago
//
// The last four also write while an application has the library open.

#include <fmt/format.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/numbers.h"
#include "library/alerts.h"
#include "library/cached_apps.h"
#include "library/collections.h"
#include "library/library_connection.h"
#include "library/owned_apps.h"
#include "library/recorded_history.h"
#include "library/storefront_check.h"
#include "library/watched_apps.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;
using std::chrono::days;
using Words = std::vector<std::string>;

constexpr std::int64_t kFirstId = 1'000'000'001;
constexpr std::chrono::milliseconds kPatience = 5s;  // for the application's own transactions

Instant now() {
  return std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now());
}

std::string dollars(double price) { return fmt::format("${:.2f}", price); }

// ---- A large library

constexpr std::array kFirstWords{"Amber",  "Brisk",  "Copper", "Dusty",  "Ember",
                                 "Fallow", "Gentle", "Hollow", "Indigo", "Juniper"};
constexpr std::array kSecondWords{"Ledger", "Notebook", "Sketch", "Timer", "Mail",  "Reader",
                                  "Atlas",  "Planner",  "Player", "Ruler", "Garden"};
constexpr int kPointsEach = 6;

/// Bytes that a library of real apps has, and that a list must not keep in memory.
const std::string& description() {
  static const std::string text = [] {
    std::string long_;
    while (long_.size() < 2000) long_ += "Keeps what you write in plain files that stay yours. ";
    return long_;
  }();
  return text;
}

double firstPrice(std::int64_t number) { return 4.99 + static_cast<double>(number % 12); }

/// A third have become cheaper since they were watched, a seventh dearer.
double presentPrice(std::int64_t number) {
  if (number % 3 == 0) return firstPrice(number) - 3;
  return number % 7 == 0 ? firstPrice(number) + 2 : firstPrice(number);
}

WatchedApp watched(std::int64_t number) {
  WatchedApp app;
  app.trackId = kFirstId + number;
  app.country = "us";
  app.platformRaw = number % 4 == 0 ? "iphone" : "mac";
  app.name = fmt::format("{} {} {}", kFirstWords[number % kFirstWords.size()],
                         kSecondWords[number % kSecondWords.size()], number);
  app.sellerName = fmt::format("Sample Seller {}", number % 700);
  app.artworkUrl = fmt::format("https://pictures.example/icon/{}/512x512bb.png", number);
  app.trackViewUrl = fmt::format("https://apps.example/us/app/id{}", app.trackId);
  app.currency = "USD";
  app.priceWhenAdded = firstPrice(number);
  app.currentPrice = presentPrice(number);
  app.formattedPrice = dollars(app.currentPrice);
  app.lastKnownVersion = fmt::format("3.{}", number % 20);
  // Not the order in which the rows lie, and no two at once.
  app.addedAt = now() - days(400) + (number * 7919 % 10'007) * 1min + number * 1s;
  app.lastCheckedAt = now() - 10min;
  app.alertOnAnyDrop = true;
  if (number % 3 == 1) app.targetPrice = 1.99;
  return app;
}

CachedApp cached(const WatchedApp& app, std::int64_t number) {
  CachedApp row;
  row.trackId = app.trackId;
  row.country = app.country;
  row.name = app.name;
  row.sellerName = app.sellerName;
  row.price = app.currentPrice;
  row.formattedPrice = app.formattedPrice;
  row.currency = app.currency;
  row.rating = 2.5 + static_cast<double>(number % 6) / 2;
  row.ratingCount = number % 5000;
  row.version = app.lastKnownVersion;
  row.currentVersionReleaseDate = now() - days(number % 900);
  row.appDescription = description();
  row.primaryGenreName = "Productivity";
  row.artworkUrl512 = app.artworkUrl;
  row.updatedAt = now() - 10min;
  return row;
}

void addPoints(std::vector<PricePoint>& points, const WatchedApp& app) {
  for (int step = 0; step < kPointsEach; ++step) {
    const bool isLast = step + 1 == kPointsEach;
    const double price = isLast ? app.currentPrice : app.priceWhenAdded + step % 2;
    const Instant date = now() - days(360 - 60 * step);
    points.push_back({0, app.trackId, app.country, price, app.currency, date, false});
  }
}

void fill(WriteTransaction& transaction, std::int64_t apps) {
  std::vector<WatchedApp> rows;
  std::vector<CachedApp> known;
  std::vector<PricePoint> points;
  for (std::int64_t number = 0; number < apps; ++number) {
    rows.push_back(watched(number));
    known.push_back(cached(rows.back(), number));
    addPoints(points, rows.back());
  }
  watchApps(transaction, rows);
  refreshCachedApps(transaction, known);
  addPricePoints(transaction, points);
}

// ---- Texts that break layouts

Words hostileTexts() {
  std::string stacked = "Z";
  for (int i = 0; i < 40; ++i) stacked += "\u0335\u0301\u0327";
  return {std::string(500, 'W'),
          std::string(250, ' ') + "after many blanks",
          "\u202Egnp.exe is shown backwards",
          "\u2067isolated\u2066\u202Dand never closed",
          "two\nlines\r\nand\ttabs\vand\fpages",
          "<b>bold</b><br><img src=\"http://127.0.0.1:1/x.png\"> &amp; <a href=\"x\">link</a>",
          "&File && \"quoted\" %1 %2 %n {} \\n",
          "שלום עולם with Latin, العربية, and 日本語の名前",
          "👩‍👩‍👧‍👦🏳️‍🌈 family and flag",
          stacked,
          "\xff\xfe not UTF-8 \xc3",
          "\u200b\u200d\ufeff",
          " ",
          ""};
}

WatchedApp watchedAs(const std::string& text, std::int64_t number) {
  WatchedApp app = watched(number);
  app.name = text;
  app.sellerName = text;
  return app;
}

OwnedApp ownedAs(const std::string& text, std::int64_t number) {
  OwnedApp app;
  app.trackId = kFirstId + number;
  app.country = "us";
  app.platformRaw = "mac";
  app.name = text;
  app.sellerName = text;
  app.sourceRaw = textOf(kOwnedSourceTexts, OwnedSource::manual);
  app.addedAt = now() - days(number);
  app.installedVersion = text;
  app.storeVersion = text;
  app.installedPath = text;
  app.primaryGenreName = text;
  return app;
}

AlertRecord alertAs(const std::string& text, std::int64_t number) {
  AlertRecord alert;
  alert.trackId = kFirstId + number;
  alert.country = "us";
  alert.platformRaw = "mac";
  alert.appName = text;
  alert.kindRaw = textOf(kAlertKindTexts, AlertKind::priceDrop);
  alert.oldPriceText = text;
  alert.newPriceText = text;
  alert.date = now() - number * 1h;
  return alert;
}

CollectionEntry entryAs(const std::string& text, std::int64_t number) {
  CollectionEntry entry;
  entry.trackId = kFirstId + number;
  entry.country = "us";
  entry.platformRaw = "mac";
  entry.name = text;
  entry.sellerName = text;
  entry.note = text;
  entry.addedAt = now() - days(number);
  return entry;
}

/// Each text as everything that a list shows: of a watched, an owned, a collected and a viewed app,
/// of an alert, and of a collection.
void fillHostile(WriteTransaction& transaction) {
  std::vector<CollectionEntry> entries;
  std::int64_t number = 0;
  for (const std::string& text : hostileTexts()) {
    const WatchedApp app = watchedAs(text, ++number);
    watchApps(transaction, {app});
    CachedApp view = cached(app, number);
    view.tagline = text;
    view.appDescription = text;
    view.primaryGenreName = text;
    recordView(transaction, view, now() - number * 1h);
    addOwnedApps(transaction, {ownedAs(text, number)});
    addAlerts(transaction, {alertAs(text, number)});
    addCollection(transaction, {0, text, text, now() - days(number)});
    entries.push_back(entryAs(text, number));
  }
  addEntries(transaction, addCollection(transaction, {0, "Hostile", "folder", now()}), entries);
}

// ---- Changes of a library that is open

void checkPrice(WriteTransaction& transaction, std::int64_t id, const std::string& country,
                double price) {
  const auto rows = watchedAppsOf(transaction.database, {{id, country}});
  if (rows.empty()) throw std::runtime_error("that app is not watched");
  ITunesApp found;
  found.trackId = id;
  found.trackName = rows.front().name;
  found.sellerName = rows.front().sellerName;
  found.currency = rows.front().currency;
  found.price = price;
  found.formattedPrice = dollars(price);
  if (rows.front().platformRaw == "mac") found.kind = std::string(kMacSoftwareKind);
  recordStorefrontCheck(transaction,
                        {.country = country,
                         .when = now(),
                         .asked = {id},
                         .found = {found},
                         .purchases = {},
                         .priceText = [](double amount, const auto&) { return dollars(amount); }});
}

void watch(WriteTransaction& transaction, std::int64_t id, const Words& words, double price) {
  WatchedApp app = watched(0);
  app.trackId = id;
  app.country = words[0];
  app.name = words[1];
  app.currentPrice = app.priceWhenAdded = price;
  app.formattedPrice = dollars(price);
  app.addedAt = now();
  if (watchApps(transaction, {app}).empty()) throw std::runtime_error("it is watched already");
}

/// Beside the application, which holds the lock of the one writer: SQLite keeps the two apart.
template <typename Operation>
void changeOpen(const std::string& file, Operation operation) {
  SQLite::Database database(file, SQLite::OPEN_READWRITE, static_cast<int>(kPatience.count()));
  SQLite::Transaction transaction(database, SQLite::TransactionBehavior::IMMEDIATE);
  WriteTransaction work{database, {}};
  operation(work);
  transaction.commit();
}

template <typename Operation>
void make(const std::string& file, Operation operation) {
  LibraryChanges changes;
  LibraryConnection(file).change(changes, operation);
}

std::int64_t whole(const std::string& word) {
  const auto number = parseWhole(word);
  if (!number) throw std::runtime_error(word + " is no whole number");
  return *number;
}

struct Command {
  std::string_view word;
  std::size_t arguments;
  void (*run)(const std::string& file, const Words& words);
};

constexpr Command kCommands[] = {
    {"fill", 1,
     [](const std::string& file, const Words& words) {
       make(file, [&](WriteTransaction& work) { fill(work, whole(words[0])); });
     }},
    {"hostile", 0, [](const std::string& file, const Words&) { make(file, fillHostile); }},
    {"price", 3,
     [](const std::string& file, const Words& words) {
       changeOpen(file, [&](WriteTransaction& work) {
         checkPrice(work, whole(words[0]), words[1], std::stod(words[2]));
       });
     }},
    {"add", 4,
     [](const std::string& file, const Words& words) {
       changeOpen(file, [&](WriteTransaction& work) {
         watch(work, whole(words[0]), {words[1], words[2]}, std::stod(words[3]));
       });
     }},
    {"point", 5,
     [](const std::string& file, const Words& words) {
       changeOpen(file, [&](WriteTransaction& work) {
         const Instant date = now() - days(whole(words[4]));
         addPricePoints(
             work, {{0, whole(words[0]), words[1], std::stod(words[2]), words[3], date, false}});
       });
     }},
    {"remove", 2,
     [](const std::string& file, const Words& words) {
       changeOpen(
           file, [&](WriteTransaction& work) { unwatchApps(work, {{whole(words[0]), words[1]}}); });
     }},
};

int run(const Words& words) {
  for (const Command& command : kCommands) {
    if (words.size() != command.arguments + 2 || words[1] != command.word) continue;
    command.run(words[0], {words.begin() + 2, words.end()});
    return 0;
  }
  fmt::print(stderr, "library_edit: see the head of its source for what it takes\n");
  return 2;
}

}  // namespace
}  // namespace quillet

int main(int argc, char** argv) {
  try {
    return quillet::run({argv + 1, argv + argc});
  } catch (const std::exception& error) {
    fmt::print(stderr, "library_edit: {}\n", error.what());
    return 1;
  }
}
