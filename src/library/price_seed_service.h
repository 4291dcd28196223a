// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "library/data_store.h"
#include "library/storefront_seed.h"
#include "net/clock.h"
#include "store/price_seed_client.h"
#include "store/records/price_seed_error.h"
#include "system/settings.h"

namespace quillet {

/// What a run of the importer came to.
struct SeedImportResult {
  struct Failure {
    std::string country;
    PriceSeedError::Kind kind = PriceSeedError::Kind::failed;
    std::string reason;  ///< a sentence for people

    friend bool operator==(const Failure&, const Failure&) = default;
  };

  std::size_t storefronts = 0;     ///< files imported
  std::size_t appsSeeded = 0;      ///< apps for which points were stored
  std::size_t pointsInserted = 0;  ///< price points added
  std::vector<Failure> failures;   ///< storefronts that could not be read
  /// Why the settings could not be kept, in which the next run looks up what this one did; empty
  /// where they could. A sentence for people.
  std::string unkeptSettings;

  friend bool operator==(const SeedImportResult&, const SeedImportResult&) = default;
};

/// Which storefronts the server is asked about: those that it was not for long, or all.
enum class SeedCheck { whenDue, now };

/// How far the import of one storefront has come.
struct SeedProgress {
  std::string country;
  std::size_t done = 0;  ///< apps that were kept
  std::size_t all = 0;   ///< 0 while its file is fetched and read
};

struct SeedImportCall {
  SeedCheck check = SeedCheck::whenDue;
  std::function<void(const SeedProgress&)> progress = {};  ///< empty where nobody waits
};

/// Brings the published price data into the library, and remembers in the settings when it asked
/// the server last and what it saw; where these cannot be written, as long as it lives itself,
/// which is as long as the application.
class PriceSeedService {
 public:
  PriceSeedService(DataStore& store, PriceSeedClient& prices, WritableSettings& settings,
                   const Clock& clock);

  /// Imports those storefronts whose data the server has not been asked for in the last 20 hours
  /// and whose edition is new. The work is done in short pieces, so that others get their turn at
  /// the library; what was imported stays when the run is stopped or fails, and the next run goes
  /// on from there. A storefront that cannot be read ends itself alone. Throws NetworkError
  /// where the server cannot be reached or the run was stopped, PriceSeedError where there is no
  /// telling what the server has, DatabaseError.
  Task<SeedImportResult> importStorefronts(std::vector<std::string> countries, StopToken stop,
                                           SeedImportCall call = {});

  /// From when on the server may be asked about a storefront; absent where it may be now.
  [[nodiscard]] std::optional<Instant> nextCheckOf(const std::string& country) const;

  /// When the store last told the prices that the server has; absent where the server did not say.
  [[nodiscard]] std::optional<Instant> lastLookAt(const std::string& country) const;

 private:
  [[nodiscard]] bool isDue(const std::string& country) const;
  [[nodiscard]] std::optional<Instant> lastCheckOf(const std::string& country) const;
  void noteCheck(const std::string& country);
  bool keepSetting(std::string key, std::string value);
  Task<std::vector<std::string>> publishedAmong(std::vector<std::string> countries, StopToken stop);
  Task<SeedImportResult> importStorefront(std::string country, StopToken stop, SeedImportCall call);
  Task<SeedImportResult> keep(std::shared_ptr<const StorefrontSeed> seed, StopToken stop,
                              SeedImportCall call);

  DataStore& store_;
  PriceSeedClient& prices_;
  WritableSettings& settings_;
  const Clock& clock_;
  std::map<std::string, Instant> unkeptChecks_;  ///< by country
  std::string unkeptSettings_;                   ///< why, since the last run that came to its end
};

}  // namespace quillet
