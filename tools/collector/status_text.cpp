// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/status_text.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/text.h"
#include "collector/round_pace.h"

namespace quillet {

namespace {

/// More are in the JSON.
constexpr std::size_t kShownIds = 10;

std::string verdict(const StatusReport& report) {
  if (!report.problems.empty()) {
    std::string text = "Something must be done:";
    for (const FoundProblem& problem : report.problems) text += ' ' + problem.text;
    return text;
  }
  const Round& round = report.record.newest.value();
  if (round.ended)
    return fmt::format("Well: round {} ended {} ago.", round.id,
                       spanText(report.now - *round.ended));
  const auto& trouble = report.record.troubles.last;
  const bool isTroubled = trouble && trouble->at > lastLook(report.record);
  return fmt::format("Well: round {} is under way, {}.{}", round.id, progressOf(round),
                     isTroubled ? " The store does not answer at present." : "");
}

std::string fact(std::string_view label, const std::string& value) {
  return value.empty() ? "" : fmt::format("{:<14}{}\n", label, value);
}

std::string ago(Instant then, const StatusReport& report) {
  return fmt::format("{}, {} ago", formatInternetDate(then), spanText(report.now - then));
}

std::string roundText(const RecordStatus& record) {
  if (!record.newest) return {};
  const Round& round = *record.newest;
  const std::string end =
      round.ended ? "ended " + formatInternetDate(*round.ended) : "under way: " + progressOf(round);
  return fmt::format("{}, began {}, {}", round.id, formatInternetDate(round.began), end);
}

std::string foundText(const RecordStatus& record) {
  if (!record.newest) return {};
  const Round& round = *record.newest;
  return fmt::format("failed lookups: {}, prices: {}, changed: {}, not sold: {}", round.failed,
                     round.sums.found, round.sums.changed, round.sums.missing);
}

std::string successText(const StatusReport& report) {
  const auto& success = report.record.lastSuccess;
  if (!success) return report.record.newest ? "none yet" : "";
  return fmt::format("round {}, ended {}", success->id, ago(success->ended, report));
}

std::string failedText(const FailedApps& failed) {
  const std::size_t shown = std::min(kShownIds, failed.ids.size());
  std::string text = fmt::format("{}: {}", failed.country,
                                 fmt::join(failed.ids.begin(), failed.ids.begin() + shown, " "));
  const auto more = failed.apps - static_cast<std::int64_t>(shown);
  return more > 0 ? fmt::format("{} and {} more", text, more) : text;
}

std::string troubleText(const StatusReport& report) {
  const auto& trouble = report.record.troubles.last;
  if (!trouble) return {};
  return fmt::format("{}: {}", ago(trouble->at, report), printable(trouble->words));
}

std::string dueText(const StatusReport& report) {
  if (!report.nextDue) return {};
  const std::string time = formatInternetDate(*report.nextDue);
  return *report.nextDue <= report.now ? "now, since " + time : time;
}

std::string countsText(const RecordCounts& counts) {
  return fmt::format("apps: {} (sold: {}, gone: {}; moved: {}), prices: {}, bytes: {}", counts.apps,
                     counts.apps - counts.gone, counts.gone, counts.moved, counts.prices,
                     counts.bytes);
}

std::string storefrontLine(std::string_view country, const std::string& looked,
                           const std::string& changed, const std::string& published,
                           const std::string& age, const std::string& apps) {
  return fmt::format("{:<12}{:<22}{:<22}{:<22}{:>11}{:>8}\n", country, looked, changed, published,
                     age, apps);
}

std::string timeText(std::optional<Instant> time) { return time ? formatInternetDate(*time) : "-"; }

std::string storefrontsText(const StatusReport& report) {
  if (report.record.storefronts.empty()) return {};
  std::string text =
      '\n' + storefrontLine("Storefront", "Looked at", "Changed", "Published", "Age", "Apps");
  const auto& published = report.published.storefronts;
  for (const StorefrontStatus& each : report.record.storefronts) {
    const auto found = std::ranges::find(published, each.country, &PublishedStorefront::country);
    const bool isThere = found != published.end();
    const auto stamp = isThere ? found->stamp : std::nullopt;
    text += storefrontLine(each.country, timeText(each.looked), timeText(each.changed),
                           timeText(stamp), stamp ? spanText(report.now - *stamp) : "-",
                           isThere ? std::to_string(found->apps) : "-");
  }
  return text;
}

}  // namespace

std::string statusText(const StatusReport& report) {
  std::string text = verdict(report) + "\n\n" + fact("Round", roundText(report.record)) +
                     fact("", foundText(report.record)) + fact("Last success", successText(report));
  for (const FailedApps& failed : report.record.failed) text += fact("Failed", failedText(failed));
  return text + fact("Last trouble", troubleText(report)) + fact("Next due", dueText(report)) +
         fact("Record", countsText(report.record.counts)) +
         fact("Published in", printable(report.published.folder.string())) +
         storefrontsText(report);
}

}  // namespace quillet
