// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/price_imports.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace quillet {

PriceImports::PriceImports(PriceSeedService& service, const Clock& clock,
                           std::function<std::string()> storefront, LogSink log)
    : service_(service), clock_(clock), storefront_(std::move(storefront)), log_(std::move(log)) {}

std::vector<std::string> PriceImports::countries() const {
  std::set<std::string> countries = followed_;
  const std::string own = storefront_();
  countries.erase(own);
  std::vector<std::string> all{own};
  all.insert(all.end(), countries.begin(), countries.end());
  return all;
}

void PriceImports::setNextRound(std::optional<Instant> when) {
  nextRound_ = when;
  Q_EMIT changed();
}

void PriceImports::setRunning(bool isRunning) {
  if (std::exchange(isRunning_, isRunning) == isRunning) return;
  progress_.reset();
  Q_EMIT changed();
  Q_EMIT runningChanged();
}

Task<> PriceImports::look(SeedCheck check, StopToken stop) {
  if (isRunning_) {
    again_ = again_ == SeedCheck::now ? SeedCheck::now : check;
    co_return;
  }
  for (std::optional<SeedCheck> next = check; next;) {
    again_.reset();
    co_await lookOnce(*next, stop);
    next = again_;
  }
  setRunning(false);
}

/// Where nothing is due, nothing is said to run.
Task<> PriceImports::lookOnce(SeedCheck check, StopToken stop) {
  std::vector<std::string> asked = countries();
  if (check == SeedCheck::whenDue)
    std::erase_if(asked,
                  [this](const auto& each) { return service_.nextCheckOf(each).has_value(); });
  if (asked.empty()) co_return;
  setRunning(true);
  try {
    SeedImportCall call{SeedCheck::now, [this](const SeedProgress& reached) { take(reached); }};
    const auto result = co_await service_.importStorefronts(asked, stop, std::move(call));
    for (const std::string& country : asked) failures_.erase(country);
    take(result);
  } catch (const std::exception& error) {
    if (stop.stopRequested()) throw;
    for (const std::string& country : asked) failures_[country] = error.what();
    log_(std::string("Price data: ") + error.what());
  }
}

void PriceImports::take(const SeedProgress& progress) {
  progress_ = progress;
  Q_EMIT changed();
}

/// A user without a collector of their own has no price data: nothing for the log.
void PriceImports::take(const SeedImportResult& result) {
  if (!result.unkeptSettings.empty()) log_("Price data: " + result.unkeptSettings);
  for (const SeedImportResult::Failure& failure : result.failures) {
    failures_[failure.country] = failure.reason;
    if (failure.kind != PriceSeedError::Kind::nothingPublished)
      log_("Price data: " + failure.reason);
  }
}

/// The first of the hourly rounds in which the server is asked again.
std::optional<Instant> PriceImports::nextLookFor(const std::string& country) const {
  constexpr std::chrono::hours kRound{1};
  const auto all = countries();
  if (!nextRound_ || std::ranges::find(all, country) == all.end()) return {};
  const Instant due = service_.nextCheckOf(country).value_or(clock_.now());
  Instant round = *nextRound_;
  while (round < due) round += kRound;
  return round;
}

PriceDataState PriceImports::stateOf(const std::string& country) const {
  PriceDataState state;
  const bool isOther = progress_ && progress_->country != country;
  state.isReading = isRunning_ && !isOther;
  if (state.isReading && progress_ && progress_->all > 0)
    state.share = static_cast<double>(progress_->done) / static_cast<double>(progress_->all);
  state.next = nextLookFor(country);
  state.looked = service_.lastLookAt(country);
  if (const auto failure = failures_.find(country); failure != failures_.end())
    state.failure = failure->second;
  return state;
}

}  // namespace quillet
