// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/local/owned_track_ids.h"

#include "cli/local/local_statement.h"

namespace quillet {

TrackIds readOwnedTrackIds(const Environment& environment, const LogSink& log) {
  const CLILocalStore store = CLILocalStore::open(environment, log);
  LocalStatement rows(store, "SELECT ZTRACKID FROM ZOWNEDAPP");
  TrackIds owned;
  while (rows.next()) {
    if (const auto trackId = rows.integer(0)) owned.insert(*trackId);
  }
  return owned;
}

}  // namespace quillet
