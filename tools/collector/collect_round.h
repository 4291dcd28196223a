// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <string>

#include "collector/lookup_queue.h"
#include "collector/round_pace.h"
#include "collector/sql_database.h"
#include "store/charts_service.h"
#include "store/itunes_client.h"

namespace quillet {

/// What a collector works with. All of it outlives the round.
struct CollectorServices {
  SqlDatabase& database;
  ITunesClient& itunes;
  ChartsService& charts;
  Clock& clock;
  /// When prices are recorded, unless it is the clock's time.
  std::optional<Instant> asOf;
  /// This collector, as no other is called.
  std::string worker;
  /// Whether another collector is known to have ended, so that its leases mean nothing.
  std::function<bool(const std::string& worker)> hasEnded;
  /// Takes a line for people, without its line feed.
  std::function<void(const std::string& line)> say;
  /// Takes a line that a person wants to see who does not want to hear of what goes well.
  std::function<void(const std::string& line)> warn;
  /// What the time that a round takes is told from.
  RoundPace pace = {};

  [[nodiscard]] Instant now() const { return asOf.value_or(clock.now()); }
};

/// Works on the round under way, beside others, first on its preparation if that is not done, until
/// nothing of it is left; returns the newest round with its sums. A chart or search that the store
/// does not have is left out with a line, and kept as failed. A round in which no app was found is
/// no more then; one of no number is returned where there was none before it. Where the store
/// refuses or cannot be reached, it pauses, longer each time, and tries again: half an hour long
/// where it refuses, half a day where it cannot be reached. Then it throws what happened
/// (ITunesError, NetworkError, DecodingError). Throws NetworkError `cancelled` when `stop` is
/// requested. Whatever is thrown, the round can be gone on with.
Task<Round> collectRound(CollectorServices services, StopToken stop);

}  // namespace quillet
