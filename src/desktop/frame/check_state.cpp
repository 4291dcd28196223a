// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/check_state.h"

#include <QCoreApplication>
#include <QLocale>
#include <algorithm>

#include "desktop/models/time_words.h"

namespace quillet {

namespace {

QString tr(const char* text) { return QCoreApplication::translate("Checks", text); }

QString number(std::size_t value) { return QLocale().toString(static_cast<qulonglong>(value)); }

CheckWords wordsOf(const PassProgress& progress) {
  CheckWords words{
      QStringLiteral("arrow-repeat"), Token::accentText, tr("Checking prices"), {}, {}};
  if (progress.all == 0) return words;
  words.line = tr("Checking %1 of %2").arg(number(progress.checked), number(progress.all));
  words.share = static_cast<double>(progress.checked) / static_cast<double>(progress.all);
  return words;
}

CheckWords outcomeOf(const CheckState& state, Instant now) {
  if (state.isThrottled)
    return {
        QStringLiteral("hourglass-split"), Token::low, tr("Apple is limiting requests."), {}, {}};
  if (state.isOffline)
    return {QStringLiteral("wifi-off"), Token::secondary, tr("You're offline."), {}, {}};
  if (!state.error.isEmpty())
    return {QStringLiteral("exclamation-circle-fill"), Token::up, state.error, {}, {}};
  if (!state.last)
    return {QStringLiteral("clock"), Token::secondary, tr("Not checked yet"), {}, {}};
  return {QStringLiteral("check2"),
          Token::down,
          tr("Checked %1").arg(agoText(*state.last, now)),
          {},
          {}};
}

}  // namespace

CheckState checkStateOf(const WatchlistMonitor& monitor) {
  CheckState state;
  state.progress = monitor.progress();
  state.last = monitor.lastRefresh();
  state.next = monitor.nextCheck();
  state.isHeldBack = monitor.isHeldBack();
  state.isThrottled = monitor.lastEnd() == PassEnd::rateLimited;
  state.isOffline = monitor.wasOffline();
  if (const auto& error = monitor.lastError()) state.error = QString::fromStdString(*error);
  return state;
}

ListState remarkOf(const CheckState& state) {
  if (state.progress || state.isThrottled) return Ready{};
  if (state.isOffline) return Offline{};
  if (state.error.isEmpty()) return Ready{};
  return Failed{state.error};
}

CheckWords wordsOf(const CheckState& state, Instant now, const UtcOffsetAt& zone) {
  if (state.progress) return wordsOf(*state.progress);
  CheckWords words = outcomeOf(state, now);
  if (state.isHeldBack) {
    words.second = tr("Waits: metered network");
  } else if (state.next) {
    words.second = tr("Next %1").arg(clockText(*state.next, zone));
  }
  return words;
}

}  // namespace quillet
