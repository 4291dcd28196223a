// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "analysis/described_app.h"
#include "library/schema/entities.h"

namespace quillet {

/// Where an app record came from, and when it came.
struct RecordSource {
  std::string country;
  Platform platform = Platform::mac;
  Instant when{};
};

/// The record's version, to compare with that of an app in a list. Absent where the record is of
/// the other build: the store answers with an iPhone app's record for a Mac app of the same number.
[[nodiscard]] std::optional<std::string> versionOf(const ITunesApp& app,
                                                   std::string_view platformRaw);

/// The text of the record's price that a row keeps: the store's, or our own of a price of 0.
[[nodiscard]] std::optional<std::string> priceTextOf(const ITunesApp& app);

/// The text of a watched app's price that was not told: its amount is 0 then, for the column knows
/// no other way to say so. An absent text says less: an imported app may be free.
inline constexpr std::string_view kPriceUntold = "";

// The rows that the library makes of an app record.

[[nodiscard]] CachedApp cachedAppOf(const DescribedApp& app, const RecordSource& source);
[[nodiscard]] CachedApp cachedAppOf(const ITunesApp& app, const RecordSource& source);
/// The record that was kept, as far as it was.
[[nodiscard]] ITunesApp recordOf(const CachedApp& row);
[[nodiscard]] WatchedApp watchedAppOf(const ITunesApp& app, const RecordSource& source);
[[nodiscard]] OwnedApp ownedAppOf(const ITunesApp& app, const RecordSource& source,
                                  OwnedSource how);
[[nodiscard]] CollectionEntry collectionEntryOf(const ITunesApp& app, const RecordSource& source);

/// Fills in what the row of an imported app lacks, for a library's export does not tell it: seller,
/// picture and the page's address.
void completeImported(WatchedApp& row, const ITunesApp& app);

}  // namespace quillet
