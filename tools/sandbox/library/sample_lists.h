// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "library/write_transaction.h"
#include "sandbox/sample_store.h"

namespace quillet::sandbox {

// The pieces of the sample library, each of which goes back from the store's today, or from now.

/// Forty watched apps of several storefronts: their prices and those of their purchases over the
/// year, and the alerts that the changes raised.
void writeWatchlist(WriteTransaction& library, const SampleStore& store, Instant now);

/// A hundred and twenty apps in My Apps, seven of them out of date.
void writeMyApps(WriteTransaction& library, const SampleStore& store, Instant now);

void writeCollections(WriteTransaction& library, const SampleStore& store);

/// Five searches that between them set each filter.
void writeSavedSearches(WriteTransaction& library, const SampleStore& store);

/// The order of the charts on each of the last sixty days, and what ranks opened pages showed.
void writeChartRecord(WriteTransaction& library, const SampleStore& store);

/// The pages that were opened today, yesterday and in the last weeks.
void writeHistory(WriteTransaction& library, const SampleStore& store, Instant now);

}  // namespace quillet::sandbox
