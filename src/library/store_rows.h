// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "library/schema/entities.h"
#include "store/records/itunes_app.h"
#include "store/records/platform.h"

namespace quillet {

/// Where an app record came from, and when it came.
struct RecordSource {
  std::string country;
  Platform platform = Platform::mac;
  Instant when{};
};

// The rows that the library makes of an app record. A price that the record does not tell is 0 in a
// watched app, whose column knows no other way to say so; its text is absent then.

[[nodiscard]] CachedApp cachedAppOf(const ITunesApp& app, const RecordSource& source);
[[nodiscard]] WatchedApp watchedAppOf(const ITunesApp& app, const RecordSource& source);
[[nodiscard]] OwnedApp ownedAppOf(const ITunesApp& app, const RecordSource& source,
                                  OwnedSource how);
[[nodiscard]] CollectionEntry collectionEntryOf(const ITunesApp& app, const RecordSource& source);

}  // namespace quillet
