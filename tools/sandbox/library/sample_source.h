// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <span>
#include <vector>

#include "analysis/described_app.h"
#include "library/store_rows.h"
#include "sandbox/sample_store.h"
#include "store/records/itunes_app.h"

namespace quillet::sandbox {

/// An app as its user met it: what the store knows of it, and what it told Quillet.
struct MetApp {
  AppSketch sketch;
  ITunesApp record;
  DescribedApp described;  ///< with what the catalog says, of those whose pages were opened once
  Storefront storefront = Storefront::us;
  Shelf shelf = Shelf::mac;
};

/// The best known apps of a shelf that pass the test, as a lookup in the storefront describes them.
[[nodiscard]] std::vector<MetApp> bestMet(const SampleStore& store, Storefront storefront,
                                          Shelf shelf, std::size_t count,
                                          const SampleStore::SketchTest& test);

/// Where and when such an app was met.
[[nodiscard]] RecordSource sourceOf(const MetApp& app, Instant when);

}  // namespace quillet::sandbox
