// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <array>
#include <optional>

#include "desktop/models/watch_edits.h"
#include "system/locale_formats.h"
#include "system/time_zone.h"

namespace quillet {

/// What a watched app may alert to, each with where it stands.
struct WatchAlert {
  const char* text;  ///< marked for translation in the context "Watching"
  bool WatchedApp::* isOn;
  std::optional<bool> WatchChange::* change;
};
inline constexpr std::array kWatchAlerts{
    WatchAlert{QT_TRANSLATE_NOOP("Watching", "Any drop in price"), &WatchedApp::alertOnAnyDrop,
               &WatchChange::anyDrop},
    WatchAlert{QT_TRANSLATE_NOOP("Watching", "The app becoming free"), &WatchedApp::alertOnFree,
               &WatchChange::whenFree},
    WatchAlert{QT_TRANSLATE_NOOP("Watching", "A new version"), &WatchedApp::alertOnNewVersion,
               &WatchChange::newVersion},
    WatchAlert{QT_TRANSLATE_NOOP("Watching", "In-app prices"), &WatchedApp::alertOnPurchasePrices,
               &WatchChange::purchases},
};

/// For how long alerts are muted.
enum class MuteSpan { week, month, untilTurnedOn };
struct MuteChoice {
  MuteSpan span = MuteSpan::week;
  const char* text;  ///< likewise
};
inline constexpr std::array kMuteChoices{
    MuteChoice{MuteSpan::week, QT_TRANSLATE_NOOP("Watching", "1 week")},
    MuteChoice{MuteSpan::month, QT_TRANSLATE_NOOP("Watching", "1 month")},
    MuteChoice{MuteSpan::untilTurnedOn, QT_TRANSLATE_NOOP("Watching", "Until I turn them on")},
};

[[nodiscard]] QString watchWord(const char* text);

/// The last day that the library can name: until the user turns them on.
[[nodiscard]] Instant muteEnd();
[[nodiscard]] Instant mutedUntil(MuteSpan span, Instant now);
/// Whether there are no alerts now.
[[nodiscard]] bool isMuted(const WatchedApp& app, Instant now);
/// "Until 29 Nov", "Until I turn them on", "Not muted".
[[nodiscard]] QString muteText(std::optional<Instant> until, Instant now, const UtcOffsetAt& zone);

/// "Already reached: it costs $4.99." of a target that the price does not exceed; empty otherwise.
[[nodiscard]] QString reachedText(const WatchedApp& app, double target,
                                  const LocaleFormats& formats);

}  // namespace quillet
