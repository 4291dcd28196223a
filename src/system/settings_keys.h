// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "system/settings.h"

namespace quillet {

// Every key of the settings, with its default and range. The keys are stored; never change them.

struct TextSetting {
  std::string_view key;
  std::string_view fallback;
};

struct FlagSetting {
  std::string_view key;
  bool fallback;
};

/// A stored value of 0 or below means not set; others are clamped into the range.
struct WholeSetting {
  std::string_view key;
  std::int64_t fallback;
  std::int64_t lowest = 1;
  std::int64_t highest = std::numeric_limits<std::int64_t>::max();
};

/// Two letters; without one the locale decides.
inline constexpr TextSetting kStorefrontCountry{"storefrontCountry", ""};

/// Where new searches begin: "mac", "iphone" or "ipad".
inline constexpr TextSetting kDefaultPlatform{"defaultPlatform", "mac"};
/// Whether apps that were looked at are remembered.
inline constexpr FlagSetting kKeepHistory{"keepHistory", true};

inline constexpr TextSetting kITunesUrl{"itunesURL", "https://itunes.apple.com"};
inline constexpr TextSetting kAppStoreUrl{"appStoreURL", "https://apps.apple.com"};
/// Without one it is the folder that the collector fills.
inline constexpr TextSetting kPriceDataUrl{"priceDataURL", ""};

/// The settings window offers 1, 2, 4, 6, 12 and 24; any other number counts as well. A century of
/// hours is the most that is added to a time.
inline constexpr WholeSetting kPriceCheckIntervalHours{"priceCheckIntervalHours", 4, 1, 876'000};

/// What apps that are watched from now on alert on.
inline constexpr FlagSetting kWatchAnyDrop{"watchAnyDrop", true};
inline constexpr FlagSetting kWatchFree{"watchFree", true};
inline constexpr FlagSetting kWatchNewVersion{"watchNewVersion", false};
inline constexpr FlagSetting kWatchPurchases{"watchPurchases", true};
/// Whether prices are checked where the network counts what it carries.
inline constexpr FlagSetting kCheckOnMetered{"checkOnMetered", false};
/// Days; without one they are kept for good.
inline constexpr WholeSetting kKeepAlertsDays{"keepAlertsDays", 0, 1, 36'500};

/// Whether published price data is read by itself, and the top charts are recorded each day.
inline constexpr FlagSetting kImportPriceData{"importPriceData", true};
inline constexpr FlagSetting kRecordCharts{"recordCharts", true};
/// Folders with installed applications, one a line; without any the platform's count.
inline constexpr TextSetting kApplicationsFolders{"applicationsFolders", ""};
/// Whether they are scanned when the application starts.
inline constexpr FlagSetting kScanAtStart{"scanAtStart", true};
/// Bundle IDs, parted by ",", of installed applications that a scan passes over.
inline constexpr TextSetting kIgnoredBundles{"ignoredBundles", ""};
/// Whether Quillet looks for its own new releases. Off where a package manager installed it.
inline constexpr FlagSetting kCheckForUpdates{"checkForUpdates", true};
/// The list of releases; without one nothing is looked for.
inline constexpr TextSetting kUpdateFeedUrl{"updateFeedURL", ""};
/// Megabytes of pictures on the disk.
inline constexpr WholeSetting kImageCacheMB{"imageCacheMB", 256, 16, 16'384};

/// Months since the last release. The three strictly increase: each one's lowest value is one more
/// than the value before it, which whoever reads them together sees to.
inline constexpr FlagSetting kShowMaintenanceRating{"showMaintenanceRating", true};
inline constexpr WholeSetting kSlowingAfterMonths{"maintenanceSlowingAfterMonths", 6, 1, 118};
inline constexpr WholeSetting kStaleAfterMonths{"maintenanceStaleAfterMonths", 12, 2, 119};
inline constexpr WholeSetting kAbandonedAfterMonths{"maintenanceAbandonedAfterMonths", 24, 3, 120};

/// "light" or "dark"; anything else is as the desktop has it.
inline constexpr TextSetting kAppearance{"appearance", "system"};
/// The size of all texts.
inline constexpr WholeSetting kTextPercent{"textPercent", 100, 85, 200};
/// "on" or "off"; anything else is as the desktop has it.
inline constexpr TextSetting kReduceMotion{"reduceMotion", "system"};

/// Block names joined by ",", each with a leading "-" where it is hidden.
inline constexpr TextSetting kDetailSectionLayout{"detailSectionLayout", ""};
/// Where the desktop has a tray.
inline constexpr FlagSetting kShowMenuBarExtra{"showMenuBarExtra", true};
/// Whether what goes on by itself goes on when the window is closed, where there is a tray.
inline constexpr FlagSetting kKeepRunning{"keepRunning", true};
/// A flag; without one the user was not asked yet.
inline constexpr TextSetting kNotificationsEnabled{"notificationsEnabled", ""};

// What the importer of price data remembers. The three prefixes are followed by a country code.
inline constexpr TextSetting kPriceSeedPublishedStorefronts{"priceSeedPublishedStorefronts", ""};
inline constexpr TextSetting kPriceSeedImportedStamp{"priceSeedImportedStamp", ""};
inline constexpr std::string_view kPriceSeedLastWebCheckPrefix = "priceSeedLastWebCheck.";
inline constexpr std::string_view kPriceSeedLookedAtPrefix = "priceSeedLookedAt.";
inline constexpr std::string_view kPriceSeedRemoteStampPrefix = "priceSeedRemoteStamp.";

[[nodiscard]] std::int64_t readSetting(const Settings& settings, const WholeSetting& setting);
[[nodiscard]] bool readSetting(const Settings& settings, const FlagSetting& setting);

/// What the user answered; absent before they were asked.
[[nodiscard]] std::optional<bool> notificationsEnabled(const Settings& settings);

/// The chosen storefront in lower case; absent unless it is two letters.
[[nodiscard]] std::optional<std::string> storefrontCountry(const Settings& settings);

/// What is set as the storefront without being a country's code; absent where nothing is set.
[[nodiscard]] std::optional<std::string> unknownStorefront(const Settings& settings);

/// Whether `text` is two ASCII letters, as country codes are.
[[nodiscard]] bool isTwoLetters(std::string_view text);

}  // namespace quillet
