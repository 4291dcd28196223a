// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/collect_round.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>
#include <utility>

#include "base/errors.h"
#include "base/text.h"
#include "collector/chart_question.h"
#include "collector/price_record.h"
#include "collector/trouble.h"
#include "collector/wanted_apps.h"
#include "store/records/itunes_error.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

// A minute, doubled each time up to the longest: the store's own window is a minute. So much of it
// in a row, and it is left to the next run.
constexpr std::chrono::minutes kFirstPause = 1min;
constexpr std::chrono::minutes kLongestPause = 30min;
constexpr std::chrono::minutes kPatienceWhenRefused = 31min;
constexpr std::chrono::minutes kPatienceWhenUnreachable = 12h;

/// How often a collector without work looks whether the others have finished.
constexpr std::chrono::milliseconds kLongestLook = 30s;
constexpr std::chrono::milliseconds kShortestLook = 1s;

/// So many lookups in a row that were not asked before may each have no answer of their own; more
/// are an outage that began in the middle of the round.
constexpr int kMostUnlikedInARow = 3;

/// The most apps that a search gives.
constexpr int kLongestSearch = 200;

constexpr auto kProgressEvery = 60s;

/// So many apps do not leave a storefront at once: an answer without any of them is none.
constexpr std::int64_t kTooManyToBeGone = 10;

/// What a failed lookup says about the next ones.
enum class Failure {
  stopped,      ///< by us
  refused,      ///< the store wants fewer requests: nothing is wrong with this one
  unreachable,  ///< the store or the way there
  useless,      ///< a page instead of an answer: "sorry", or a portal's log-in
  itsOwn,       ///< the store does not like this very request
};

Failure failureOf(const std::exception_ptr& error) {
  try {
    std::rethrow_exception(error);
  } catch (const ITunesError& answer) {
    if (answer.isRefusal()) return Failure::refused;
    return answer.status() >= 500 ? Failure::unreachable : Failure::itsOwn;
  } catch (const NetworkError& failure) {
    const bool isStopped = failure.kind() == NetworkError::Kind::cancelled;
    return isStopped ? Failure::stopped : Failure::unreachable;
  } catch (const DecodingError&) {
    return Failure::useless;
  }
}

std::string reasonOf(const std::exception_ptr& error) {
  try {
    std::rethrow_exception(error);
  } catch (const std::exception& known) {
    return known.what();
  }
}

/// Those that the answer does not have in any form.
std::vector<std::int64_t> missingAmong(const StoreAnswer& said,
                                       const std::vector<std::int64_t>& ids) {
  std::set<std::int64_t> missing(ids.begin(), ids.end());
  for (const ITunesApp& app : said.apps) missing.erase(app.trackId);
  for (const std::int64_t id : said.unread) {
    if (id == 0) return {};  // it may be any of them
    missing.erase(id);
  }
  return {missing.begin(), missing.end()};
}

/// Those that were asked for, each once, with a price.
std::vector<ObservedApp> observedAmong(const std::vector<ITunesApp>& apps,
                                       const std::vector<std::int64_t>& ids) {
  std::set<std::int64_t> wanted(ids.begin(), ids.end());
  std::vector<ObservedApp> found;
  for (const ITunesApp& app : apps) {
    auto observation = observed(app);
    if (observation && wanted.erase(app.trackId) == 1) found.push_back(std::move(*observation));
  }
  return found;
}

bool isQuestion(const Lookup& lookup) { return !lookup.request.question.empty(); }

/// "Lookup 17 (us, 100 IDs from 1234 on)", or what a question asks for.
std::string nameOf(const Lookup& lookup) {
  if (isQuestion(lookup))
    return "No " + nameOfStored(lookup.request.question, lookup.request.country);
  const std::vector<std::int64_t>& ids = lookup.request.ids;
  return fmt::format("Lookup {} ({}, {} IDs from {} on)", lookup.number, lookup.request.country,
                     ids.size(), ids.empty() ? 0 : ids.front());
}

