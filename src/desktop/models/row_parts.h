// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <optional>
#include <string>
#include <vector>

#include "analysis/maintenance_health.h"
#include "desktop/models/app_row.h"
#include "library/cached_summary.h"
#include "library/schema/watched_app.h"
#include "system/locale_formats.h"
#include "system/time_zone.h"

namespace quillet {

/// What rows are made with besides their records. A copy goes to the library's thread.
struct RowContext {
  Instant now{};
  UtcOffsetAt zone;
  UserLocale locale;
  MaintenanceThresholds thresholds;
};

/// A text from outside as one line: without control characters and overrides of direction.
[[nodiscard]] QString plainLine(const std::string& text);
[[nodiscard]] QString plainLine(const std::optional<std::string>& text);

/// So many bytes of a text at most, and no part of a character.
[[nodiscard]] std::string beginningOf(const std::string& text, std::size_t most);

/// A text of the store as it is shown, with its lines: plain, without what would turn or hide the
/// texts around it, and no longer than a page bears.
[[nodiscard]] QString plainLines(const std::string& text);

/// As much of a note as is shown: notes may be as long as their users like.
[[nodiscard]] QString shownNote(const QString& note);

/// An app's name likewise; one that has none gets words that say so.
[[nodiscard]] QString nameLine(const std::string& name);
[[nodiscard]] QString searchLine(const std::string& name);
[[nodiscard]] QString collectionLine(const std::string& name);

/// "Mac", "iPhone", "iPad": names, the same in each language.
[[nodiscard]] QString platformText(Platform platform);

/// `text` as the store wrote the price, else the amount in the user's form; without either empty.
[[nodiscard]] PriceCell priceCell(const std::optional<std::string>& text,
                                  std::optional<double> amount,
                                  const std::optional<std::string>& currency,
                                  const LocaleFormats& formats);
/// Of a store's record, which is of a free app where it names neither a price nor a text for it.
[[nodiscard]] PriceCell recordPrice(const std::optional<std::string>& text,
                                    std::optional<double> amount,
                                    const std::optional<std::string>& currency,
                                    const LocaleFormats& formats);

/// The price of a watched app, unknown where the store did not tell it yet.
[[nodiscard]] PriceCell watchedPrice(const WatchedApp& app, const LocaleFormats& formats);

/// Another amount in that currency, written as that price is: "159,99 €" beside "199,99 €"; as the
/// user writes amounts where that cannot be told.
[[nodiscard]] QString amountLike(const PriceCell& shown, double amount,
                                 const LocaleFormats& formats);

/// Down or up, or none for prices that are the same.
[[nodiscard]] PriceMove moveOf(double before, double now);

/// What lists of apps have in common: key, platform, name, seller, picture.
template <typename App>
[[nodiscard]] AppRow rowOfApp(const App& app);

/// What the cache adds: the rating in half stars, a picture where the record has none.
void addCached(AppRow& row, const std::optional<CachedSummary>& cached);

[[nodiscard]] std::vector<AppKey> appsOf(const std::vector<LateRow>& rows);

/// What apps cost when their rows were added, for rows that show how that moved. Of those whose
/// price then is unknown there is nothing.
[[nodiscard]] std::vector<LateFacts> pricesWhenAdded(SQLite::Database& database,
                                                     const std::vector<LateRow>& rows);

/// Sets whether the price of the row is another one than it was when the row was added.
void takeMove(AppRow& row, const LateFacts& facts);

/// "−50 %", "+150 %"; empty where there is nothing to divide by.
[[nodiscard]] QString percentText(double before, double now);

template <typename App>
AppRow rowOfApp(const App& app) {
  AppRow row;
  row.key.app = keyOf(app);
  row.platform = valueOf(kPlatformWords, app.platformRaw).value_or(Platform::iphone);
  row.name = nameLine(app.name);
  row.seller = plainLine(app.sellerName);
  row.artwork = app.artworkUrl.value_or("");
  return row;
}

}  // namespace quillet
