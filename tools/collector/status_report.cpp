// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/status_report.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "collector/round_pace.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

/// How old the last success may be: two rounds, where their distance is known.
constexpr std::chrono::hours kLongestLag{48};

/// So long after a round what is published may still lack it.
constexpr std::chrono::hours kTimeToPublish{1};

/// Of charts and searches that failed; where all of them do, a few tell it.
constexpr std::size_t kNamedQuestions = 5;

/// Finds what is wrong, the gravest first.
class Inspection {
 public:
  Inspection(const StatusReport& report, std::chrono::hours every)
      : report_(report), record_(report.record), limit_(every == 0h ? kLongestLag : 2 * every) {}

  std::vector<FoundProblem> problems() {
    if (!record_.newest) {
      add(Problem::noRound, "No round has begun yet.");
      return std::move(problems_);
    }
    lookForLag();
    lookForGivingUp();
    const auto& last = record_.lastEnded;
    if (last) lookForFailures(*last);
    lookForFailedQuestions();
    if (last && report_.now > last->ended + kTimeToPublish) lookAtPublished(*last);
    return std::move(problems_);
  }

 private:
  void add(Problem problem, std::string text) { problems_.push_back({problem, std::move(text)}); }

  void lookForLag() {
    if (const auto lag = lagOf(report_)) {
      if (*lag <= limit_) return;
      add(Problem::overdue,
          fmt::format("The last round without a failure ended {} ago.", spanText(*lag)));
      return;
    }
    const auto age = report_.now - record_.firstBegan.value_or(report_.now);
    if (age <= limit_) return;
    add(Problem::overdue,
        fmt::format("No round has ended without a failure since the first began {} ago.",
                    spanText(age)));
  }

  void lookForGivingUp() {
    const Troubles& troubles = record_.troubles;
    if (!troubles.last || !troubles.gaveUp || troubles.gaveUp <= lastLook(record_)) return;
    add(Problem::gaveUp, fmt::format("A collector gave up {} ago, and the store has not answered "
                                     "since.",
                                     spanText(report_.now - *troubles.gaveUp)));
  }

  void lookForFailedQuestions() {
    const std::vector<std::string>& failed = record_.failedQuestions;
    if (failed.empty()) return;
    const std::size_t named = std::min(failed.size(), kNamedQuestions);
    const std::size_t more = failed.size() - named;
    add(Problem::failedQuestions,
        fmt::format("Round {} had no answer to: {}{}.", record_.newest->id,
                    fmt::join(failed.begin(), failed.begin() + named, ", "),
                    more > 0 ? fmt::format(", and {} more", more) : ""));
  }

  void lookForFailures(const EndedRound& round) {
    if (round.failed == 0) return;
    add(Problem::failedLookups, fmt::format("Round {} ended with {} failed lookup{}.", round.id,
                                            round.failed, round.failed == 1 ? "" : "s"));
  }

  void lookAtPublished(const EndedRound& round) {
    if (report_.published.storefronts.empty()) {
      add(Problem::notPublished,
          fmt::format("Nothing is published in {}.", printable(report_.published.folder.string())));
      return;
    }
    std::vector<std::string> late;
    for (const StorefrontStatus& storefront : record_.storefronts) {
      if (storefront.looked >= round.began && !isIn(storefront, round))
        late.push_back(storefront.country);
    }
    if (late.empty()) return;
    add(Problem::publicationLags, fmt::format("What is published is older than round {} ({}).",
                                              round.id, fmt::join(late, ", ")));
  }

  /// Whether the round is in what is published, whose times are whole seconds. That it began before
  /// is enough only where the record no longer tells its last look.
  [[nodiscard]] bool isIn(const StorefrontStatus& storefront, const EndedRound& round) const {
    const auto& all = report_.published.storefronts;
    const auto found = std::ranges::find(all, storefront.country, &PublishedStorefront::country);
    if (found == all.end()) return false;
    const auto looked = found->looked ? found->looked : found->stamp;
    const Instant last = storefront.looked <= round.ended ? *storefront.looked : round.began;
    return looked >= std::chrono::floor<std::chrono::seconds>(last);
  }

  const StatusReport& report_;
  const RecordStatus& record_;
  std::chrono::hours limit_;
  std::vector<FoundProblem> problems_;
};

}  // namespace

StatusReport reportOn(RecordStatus record, PublishedStatus published, std::chrono::hours every,
                      Instant now) {
  StatusReport report{now, std::move(record), std::move(published), {}, {}};
  const std::optional<Round>& newest = report.record.newest;
  if (every != 0h && newest && newest->ended) report.nextDue = newest->began + every;
  report.problems = Inspection(report, every).problems();
  return report;
}

std::optional<std::chrono::milliseconds> lagOf(const StatusReport& report) {
  if (!report.record.lastSuccess) return {};
  return std::max(report.now - report.record.lastSuccess->ended, std::chrono::milliseconds(0));
}

}  // namespace quillet
