// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "base/log_sink.h"
#include "library/price_seed_service.h"

namespace quillet {

/// How the published prices of one storefront stand.
struct PriceDataState {
  bool isReading = false;         ///< they are looked for, or taken in, right now
  std::optional<double> share;    ///< 0 to 1 of what is taken in; absent before that
  std::optional<Instant> next;    ///< when they are looked for by themselves; absent where never
  std::optional<Instant> looked;  ///< when the store last told them; absent where nobody says so
  std::string failure;            ///< why they could not be had: a sentence; empty where they could

  friend bool operator==(const PriceDataState&, const PriceDataState&) = default;
};

/// Brings published prices in, of the user's storefront and of those that somebody looks at, one
/// run at a time, and knows how each stands.
class PriceImports : public QObject {
  Q_OBJECT

 public:
  /// The service and the clock outlive it. `log`: of what failed.
  PriceImports(PriceSeedService& service, const Clock& clock,
               std::function<std::string()> storefront, LogSink log);

  /// One run; where one is under way, another one after it. Throws where it was stopped.
  Task<> look(SeedCheck check, StopToken stop);
  /// Somebody looks at this storefront from now on.
  void follow(const std::string& country) { followed_.insert(country); }
  /// When it is looked again by itself, and each hour after it; absent where never.
  void setNextRound(std::optional<Instant> when);

  [[nodiscard]] bool isRunning() const { return isRunning_; }
  [[nodiscard]] PriceDataState stateOf(const std::string& country) const;

 Q_SIGNALS:
  /// Some state is another one.
  void changed();
  void runningChanged();

 private:
  [[nodiscard]] std::vector<std::string> countries() const;
  [[nodiscard]] std::optional<Instant> nextLookFor(const std::string& country) const;
  Task<> lookOnce(SeedCheck check, StopToken stop);
  void setRunning(bool isRunning);
  void take(const SeedProgress& progress);
  void take(const SeedImportResult& result);

  PriceSeedService& service_;
  const Clock& clock_;
  std::function<std::string()> storefront_;
  LogSink log_;
  std::set<std::string> followed_;
  std::map<std::string, std::string> failures_;  ///< by country
  std::optional<SeedProgress> progress_;         ///< of the storefront that is read now
  std::optional<SeedCheck> again_;               ///< a run that is wanted after this one
  std::optional<Instant> nextRound_;
  bool isRunning_ = false;
};

}  // namespace quillet
