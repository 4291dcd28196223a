// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/watch_words.h"

#include <QCoreApplication>
#include <QDateTime>

#include "desktop/models/row_parts.h"
#include "desktop/models/time_words.h"

namespace quillet {

QString watchWord(const char* text) { return QCoreApplication::translate("Watching", text); }

Instant muteEnd() {
  using namespace std::chrono;
  return sys_days(year(9999) / December / 31);
}

Instant mutedUntil(MuteSpan span, Instant now) {
  switch (span) {
    case MuteSpan::week: return now + std::chrono::weeks(1);
    case MuteSpan::month: {
      const auto then =
          QDateTime::fromMSecsSinceEpoch(now.time_since_epoch().count(), Qt::UTC).addMonths(1);
      return Instant(std::chrono::milliseconds(then.toMSecsSinceEpoch()));
    }
    case MuteSpan::untilTurnedOn: break;
  }
  return muteEnd();
}

bool isMuted(const WatchedApp& app, Instant now) { return app.mutedUntil && *app.mutedUntil > now; }

QString muteText(std::optional<Instant> until, Instant now, const UtcOffsetAt& zone) {
  if (!until || *until <= now) return watchWord(QT_TRANSLATE_NOOP("Watching", "Not muted"));
  if (*until >= muteEnd()) return watchWord(kMuteChoices.back().text);
  return watchWord(QT_TRANSLATE_NOOP("Watching", "Until %1")).arg(dateText(*until, now, zone));
}

QString reachedText(const WatchedApp& app, double target, const LocaleFormats& formats) {
  const QString price = watchedPrice(app, formats).text;
  if (price.isEmpty() || app.currentPrice > target) return {};
  return watchWord(QT_TRANSLATE_NOOP("Watching", "Already reached: now %1")).arg(price);
}

}  // namespace quillet
