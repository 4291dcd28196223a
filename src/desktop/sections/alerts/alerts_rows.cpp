// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/alerts/alerts_rows.h"

#include <array>

#include "base/enum_index.h"
#include "desktop/models/time_words.h"
#include "library/alerts.h"
#include "library/price_alerts.h"

namespace quillet {

namespace {

constexpr std::int64_t kMostShown = 10'000;

constexpr std::array kSorts{
    SortChoice{"newest", QT_TRANSLATE_NOOP("Rows", "Newest"),
               [](const AppRow& left, const AppRow& right) {
                 return std::tie(left.added, left.key.row) > std::tie(right.added, right.key.row);
               }},
};

constexpr std::array kChips{
    ChipChoice{"unread", QT_TRANSLATE_NOOP("Rows", "Unread"), RowMark::unread},
    ChipChoice{"drops", QT_TRANSLATE_NOOP("Rows", "Price drops"), RowMark::priceAlert},
    ChipChoice{"free", QT_TRANSLATE_NOOP("Rows", "Free"), RowMark::freeAlert},
    ChipChoice{"target", QT_TRANSLATE_NOOP("Rows", "Target"), RowMark::targetAlert},
    ChipChoice{"versions", QT_TRANSLATE_NOOP("Rows", "Versions"), RowMark::versionAlert},
    ChipChoice{"purchases", QT_TRANSLATE_NOOP("Rows", "In-app prices"), RowMark::purchaseAlert},
};

/// How a kind of alert is shown.
struct AlertLook {
  AlertKind kind;
  const char* icon;
  RowTone tone;
  RowMark mark;
};

constexpr std::array<AlertLook, 6> kLooks{{
    {AlertKind::priceDrop, "arrow-down-circle-fill", RowTone::good, RowMark::priceAlert},
    {AlertKind::wentFree, "gift-fill", RowTone::good, RowMark::freeAlert},
    {AlertKind::targetReached, "bullseye", RowTone::mine, RowMark::targetAlert},
    {AlertKind::newVersion, "arrow-up-circle", RowTone::quiet, RowMark::versionAlert},
    {AlertKind::purchaseDrop, "bag-fill", RowTone::good, RowMark::purchaseAlert},
    {AlertKind::purchaseRise, "bag-fill", RowTone::bad, RowMark::purchaseAlert},
}};

void addEvent(AppRow& row, const PriceAlertEvent& event) {
  const AlertLook& look = kLooks[indexOf(event.kind)];
  row.title = plainLine(titleOf(event));
  row.detail = plainLine(bodyOf(event));
  row.detailIcon = QString::fromLatin1(look.icon);
  row.detailTone = look.tone;
  row.marks |= look.mark;
}

std::vector<AppRow> readRows(SQLite::Database& database, const RowContext& context) {
  std::vector<AppRow> rows;
  for (const AlertRecord& alert : newestAlerts(database, kMostShown))
    rows.push_back(alertRow(alert, context));
  return rows;
}

TouchedRows touchedBy(const LibraryChanges& changes) {
  if (changes.alerts.empty()) return NoRows{};
  return AllRows{};
}

}  // namespace

AppRow alertRow(const AlertRecord& alert, const RowContext& context) {
  AppRow row;
  row.key = {keyOf(alert), alert.id};
  row.platform = valueOf(kPlatformWords, alert.platformRaw).value_or(Platform::iphone);
  row.name = nameLine(alert.appName);
  row.artwork = alert.artworkUrl.value_or("");
  // An alert of a kind that a newer build told shows its app and its time.
  if (const auto event = eventOf(alert)) addEvent(row, *event);
  row.marks.setFlag(RowMark::unread, !alert.isRead);
  row.added = alert.date;
  row.day = dayHeading(alert.date, context.now, context.zone);
  row.time = momentText(alert.date, context.now, context.zone);
  row.folded = foldedText({row.name, row.title, row.detail});
  return row;
}

RowSource alertsSource(const RowContext& context) {
  return {.all = [context](auto& database) { return readRows(database, context); },
          .touched = touchedBy};
}

RowTable alertsTable() {
  return {.layout = {.hasDays = true, .hasGutter = true},
          .sorts = kSorts,
          .chips = kChips,
          .empty = {"bell", QT_TRANSLATE_NOOP("Rows", "No alerts yet."),
                    QT_TRANSLATE_NOOP("Rows", "They appear here when a watched app changes."),
                    QT_TRANSLATE_NOOP("Rows", "Watchlist"), "go-watchlist"},
          .count = {QT_TRANSLATE_NOOP("Rows", "1 alert"), QT_TRANSLATE_NOOP("Rows", "%1 alerts")}};
}

}  // namespace quillet