/// What the store answered to a lookup, or what went wrong.
struct Answer {
  StoreAnswer said;
  std::vector<std::int64_t> ids;  ///< that a question found
  std::exception_ptr error;
};

Task<std::vector<std::int64_t>> idsFound(CollectorServices services, LookupRequest request,
                                         StopToken stop) {
  const ChartQuestion question = chartQuestionIn(request.question);
  const RequestContext context{RequestClass::interactive, stop};
  std::vector<std::int64_t> ids;
  if (question.term.empty()) {
    const ChartQuery chart{question.chart, question.platform, request.country, {}};
    ids = co_await services.charts.idsOrRefusal(chart, context);
    co_return ids;
  }
  const std::vector<ITunesApp> apps = co_await services.itunes.search(
      question.term, request.country, question.platform, kLongestSearch, context);
  for (const ITunesApp& app : apps) ids.push_back(app.trackId);
  co_return ids;
}

Task<Answer> answerTo(CollectorServices services, LookupRequest request, StopToken stop) {
  Answer answer;
  try {
    if (request.question.empty()) {
      answer.said = co_await services.itunes.lookupAnswer(request.ids, request.country,
                                                          {RequestClass::interactive, stop});
    } else {
      answer.ids = co_await idsFound(services, request, stop);
    }
  } catch (...) {
    answer.error = std::current_exception();
  }
  co_return answer;
}

/// That the store does not have what a question asked for.
struct NoSuchChart {
  std::string reason;  ///< empty where it is known: some charts are in no feed
};

std::optional<NoSuchChart> noSuchChart(const std::exception_ptr& error) {
  try {
    std::rethrow_exception(error);
  } catch (const ITunesError& answer) {
    if (answer.kind() == ITunesError::Kind::emptyFeed) return NoSuchChart{};
    const bool isOwn = answer.status() >= 400 && answer.status() < 500 && !answer.isRefusal();
    if (isOwn) return NoSuchChart{answer.what()};
  } catch (const std::exception&) {
    return {};
  }
  return {};
}

/// What is left to do when there is nothing to take.
enum class Left {
  nothing,  ///< the round has ended
  others,   ///< what others are at
  ours,     ///< lookups that were only now made
};

/// One collector at work: what it does between two waits, and what it keeps in mind.
class RoundWork {
 public:
  explicit RoundWork(const CollectorServices& services)
      : services_(services),
        lastProgress_(services.clock.monotonic()),
        isPreparing_(newest().preparation.has_value()) {}

  [[nodiscard]] std::optional<Lookup> take() {
    const auto lookup =
        inTransaction(services_.database, SqlAccess::write, [&](SqlTransaction& transaction) {
          return takeLookup(transaction, services_.database.dialect(), services_.worker,
                            services_.clock.now());
        });
    if (lookup) tellOfLookups(*lookup);
    return lookup;
  }

  /// Records the answer, or puts the lookup back. Returns how long to pause then; rethrows an error
  /// where it is time to give up.
  std::chrono::milliseconds settle(const Lookup& lookup, const Answer& answer) {
    if (isQuestion(lookup)) return settleQuestion(lookup, answer);
    if (answer.error) return putBack(lookup, answer.error);
    if (answer.said.apps.empty() && soldOf(lookup) >= kTooManyToBeGone) {
      return putBack(lookup, std::make_exception_ptr(
                                 DecodingError("it holds none of many apps that were sold")));
    }
    record(lookup, answer.said);
    return noteAnswer();
  }

  /// Takes away what collectors that have ended left undone; whether there was any.
  [[nodiscard]] bool freeLeasesOfTheDead() const {
    return inTransaction(services_.database, SqlAccess::write, [&](SqlTransaction& transaction) {
      bool isAnyFreed = false;
      for (const LeaseHolder& holder : leaseHolders(transaction)) {
        if (!services_.hasEnded(holder.worker)) continue;
        endLeases(transaction, holder.worker);
        isAnyFreed = true;
      }
      return isAnyFreed;
    });
  }

