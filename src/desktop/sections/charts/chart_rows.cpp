// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/charts/chart_rows.h"

#include <QCoreApplication>
#include <array>

#include "desktop/models/row_parts.h"
#include "desktop/models/time_words.h"
#include "desktop/store_lists/store_answer.h"
#include "library/schema/chart_key.h"

namespace quillet {

namespace {

constexpr std::array kChips{
    ChipChoice{"new", QT_TRANSLATE_NOOP("Rows", "New"), RowMark::isNewInChart},
    ChipChoice{"rising", QT_TRANSLATE_NOOP("Rows", "Rising"), RowMark::rising},
    ChipChoice{"paid", QT_TRANSLATE_NOOP("Rows", "Paid"), RowMark::paid},
    ChipChoice{"at-lowest", QT_TRANSLATE_NOOP("Rows", "At lowest"), RowMark::atLowest},
    ChipChoice{"not-owned", QT_TRANSLATE_NOOP("Rows", "Not owned"), RowMark::notOwned},
};

QString tr(const char* text) { return QCoreApplication::translate("Charts", text); }

/// Its category, and what the app is to the user.
QString detailOf(const AppRow& row, const ITunesApp& app, const FoundInLibrary& library) {
  QStringList parts{plainLine(app.primaryGenreName)};
  if (library.owned.contains(app.trackId)) parts << tr("owned");
  if (library.watched.contains(row.key.app)) parts << tr("watched");
  parts.removeAll(QString());
  return parts.join(QStringLiteral(" · "));
}

void addPlace(AppRow& row, const KnownChart& chart, std::size_t rank) {
  row.movement = chart.changeOf(row.key.app.trackId, rank);
  const auto moved = [&](ChartMovement how) {
    return row.movement && row.movement->movement == how;
  };
  row.marks.setFlag(RowMark::isNewInChart, moved(ChartMovement::isNew));
  row.marks.setFlag(RowMark::rising, moved(ChartMovement::up));
  if (const auto best = chart.bestOf(row.key.app.trackId, rank))
    row.aside = tr("best #%1").arg(*best);
}

}  // namespace

AppRow chartRow(const FoundApps& found, std::size_t position, const RowKey& key,
                const FoundContext& context) {
  const ITunesApp& app = found.apps[position];
  const std::size_t rank = found.ranks[position];
  AppRow row = foundRow(app, key, found.platform, context);
  row.rank = QString::number(rank);
  row.ratingCount.clear();  // the category stands in its place
  row.detail = detailOf(row, app, context.library);
  row.aside.clear();
  row.marks.setFlag(RowMark::paid, row.price.amount.value_or(0) > 0);
  row.marks.setFlag(RowMark::notOwned, !context.library.owned.contains(app.trackId));
  if (context.library.chart) addPlace(row, *context.library.chart, rank);
  return row;
}

RowTable chartTable() {
  return {.layout = {.hasSparkline = true, .hasStars = true, .hasRanks = true},
          .sorts = {},
          .chips = kChips,
          .empty = {"bar-chart", QT_TRANSLATE_NOOP("Rows", "This chart is not available."),
                    QT_TRANSLATE_NOOP("Rows", "Choose another one, or try again later.")},
          .count = {.one = QT_TRANSLATE_NOOP("Rows", "1 app"),
                    .many = QT_TRANSLATE_NOOP("Rows", "%1 apps"),
                    .whole = kWholeChart,
                    .fewer = QT_TRANSLATE_NOOP("Rows", "%1 available")}};
}

QStringList movementTexts(const KnownChart& chart, Instant now, const UtcOffsetAt& zone) {
  if (!chart.since) return {};
  if (!chart.isDaily) {
    const QString ago = agoText(*chart.since, now);
    return {tr("Movement since your last look, %1").arg(ago),
            tr("Since your last look, %1").arg(ago)};
  }
  const QString day = dateText(*chart.since, now, zone);
  const QString since = tr("Movement since %1, from Quillet's daily record of the top %2")
                            .arg(day)
                            .arg(kRecordedPlaces);
  const std::size_t days = chart.record.days();
  const QString count = days == 1 ? tr("1 day") : tr("%1 days").arg(days);
  return {since + QStringLiteral(" · ") + count, since, tr("Movement since %1").arg(day)};
}

}  // namespace quillet
