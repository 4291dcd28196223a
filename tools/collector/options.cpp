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

constexpr EnumTable<CollectorCommand, 11> kCommands{{
    {CollectorCommand::help, "help"},
    {CollectorCommand::version, "version"},
    {CollectorCommand::init, "init"},
    {CollectorCommand::collect, "collect"},
    {CollectorCommand::publish, "publish"},
    {CollectorCommand::repair, "repair"},
    {CollectorCommand::backup, "backup"},
    {CollectorCommand::restore, "restore"},
    {CollectorCommand::import, "import"},
    {CollectorCommand::forget, "forget"},
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
void setQuiet(CollectorOptions& options, const std::string&) { options.isQuiet = true; }
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

std::optional<Instant> dayIn(const std::string& value) {
  return parseInternetDate(value + "T00:00:00Z");
}
void setPriceOf(CollectorOptions& options, const std::string& value) {
  using namespace std::chrono_literals;
  if (const auto day = dayIn(value)) {
    options.priceOf = TimeSpan{*day, *day + 24h};
  } else if (const auto time = parseInternetDate(value)) {
    options.priceOf = TimeSpan{*time, *time + 1s};
  } else {
    throw BadUsage("--price-of takes a day like 2026-11-21, or a time like 2026-11-21T03:00:00Z.");
  }
}
void setBefore(CollectorOptions& options, const std::string& value) {
  options.before = dayIn(value);
  if (!options.before) throw BadUsage("--before takes a day like 2026-11-21.");
}

/// The commands that an option belongs to, a bit each.
using Commands = std::uint32_t;

constexpr Commands only(CollectorCommand command) { return 1U << static_cast<unsigned>(command); }
constexpr Commands kAll = ~Commands{0};
constexpr Commands kCollect = only(CollectorCommand::collect);
constexpr Commands kPublish = only(CollectorCommand::publish);
constexpr Commands kRepair = only(CollectorCommand::repair);
constexpr Commands kForget = only(CollectorCommand::forget);
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
    {kCollect | kForget, "--storefronts", "CC,CC", "These storefronts instead of all ten",
     setStorefronts},
    {kCollect, "--ids", "FILE", "Look up these: a track ID a line; - is standard input", setIds},
    {kCollect, "--charts", "", "Look up the apps of the top charts", setCharts},
    {kCollect, "--search", "TERMS", "Look up what a search finds; may be repeated", addSearch},
    {kCollect, "--recorded", "", "Look up all apps that were recorded before", setRecorded},
    {kCollect, "--requests-per-minute", "N", "Let this machine send so many at most (15)", setRate},
    {kCollect | kStatus, "--every", "HOURS", "A round begins only so long after the last one",
     setEvery},
    {kPublish, "--shrink", "", "Publish even if much less is left than before", setShrink},
    {kCollect | kRepair, "--as-of", "TIME", "The time that it is, if not the clock's", setAsOf},
    {kForget, "--price-of", "DAY|TIME", "Only the app's prices recorded then", setPriceOf},
    {kForget, "--before", "DAY", "Prices that no longer held then, and rounds", setBefore},
    {kCollect | kPublish, "--quiet", "", "Say only what is wrong or needs somebody", setQuiet},
    {kStatus, "--json", "", "Tell it as JSON", setJson},
    {kStatus, "--metrics", "FILE", "Tell it also in a file for Prometheus' node exporter",
     setMetrics},
});

const OptionRow& rowOf(const std::string& name) {
  const auto row = std::ranges::find(kOptions, name, &OptionRow::name);
  if (row == kOptions.end()) throw BadUsage(fmt::format("Unknown option '{}'.", printable(name)));
  return *row;
}

void setFolder(CollectorOptions& options, const std::string& value) { options.folder = value; }
bool hasFolder(const CollectorOptions& options) { return !options.folder.empty(); }
void setFile(CollectorOptions& options, const std::string& value) { options.file = value; }
bool hasFile(const CollectorOptions& options) { return !options.file.empty(); }
void setTrackId(CollectorOptions& options, const std::string& value) {
  options.trackId = parseWhole(value).value_or(0);
  if (options.trackId <= 0) throw BadUsage(fmt::format("'{}' is no track ID.", printable(value)));
}
bool hasTrackId(const CollectorOptions& options) { return options.trackId > 0; }