  [[nodiscard]] Left end() const {
    return inTransaction(services_.database, SqlAccess::alone, [&](SqlTransaction& transaction) {
      if (endPreparation(transaction)) return Left::ours;
      return endRound(transaction, services_.now()) ? Left::nothing : Left::others;
    });
  }

  /// How long to wait for the others' lookups before looking again.
  [[nodiscard]] std::chrono::milliseconds nextLook() {
    std::chrono::milliseconds look = kLongestLook;
    const auto transaction = services_.database.begin(SqlAccess::read);
    for (const LeaseHolder& holder : leaseHolders(*transaction)) {
      look = std::min(look, holder.until - services_.clock.now());
      if (!isWaiting_) {
        services_.say(fmt::format("Waiting for {}, until {} at most.", holder.worker,
                                  formatInternetDate(holder.until)));
      }
    }
    isWaiting_ = true;
    return std::max(look, kShortestLook);
  }

  [[nodiscard]] Round newest() const {
    const auto transaction = services_.database.begin(SqlAccess::read);
    return newestRound(*transaction).value_or(Round{});
  }

 private:
  /// Says how many lookups a round has once it is prepared, by whomever.
  void tellOfLookups(const Lookup& lookup) {
    const bool wasPreparing = std::exchange(isPreparing_, isQuestion(lookup));
    if (!wasPreparing || isPreparing_) return;
    const Round round = newest();
    services_.say(beginningOf(round, services_.pace));
    if (const auto shortage = shortageOf(round, services_.pace)) services_.warn(*shortage);
  }

  std::chrono::milliseconds settleQuestion(const Lookup& lookup, const Answer& answer) {
    const auto none = answer.error ? noSuchChart(answer.error) : std::nullopt;
    if (answer.error && !none) return putBack(lookup, answer.error);
    if (none && !none->reason.empty()) return leaveOut(lookup, none->reason);
    recordFound(lookup, answer.ids);
    // For a chart that is in no feed nothing was asked, and so nothing answered.
    return none ? 0ms : noteAnswer();
  }

  std::chrono::milliseconds leaveOut(const Lookup& lookup, const std::string& reason) {
    inTransaction(services_.database, SqlAccess::write, [&](SqlTransaction& transaction) {
      giveUp(transaction, lookup, services_.worker);
    });
    services_.say(fmt::format("{}: {}", nameOf(lookup), reason));
    return noteAnswer();
  }

  std::chrono::milliseconds noteAnswer() {
    hasAnswered_ = true;
    unlikedInARow_ = 0;
    pausedRefused_ = pausedUnreachable_ = 0min;
    tellProgress();
    return 0ms;
  }

  void recordFound(const Lookup& lookup, const std::vector<std::int64_t>& ids) const {
    const auto transaction = services_.database.begin(SqlAccess::write);
    addWanted(*transaction, ids);
    if (finishLookup(*transaction, lookup, services_.worker, {})) transaction->commit();
  }

  [[nodiscard]] std::int64_t soldOf(const Lookup& lookup) const {
    const auto transaction = services_.database.begin(SqlAccess::read);
    return soldAmong(*transaction, lookup.request.country, lookup.request.ids);
  }

  /// What is found and that the lookup is done are recorded together or not at all.
  void record(const Lookup& lookup, const StoreAnswer& said) const {
    const auto found = observedAmong(said.apps, lookup.request.ids);
    const auto transaction = services_.database.begin(SqlAccess::write);
    LookupResult result{.found = static_cast<std::int64_t>(found.size())};
    result.missing = static_cast<std::int64_t>(lookup.request.ids.size()) - result.found;
    result.changed = recordPrices(*transaction, lookup.request.country, found, services_.now());
    recordMissing(*transaction, lookup.request.country, missingAmong(said, lookup.request.ids),
                  services_.now());
    noteLook(*transaction, lookup.request.country, services_.now());
    // Where the lease had ended, whoever has the lookup now records it.
    if (finishLookup(*transaction, lookup, services_.worker, result)) transaction->commit();
  }

