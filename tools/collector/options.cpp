// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/options.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "base/enum_table.h"
#include "base/numbers.h"
#include "base/text.h"
#include "store/records/storefronts.h"

namespace quillet {

namespace {

constexpr EnumTable<CollectorCommand, 7> kCommands{{
    {CollectorCommand::help, "help"},
    {CollectorCommand::version, "version"},
    {CollectorCommand::init, "init"},
    {CollectorCommand::collect, "collect"},
    {CollectorCommand::publish, "publish"},
    {CollectorCommand::repair, "repair"},
    {CollectorCommand::status, "status"},
}};
static_assert(isComplete(kCommands, CollectorCommand::status));

constexpr std::int64_t kMostRequestsPerMinute = 100'000;
constexpr std::int64_t kMostHours = 8760;  // a year

std::string trackedList() { return fmt::format("{}", fmt::join(kTrackedStorefronts, ", ")); }

std::int64_t number(std::string_view option, const std::string& value, std::int64_t highest) {
  const auto whole = parseWhole(value);
  if (!whole || *whole < 1 || *whole > highest)
    throw BadUsage(fmt::format("{} takes a number from 1 to {}.", option, highest));
  return *whole;
}

void setDatabase(CollectorOptions& options, const std::string& value) {
  if (value.empty()) throw BadUsage("--database takes a file or a server's address.");
  options.database = value;
}
void setStorefronts(CollectorOptions& options, const std::string& value) {
  options.storefronts.clear();
  for (const std::string_view piece : split(value, ',')) {
    const std::string country = lowerAscii(trimmed(piece));
    if (std::ranges::find(kTrackedStorefronts, country) == kTrackedStorefronts.end()) {
      throw BadUsage(fmt::format("'{}' is no tracked storefront. Tracked storefronts: {}.",
                                 printable(piece), trackedList()));
    }
    const bool isListed =
        std::ranges::find(options.storefronts, country) != options.storefronts.end();
    if (!isListed) options.storefronts.push_back(country);
  }
}
void setIds(CollectorOptions& options, const std::string& value) { options.idsFile = value; }
void setCharts(CollectorOptions& options, const std::string&) { options.wantsCharts = true; }
void setRecorded(CollectorOptions& options, const std::string&) { options.wantsRecorded = true; }
void addSearch(CollectorOptions& options, const std::string& value) {
  if (trimmed(value).empty()) throw BadUsage("--search takes words to search for.");
  options.searches.push_back(value);
}
void setRate(CollectorOptions& options, const std::string& value) {
  options.requestsPerMinute =
      static_cast<int>(number("--requests-per-minute", value, kMostRequestsPerMinute));
}
void setEvery(CollectorOptions& options, const std::string& value) {
  options.every = std::chrono::hours(number("--every", value, kMostHours));
}
void setShrink(CollectorOptions& options, const std::string&) { options.mayShrink = true; }
void setJson(CollectorOptions& options, const std::string&) { options.wantsJson = true; }
void setMetrics(CollectorOptions& options, const std::string& value) {
  if (value.empty()) throw BadUsage("--metrics takes a file.");
  options.metricsFile = value;
}
void setAsOf(CollectorOptions& options, const std::string& value) {
  const bool isDay = value.find('T') == std::string::npos;
  options.asOf = parseInternetDate(isDay ? value + "T00:00:00Z" : value);
  if (!options.asOf)
    throw BadUsage("--as-of takes a day or a time like 2026-11-21 or 2026-11-21T03:00:00Z.");
}

/// The commands that an option belongs to, a bit each.
using Commands = std::uint32_t;

constexpr Commands only(CollectorCommand command) { return 1U << static_cast<unsigned>(command); }
constexpr Commands kAll = ~Commands{0};
constexpr Commands kCollect = only(CollectorCommand::collect);
constexpr Commands kPublish = only(CollectorCommand::publish);
constexpr Commands kStatus = only(CollectorCommand::status);

struct OptionRow {
  Commands commands;
  std::string_view name;
  std::string_view value;  ///< empty: takes none
  std::string_view help;
  void (*set)(CollectorOptions&, const std::string& value);
};

constexpr auto kOptions = std::to_array<OptionRow>({
    {kAll, "--database", "FILE|URI", "Where prices are recorded", setDatabase},
    {kCollect, "--storefronts", "CC,CC", "Ask these storefronts instead of all ten",
     setStorefronts},
    {kCollect, "--ids", "FILE", "Look up these: a track ID a line; - is standard input", setIds},
    {kCollect, "--charts", "", "Look up the apps of the top charts", setCharts},
    {kCollect, "--search", "TERMS", "Look up what a search finds; may be repeated", addSearch},
    {kCollect, "--recorded", "", "Look up all apps that were recorded before", setRecorded},
    {kCollect, "--requests-per-minute", "N", "Send so many at most (15)", setRate},
    {kCollect | kStatus, "--every", "HOURS", "A round begins only so long after the last one",
     setEvery},
    {kPublish, "--shrink", "", "Publish even if much less is left than before", setShrink},
    {kCollect, "--as-of", "TIME", "Record under this day or time, not the clock's", setAsOf},
    {kStatus, "--json", "", "Tell it as JSON", setJson},
    {kStatus, "--metrics", "FILE", "Tell it also in a file for Prometheus' node exporter",
     setMetrics},
});

const OptionRow& rowOf(const std::string& name) {
  const auto row = std::ranges::find(kOptions, name, &OptionRow::name);
  if (row == kOptions.end()) throw BadUsage(fmt::format("Unknown option '{}'.", printable(name)));
  return *row;
}

/// Help and the version can be asked for anywhere.
std::optional<CollectorCommand> switchedTo(std::string_view word) {
  if (word == "-h" || word == "--help") return CollectorCommand::help;
  if (word == "--version") return CollectorCommand::version;
  return {};
}

void addOperand(CollectorOptions& options, const std::string& operand) {
  if (operand.empty()) throw BadUsage("An argument is empty.");
  if ((only(options.command) & (kPublish | kStatus)) == 0 || !options.folder.empty())
    throw BadUsage(fmt::format("Unexpected argument '{}'.", printable(operand)));
  options.folder = operand;
}

void check(const CollectorOptions& options) {
  const bool hasSource = !options.idsFile.empty() || options.wantsCharts || options.wantsRecorded ||
                         !options.searches.empty();
  if (options.command == CollectorCommand::collect && !hasSource) {
    throw BadUsage("collect takes one or more of --ids, --charts, --search and --recorded.");
  }
}

std::string helpLine(const std::string& name, std::string_view help) {
  return fmt::format("  {:25}{}\n", name, help);
}

}  // namespace

CollectorOptions parseCollectorOptions(std::span<const std::string> arguments) {
  CollectorOptions options;
  options.storefronts.assign(kTrackedStorefronts.begin(), kTrackedStorefronts.end());
  if (arguments.empty()) throw BadUsage("There is no command.");
  auto command = switchedTo(arguments.front());
  if (!command) command = valueOf(kCommands, arguments.front());
  if (!command) throw BadUsage(fmt::format("Unknown command '{}'.", printable(arguments.front())));
  options.command = *command;
  for (std::size_t i = 1; i < arguments.size(); ++i) {
    if (const auto other = switchedTo(arguments[i])) {
      options.command = *other;
      continue;
    }
    if (!arguments[i].starts_with("--")) {
      addOperand(options, arguments[i]);
      continue;
    }
    const OptionRow& row = rowOf(arguments[i]);
    if ((row.commands & only(*command)) == 0 && !switchedTo(arguments.front()))
      throw BadUsage(fmt::format("{} takes no {}.", arguments.front(), row.name));
    if (!row.value.empty() && ++i == arguments.size())
      throw BadUsage(fmt::format("{} takes a value.", row.name));
    row.set(options, row.value.empty() ? std::string() : arguments[i]);
  }
  check(options);
  return options;
}

std::string collectorVersion() { return "quillet-collector " QUILLET_VERSION "\n"; }

std::string collectorHelp() {
  std::string text =
      "Usage: quillet-collector init [--database FILE|URI]\n"
      "  or:  quillet-collector collect SOURCES [OPTIONS]\n"
      "  or:  quillet-collector publish [FOLDER] [--database FILE|URI]\n"
      "  or:  quillet-collector repair [--database FILE|URI]\n"
      "  or:  quillet-collector status [FOLDER] [OPTIONS]\n\n"
      "init makes the record, an empty one. Nothing else does.\n\n"
      "collect looks up apps in the store and records each price that changed. A round\n"
      "that was interrupted is gone on with; several collectors with one PostgreSQL\n"
      "server share the work.\n\n"
      "publish writes the price files that Quillet reads below FOLDER, for any web\n"
      "server to hand out. Only apps whose price moved are in them. Without a FOLDER\n"
      "they go where quillet on this machine looks for them.\n\n"
      "repair takes out what a wrong clock recorded later than now.\n\n"
      "status tells how it stands with the record and with what is published in FOLDER:\n"
      "first whether somebody must do something (status 8), then why.\n\n"
      "Sources and options:\n";
  for (const OptionRow& row : kOptions)
    text += helpLine(fmt::format("{} {}", row.name, row.value), row.help);
  text += helpLine("-h, --help", "Show this help") + helpLine("--version", "Show the version");
  text += fmt::format(
      "\nA database is an SQLite file, or a PostgreSQL server's as\n"
      "postgresql://user@host/name or \"host=... dbname=...\".\n\n"
      "Tracked storefronts: {}.\n\n"
      "Environment: QUILLET_COLLECTOR_DATABASE stands for --database;\n"
      "QUILLET_ITUNES_URL, QUILLET_APP_STORE_URL and QUILLET_DATA_DIR mean what they\n"
      "mean to quillet.\n\n"
      "Exit statuses: 0 ok, 1 nothing to look up or to publish, 2 bad usage, 3 the\n"
      "store could not be reached or lookups failed, 4 the store wants fewer requests,\n"
      "5 the database or the folder failed, 6 what would be published is much less\n"
      "than before or more than readers take, 7 the record lies in the future,\n"
      "8 something must be done (status), 130 or 143 stopped by a signal. After 3, 4,\n"
      "5 and a signal the next collect goes on where this one ended.\n",
      trackedList());
  return text;
}

}  // namespace quillet