/// What a command takes beside options.
struct OperandRow {
  CollectorCommand command;
  std::string_view missing;  ///< what is said where it must be there; empty: it need not
  bool (*isSet)(const CollectorOptions&);
  void (*set)(CollectorOptions&, const std::string& value);
};

constexpr auto kOperands = std::to_array<OperandRow>({
    {CollectorCommand::publish, "", hasFolder, setFolder},
    {CollectorCommand::status, "", hasFolder, setFolder},
    {CollectorCommand::backup, "backup takes a FILE.", hasFile, setFile},
    {CollectorCommand::restore, "restore takes a FILE.", hasFile, setFile},
    {CollectorCommand::import, "import takes a FOLDER.", hasFolder, setFolder},
    {CollectorCommand::forget, "", hasTrackId, setTrackId},
});

/// Help and the version can be asked for anywhere.
std::optional<CollectorCommand> switchedTo(std::string_view word) {
  if (word == "-h" || word == "--help") return CollectorCommand::help;
  if (word == "--version") return CollectorCommand::version;
  return {};
}

void addOperand(CollectorOptions& options, const std::string& operand) {
  if (operand.empty()) throw BadUsage("An argument is empty.");
  const auto row = std::ranges::find(kOperands, options.command, &OperandRow::command);
  if (row == kOperands.end() || row->isSet(options))
    throw BadUsage(fmt::format("Unexpected argument '{}'.", printable(operand)));
  row->set(options, operand);
}

void check(const CollectorOptions& options) {
  const bool hasSource = !options.idsFile.empty() || options.wantsCharts || options.wantsRecorded ||
                         !options.searches.empty();
  if (options.command == CollectorCommand::collect && !hasSource) {
    throw BadUsage("collect takes one or more of --ids, --charts, --search and --recorded.");
  }
  for (const OperandRow& row : kOperands) {
    if (row.command == options.command && !row.missing.empty() && !row.isSet(options))
      throw BadUsage(std::string(row.missing));
  }
  if (options.command == CollectorCommand::forget &&
      (hasTrackId(options) == options.before.has_value() || (options.before && options.priceOf)))
    throw BadUsage("forget takes the ID of an app, with or without --price-of, or --before.");
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
      "  or:  quillet-collector repair [--as-of TIME] [--database FILE|URI]\n"
      "  or:  quillet-collector status [FOLDER] [OPTIONS]\n"
      "  or:  quillet-collector backup FILE [--database FILE|URI]\n"
      "  or:  quillet-collector restore FILE [--database FILE|URI]\n"
      "  or:  quillet-collector import FOLDER [--database FILE|URI]\n"
      "  or:  quillet-collector forget ID [--storefronts CC,CC] [--price-of DAY|TIME]\n"
      "  or:  quillet-collector forget --before DAY\n\n"
      "init makes the record, an empty one.\n\n"
      "collect looks up apps in the store and records each price that changed. A round\n"
      "that was interrupted is gone on with; several collectors with one PostgreSQL\n"
      "server share the work.\n\n"
      "publish writes the price files that Quillet reads below FOLDER, for any web\n"
      "server to hand out. Only apps whose price moved are in them. Without a FOLDER\n"
      "they go where quillet on this machine looks for them.\n\n"
      "repair takes out what a wrong clock recorded later than now, or than --as-of.\n\n"
      "backup copies the record into a new SQLite file, also while others collect.\n"
      "restore makes a record from such a file, here or in another kind of database;\n"
      "import makes one from what publish wrote into FOLDER.\n\n"
      "forget takes out an app, a wrong price of it, or what is older than a day.\n\n"
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
      "QUILLET_COLLECTOR_BUDGET_DIR is the folder in which this machine's collectors\n"
      "share their budget of requests (/run/lock or /tmp);\n"
      "QUILLET_ITUNES_URL, QUILLET_APP_STORE_URL and QUILLET_DATA_DIR mean what they\n"
      "mean to quillet.\n\n"
      "Exit statuses: 0 ok, 1 nothing to look up, publish or forget, 2 bad usage, 3 the\n"
      "store could not be reached or lookups failed, 4 the store wants fewer requests,\n"
      "5 the database or the folder failed, 6 what would be published is much less\n"
      "than before or more than readers take, 7 the record lies in the future,\n"
      "8 something must be done (status), 130 or 143 stopped by a signal. After 3, 4,\n"
      "5 and a signal the next collect goes on where this one ended.\n",
      trackedList());
  return text;
}

}  // namespace quillet