  std::chrono::milliseconds putBack(const Lookup& lookup, const std::exception_ptr& error) {
    const Failure failure = judged(failureOf(error), lookup);
    const bool isUseless = failure == Failure::useless;
    // Counts as a try of a question, so that the others come before it after the pause: the store
    // may have changed that chart for good.
    const bool isTried = failure == Failure::itsOwn || (isUseless && isQuestion(lookup));
    inTransaction(services_.database, SqlAccess::write, [&](SqlTransaction& transaction) {
      (isTried ? noteFailure : giveBack)(transaction, lookup, services_.worker);
    });
    if (failure == Failure::stopped) std::rethrow_exception(error);
    services_.say(fmt::format("{}: {}", nameOf(lookup), reasonOf(error)));
    if (failure == Failure::itsOwn) return 0ms;
    noteTrouble(services_.database,
                {services_.now(), fmt::format("{}: {}", nameOf(lookup), reasonOf(error))});
    return pauseAfter(error, failure);
  }

  /// What a failure means beside what came before it.
  Failure judged(Failure failure, const Lookup& lookup) {
    const bool isPausing = pausedRefused_ + pausedUnreachable_ > 0min;
    // Where others were answered just now, it is this one that the store has no answer to.
    if (failure == Failure::useless && hasAnswered_ && !isPausing) failure = Failure::itsOwn;
    // One that was asked before says nothing new: it may be of the few that are left at the end.
    if (failure != Failure::itsOwn || lookup.attempts > 0) return failure;
    return ++unlikedInARow_ > kMostUnlikedInARow ? Failure::useless : failure;
  }

  std::chrono::milliseconds pauseAfter(const std::exception_ptr& error, Failure failure) {
    const bool isRefused = failure == Failure::refused;
    const auto patience = isRefused ? kPatienceWhenRefused : kPatienceWhenUnreachable;
    // Each kind has its own, so that a store which refuses after an outage is not given up at once.
    std::chrono::minutes& paused = isRefused ? pausedRefused_ : pausedUnreachable_;
    if (paused >= patience) std::rethrow_exception(error);
    // After 1, 3, 7 … minutes the next pause is a minute longer than all before.
    const auto pause = std::min(paused + kFirstPause, kLongestPause);
    paused += pause;
    // The longest comes when half an hour is lost already, and again as long as the store is away.
    if (pause == kLongestPause) {
      services_.warn(fmt::format("Pausing for {} min: {}", pause.count(), reasonOf(error)));
    } else {
      services_.say(fmt::format("Pausing for {} min.", pause.count()));
    }
    return pause;
  }

  void tellProgress() {
    const auto now = services_.clock.monotonic();
    if (now - lastProgress_ < kProgressEvery) return;
    lastProgress_ = now;
    const Round round = newest();
    const std::string changed =
        round.preparation ? "" : fmt::format("; prices changed: {}", round.sums.changed);
    services_.say(progressOf(round) + changed + '.');
  }

  const CollectorServices& services_;
  Clock::Monotonic lastProgress_;
  bool isPreparing_;          ///< as far as we have seen
  bool hasAnswered_ = false;  ///< the store, to us
  // Since the last answer:
  int unlikedInARow_ = 0;  ///< lookups that the store had no answer to, each at its first try
  std::chrono::minutes pausedRefused_{0};
  std::chrono::minutes pausedUnreachable_{0};
  bool isWaiting_ = false;
};

}  // namespace

Task<Round> collectRound(CollectorServices services, StopToken stop) {
  RoundWork work(services);
  for (;;) {
    std::chrono::milliseconds pause{0};
    if (const std::optional<Lookup> lookup = work.take()) {
      const Answer answer = co_await answerTo(services, lookup->request, stop);
      pause = work.settle(*lookup, answer);
    } else if (!work.freeLeasesOfTheDead()) {
      const Left left = work.end();
      if (left == Left::nothing) co_return work.newest();
      if (left == Left::others) pause = work.nextLook();
    }
    if (pause > 0ms) co_await services.clock.sleepFor(pause, stop);
  }
}

}  // namespace quillet
