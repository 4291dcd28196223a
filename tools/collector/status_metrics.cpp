// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/status_metrics.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace quillet {

namespace {

/// Lines of gauges. The samples of one stand together, under its help.
class Metrics {
 public:
  void gauge(std::string_view name, std::string_view help) {
    name_ = fmt::format("quillet_collector_{}", name);
    head_ = fmt::format("# HELP {0} {1}\n# TYPE {0} gauge\n", name_, help);
  }

  /// `labels`: as they stand between braces; their values are words of ours.
  void sample(std::int64_t value, const std::string& labels = {}) {
    text_ += std::exchange(head_, {});
    text_ += labels.empty() ? fmt::format("{} {}\n", name_, value)
                            : fmt::format("{}{{{}}} {}\n", name_, labels, value);
  }
  void sample(std::optional<Instant> time, const std::string& labels = {}) {
    if (time)
      sample(std::chrono::floor<std::chrono::seconds>(*time).time_since_epoch().count(), labels);
  }

  void gauge(std::string_view name, std::string_view help, std::int64_t value) {
    gauge(name, help);
    sample(value);
  }
  void gauge(std::string_view name, std::string_view help, std::optional<Instant> time) {
    gauge(name, help);
    sample(time);
  }

  [[nodiscard]] std::string take() { return std::move(text_); }

 private:
  std::string name_;
  std::string head_;
  std::string text_;
};

std::string ofStorefront(const std::string& country) {
  return fmt::format(R"(storefront="{}")", country);
}

void addVerdict(Metrics& metrics, const StatusReport& report) {
  metrics.gauge("status_timestamp_seconds", "When these figures were taken.", report.now);
  metrics.gauge("well", "1 where nothing must be done.",
                std::int64_t{report.problems.empty() ? 1 : 0});
  metrics.gauge("problem", "1 for each thing that somebody must do something about.");
  for (const auto& [problem, word] : kProblemWords) {
    const bool isFound = std::ranges::find(report.problems, problem, &FoundProblem::problem) !=
                         report.problems.end();
    metrics.sample(std::int64_t{isFound ? 1 : 0}, fmt::format(R"(code="{}")", word));
  }
}

void addRounds(Metrics& metrics, const StatusReport& report) {
  const RecordStatus& record = report.record;
  if (record.newest) {
    const Round& round = *record.newest;
    metrics.gauge("round", "The number of the round under way, or else of the last one.", round.id);
    metrics.gauge("round_began_timestamp_seconds", "When it began.", round.began);
    metrics.gauge("round_ended_timestamp_seconds", "When it ended; none while it is under way.",
                  round.ended);
    metrics.gauge("round_lookups", "Its lookups, by what became of them.");
    metrics.sample(round.done - round.failed, R"(state="done")");
    metrics.sample(round.failed, R"(state="failed")");
    metrics.sample(round.lookups - round.done, R"(state="left")");
    metrics.gauge("round_changed_prices", "Prices that it found changed.", round.sums.changed);
  }
  const auto success = record.lastSuccess ? std::optional(record.lastSuccess->ended) : std::nullopt;
  metrics.gauge("last_success_timestamp_seconds",
                "When the last round ended in which nothing failed.", success);
  const auto trouble =
      record.troubles.last ? std::optional(record.troubles.last->at) : std::nullopt;
  metrics.gauge("last_trouble_timestamp_seconds",
                "When something last kept a collector from the store's answers.", trouble);
  metrics.gauge("next_due_timestamp_seconds", "When the next round is due.", report.nextDue);
}

void addRecord(Metrics& metrics, const RecordStatus& record) {
  const RecordCounts& counts = record.counts;
  metrics.gauge("apps", "Recorded apps, each in each storefront.");
  metrics.sample(counts.apps - counts.gone, R"(state="sold")");
  metrics.sample(counts.gone, R"(state="gone")");
  metrics.gauge("moved_apps", "Apps with a price that ever changed.", counts.moved);
  metrics.gauge("prices", "Recorded prices.", counts.prices);
  metrics.gauge("record_bytes", "How much room the record takes.", counts.bytes);
  metrics.gauge("looked_timestamp_seconds", "When the store last answered a lookup.");
  for (const StorefrontStatus& each : record.storefronts)
    metrics.sample(each.looked, ofStorefront(each.country));
  metrics.gauge("changed_timestamp_seconds", "When what is to be published last changed.");
  for (const StorefrontStatus& each : record.storefronts)
    metrics.sample(each.changed, ofStorefront(each.country));
}

void addPublished(Metrics& metrics, const PublishedStatus& published) {
  metrics.gauge("published_apps", "Published apps.");
  for (const PublishedStorefront& each : published.storefronts)
    metrics.sample(each.apps, ofStorefront(each.country));
  metrics.gauge("published_changed_timestamp_seconds", "The newest change that is published.");
  for (const PublishedStorefront& each : published.storefronts)
    metrics.sample(each.stamp, ofStorefront(each.country));
  metrics.gauge("published_looked_timestamp_seconds",
                "When, as is published, the store last answered a lookup.");
  for (const PublishedStorefront& each : published.storefronts)
    metrics.sample(each.looked, ofStorefront(each.country));
}

}  // namespace

std::string statusMetrics(const StatusReport& report) {
  Metrics metrics;
  addVerdict(metrics, report);
  addRounds(metrics, report);
  addRecord(metrics, report.record);
  addPublished(metrics, report.published);
  return metrics.take();
}

}  // namespace quillet
