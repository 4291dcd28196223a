// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/list_state.h"

#include <QCoreApplication>
#include <algorithm>
#include <array>

#include "base/enum_index.h"
#include "base/errors.h"
#include "desktop/models/time_words.h"

namespace quillet {

namespace {

QString tr(const char* text) { return QCoreApplication::translate("States", text); }

QString secondsUntil(Instant until, Instant now) {
  const auto left = std::chrono::ceil<std::chrono::seconds>(until - now).count();
  return QString::number(std::max<std::int64_t>(left, 0));
}

// By what is read.
constexpr std::array kReadingTexts{QT_TRANSLATE_NOOP("States", "Reading purchases %1 of %2…"),
                                   QT_TRANSLATE_NOOP("States", "Reading architecture %1 of %2…"),
                                   QT_TRANSLATE_NOOP("States", "Reading ratings %1 of %2…")};
constexpr std::array kPausedTexts{
    QT_TRANSLATE_NOOP("States", "Stopped. Purchases were read of %1 of %2."),
    QT_TRANSLATE_NOOP("States", "Stopped. Architecture was read of %1 of %2."),
    QT_TRANSLATE_NOOP("States", "Stopped. Ratings were read of %1 of %2.")};

struct StripWriter {
  Instant now;

  std::optional<StripText> operator()(const Empty& /*state*/) const { return {}; }
  std::optional<StripText> operator()(const Loading& /*state*/) const { return {}; }
  std::optional<StripText> operator()(const Ready& /*state*/) const { return {}; }
  std::optional<StripText> operator()(const Stale& state) const {
    return StripText{"clock", tr("From %1.").arg(agoText(state.asOf, now)), StripTone::quiet,
                     StripAction::refresh};
  }
  std::optional<StripText> operator()(const BudgetWait& state) const {
    return StripText{
        "hourglass-split",
        tr("Waiting %1 s: at most 15 requests a minute.").arg(secondsUntil(state.until, now)),
        StripTone::quiet, StripAction::none};
  }
  std::optional<StripText> operator()(const Throttled& state) const {
    return StripText{
        "hourglass-split",
        tr("Apple is limiting requests. Trying again in %1 s.").arg(secondsUntil(state.until, now)),
        StripTone::warning, StripAction::stop};
  }
  std::optional<StripText> operator()(const Reading& state) const {
    return StripText{"hourglass-split",
                     tr(kReadingTexts[indexOf(state.what)]).arg(state.done).arg(state.total),
                     StripTone::quiet, StripAction::stop};
  }
  std::optional<StripText> operator()(const Paused& state) const {
    return StripText{"pause-circle",
                     tr(kPausedTexts[indexOf(state.what)]).arg(state.done).arg(state.total),
                     StripTone::quiet, StripAction::goOn};
  }
  std::optional<StripText> operator()(const Scanning& state) const {
    QString text =
        state.isMeasuring ? tr("Measured %1 of %2 · matched %3") : tr("Read %1 of %2 · matched %3");
    return StripText{"hourglass-split",
                     text.arg(QString::number(state.done), QString::number(state.total),
                              QString::number(state.matched)),
                     StripTone::quiet, StripAction::stop};
  }
  std::optional<StripText> operator()(const Offline& /*state*/) const {
    return StripText{"wifi-off", tr("You're offline. Showing what was saved."), StripTone::quiet,
                     StripAction::tryAgain};
  }
  std::optional<StripText> operator()(const Gone& state) const {
    return StripText{"info-circle", state.message, StripTone::quiet, StripAction::none};
  }
  std::optional<StripText> operator()(const Failed& state) const {
    return StripText{"exclamation-circle-fill", state.message, StripTone::quiet,
                     StripAction::tryAgain,     true,          state.details};
  }
  std::optional<StripText> operator()(const SwitchedOff& state) const {
    return StripText{"info-circle", state.message, StripTone::quiet, StripAction::settings};
  }
};

/// Where the fault lies, and what comes of it.
QString detailsOf(NetworkError::Kind kind) {
  switch (kind) {
    case NetworkError::Kind::tooLarge:
      return tr("The answer was far larger than Apple's answers are. Nothing of it was kept.");
    case NetworkError::Kind::failed:
      return tr(
          "The server was reached, but the connection could not be trusted or followed. "
          "Something between this computer and Apple may change what passes.");
    case NetworkError::Kind::cannotReach:
    case NetworkError::Kind::notConnected:
    case NetworkError::Kind::cancelled: break;
  }
  return tr("The server was not found, or the connection was refused, lost or too slow.");
}

}  // namespace

ListState listStateOf(const std::exception_ptr& error) {
  try {
    std::rethrow_exception(error);
  } catch (const NetworkError& failure) {
    if (failure.kind() == NetworkError::Kind::notConnected) return Offline{};
    return Failed{QString::fromUtf8(failure.what()), detailsOf(failure.kind())};
  } catch (const DatabaseError& failure) {
    return Failed{QString::fromUtf8(failure.what()),
                  tr("The library on this computer could not be read.")};
  } catch (const std::exception& failure) {
    return Failed{
        QString::fromUtf8(failure.what()),
        tr("Apple's service answered, but not with what was asked for. This often passes within "
           "minutes.")};
  }
}

std::optional<StripText> stripOf(const ListState& state, Instant now) {
  return std::visit(StripWriter{now}, state);
}

}  // namespace quillet
