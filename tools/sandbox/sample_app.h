// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/dates.h"
#include "base/enum_index.h"
#include "base/enum_table.h"
#include "sandbox/storefronts.h"

namespace quillet::sandbox {

/// A person or company that sells apps.
struct Maker {
  std::int64_t id = 0;
  std::string seller;  ///< the legal name
  std::string artist;  ///< the name shown on the store
  std::string site;    ///< empty: none
};

/// The machines that an app's builds run on. A Mac build and an iOS build under one ID are a
/// universal purchase.
struct Machines {
  bool mac = false;
  bool iphone = false;
  bool ipad = false;

  [[nodiscard]] bool ios() const { return iphone || ipad; }
};

inline constexpr Machines kMac{.mac = true};
inline constexpr Machines kIphone{.iphone = true};
inline constexpr Machines kIpad{.ipad = true};
inline constexpr Machines kIos{.iphone = true, .ipad = true};
inline constexpr Machines kMacAndIos{.mac = true, .iphone = true, .ipad = true};

/// The three shelves of the store.
enum class Shelf { mac, iphone, ipad };

inline constexpr EnumTable<Shelf, 3> kShelfWords{{
    {Shelf::mac, "mac"},
    {Shelf::iphone, "iphone"},
    {Shelf::ipad, "ipad"},
}};
static_assert(isComplete(kShelfWords, Shelf::ipad));

[[nodiscard]] bool runsOn(const Machines& machines, Shelf shelf);

enum class MacBuild { universal, intelOnly, siliconOnly };

/// What a search answer says of a Mac app's ratings. Mostly it says nothing, whatever they are.
enum class MacRatings { shown, zero, absent };

struct SampleVersion {
  std::string number;
  Instant released;
  std::string notes;
};

struct SampleRatings {
  std::array<std::int64_t, 5> histogram{};  ///< from one star to five

  [[nodiscard]] std::int64_t count() const;
  /// 0 without ratings.
  [[nodiscard]] double average() const;
};

struct SamplePurchase {
  std::string productId;
  std::string name;
  std::string details;
  int usCents = 0;
  std::string period;  ///< ISO 8601 duration of one billing period; empty: bought once
  bool familyShareable = false;

  [[nodiscard]] bool isSubscription() const { return !period.empty(); }
};

struct SampleScreenshots {
  int mac = 0;
  int iphone = 0;
  int ipad = 0;
};

/// What is settled of an app from the beginning.
struct AppFacts {
  std::int64_t id = 0;
  std::string name;
  std::string tagline;
  std::string bundleId;
  Maker maker;
  Machines machines = kMac;
  std::vector<int> genres;  ///< category numbers, the main one first; never empty
  int usCents = 0;          ///< one of the price points
  bool hidesPrice = false;  ///< records lack the price, its text and the size
  StorefrontSet storefronts = kEverywhere;
  std::string minimumMac = "12.0";
  std::string minimumIos = "15.0";
  MacBuild macBuild = MacBuild::universal;
  MacRatings macRatings = MacRatings::zero;
  std::vector<SamplePurchase> purchases;
  std::vector<std::string> languages = {"EN"};  ///< two letters, upper case
  std::string contentRating = "4+";
  std::string badge;  ///< the editors'; empty: none

  [[nodiscard]] bool isSoldIn(Storefront storefront) const {
    return storefronts.test(indexOf(storefront));
  }
};

/// Everything that the store knows of one app: what the search service tells, and what it hides
/// and other services tell.
struct SampleApp : AppFacts {
  std::int64_t macBytes = 0;
  std::int64_t iosBytes = 0;
  std::vector<SampleVersion> versions;  ///< newest first; never empty
  Instant firstReleased;
  SampleRatings ratings;
  std::string description;
  SampleScreenshots screenshots;
  bool hidesMacScreenshots = false;  ///< records lack those that the store's page shows
  bool hasGameCenter = false;
  bool iosBuildRunsOnMac = false;
};

}  // namespace quillet::sandbox
