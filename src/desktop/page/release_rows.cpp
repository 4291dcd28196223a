// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/release_rows.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>
#include <algorithm>

#include "base/text.h"
#include "desktop/models/row_parts.h"
#include "desktop/page/page_price.h"

namespace quillet {

namespace {

QString tr(const char* text) { return QCoreApplication::translate("Page", text); }

/// Releases have dates without hours: they are the same in every time zone.
QString dayText(Instant day) {
  const auto date = QDateTime::fromMSecsSinceEpoch(day.time_since_epoch().count(), Qt::UTC).date();
  return QLocale().toString(date, QStringLiteral("d MMM yyyy"));
}

QString daysText(std::int64_t days) {
  return days == 1 ? tr("1 day") : tr("%1 days").arg(QLocale().toString(days));
}

QString versionText(const VersionEntry& release) {
  const QString version = plainLine(release.version);
  return version.isEmpty() ? QStringLiteral("—") : version;
}

std::vector<VersionEntry> currentRelease(const CachedApp& app) {
  if (app.version.value_or("").empty() || !app.currentVersionReleaseDate) return {};
  return {{*app.version, *app.currentVersionReleaseDate, app.releaseNotes}};
}

}  // namespace

ReleaseHistory releasesOf(const PageFacts& facts, const MaintenanceView& view) {
  std::optional<Instant> fallback;
  if (facts.cached) fallback = facts.cached->currentVersionReleaseDate;
  if (facts.store) {
    const DescribedApp& app = facts.store->app;
    fallback = app.record.currentVersionReleaseDate;
    if (app.versions && !app.versions->empty())
      return releaseHistory(*app.versions, fallback, view);
  }
  return releaseHistory(facts.cached ? currentRelease(*facts.cached) : std::vector<VersionEntry>(),
                        fallback, view);
}

std::vector<ReleaseRow> releaseRows(const ReleaseHistory& history) {
  std::vector<ReleaseRow> rows;
  for (std::size_t i = 0; i < history.releases.size(); ++i) {
    const VersionEntry& release = history.releases[i];
    const auto gap = history.gaps[i];
    rows.push_back({versionText(release), dayText(release.releaseDate),
                    gap ? daysText(*gap) : QString(),
                    plainLines(release.releaseNotes.value_or(""))});
  }
  return rows;
}

std::vector<ReleaseDot> releaseDots(const ReleaseHistory& history) {
  std::vector<ReleaseDot> dots;
  if (history.releases.size() < 2) return dots;
  for (std::size_t i = 0; i < history.releases.size(); ++i) {
    const VersionEntry& release = history.releases[i];
    const auto gap = history.gaps[i];
    QString text = tr("%1, %2").arg(versionText(release), dayText(release.releaseDate));
    if (gap) text = tr("%1, after %2").arg(text, daysText(*gap));
    dots.push_back({release.releaseDate, text, isLateGap(gap, history.medianDaysBetweenReleases)});
  }
  std::ranges::sort(dots, {}, &ReleaseDot::when);
  return dots;
}

QString usualGapText(const ReleaseHistory& history) {
  const auto median = history.medianDaysBetweenReleases;
  return median ? daysText(*median) : QString();
}

QString releaseSentence(const ReleaseHistory& history) {
  QStringList sentences;
  if (history.daysSinceLastRelease)
    sentences << tr("Last release %1 ago.").arg(daysText(*history.daysSinceLastRelease));
  if (history.capped) {
    sentences << tr("%1 returned (Apple's limit; older ones exist).")
                     .arg(static_cast<qulonglong>(history.releases.size()));
  }
  return sentences.join(QLatin1Char(' '));
}

}  // namespace quillet
