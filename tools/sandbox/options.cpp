// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/options.h"

#include <array>

#include "base/dates.h"
#include "base/numbers.h"

namespace quillet::sandbox {

namespace {

std::int64_t number(std::string_view option, std::string_view value, std::int64_t highest) {
  const auto whole = parseWhole(value);
  if (!whole || *whole < 0 || *whole > highest)
    throw BadUsage(fmt::format("{} takes a number from 0 to {}", option, highest));
  return *whole;
}

void setPort(Options& options, std::string_view value) {
  options.port = static_cast<int>(number("--port", value, 65535));
}
void setApps(Options& options, std::string_view value) {
  options.store.apps = static_cast<std::uint32_t>(number("--apps", value, Generator::kMostApps));
}
void setSeed(Options& options, std::string_view value) {
  options.store.seed =
      static_cast<std::uint64_t>(number("--seed", value, std::numeric_limits<std::int64_t>::max()));
}
std::chrono::sys_days day(std::string_view option, std::string_view value) {
  const auto midnight = parseInternetDate(fmt::format("{}T00:00:00Z", value));
  if (!midnight) throw BadUsage(fmt::format("{} takes a date like 2026-11-21", option));
  return std::chrono::floor<std::chrono::days>(*midnight);
}

void setToday(Options& options, std::string_view value) {
  options.store.today = day("--today", value);
}
void setPricesOf(Options& options, std::string_view value) {
  options.store.pricesOf = day("--prices-of", value);
}
void addFault(Options& options, std::string_view value) {
  try {
    options.faults.push_back(parseFault(value));
  } catch (const BadFault& bad) {
    throw BadUsage(fmt::format("--fault \"{}\": {}", value, bad.what()));
  }
}
void setLibrary(Options& options, std::string_view value) { options.library = value; }
void setLog(Options& options, std::string_view) { options.isLogging = true; }
void setNoPictures(Options& options, std::string_view) { options.hasPictures = false; }

struct OptionRow {
  std::string_view name;
  std::string_view value;  ///< empty: takes none
  std::string_view help;
  void (*set)(Options&, std::string_view value);
};

constexpr std::array<OptionRow, 9> kOptions{{
    {"--port", "N", "Listen there instead of on any free port", setPort},
    {"--apps", "N", "Have so many apps (2000)", setApps},
    {"--seed", "N", "Make up other ones (1)", setSeed},
    {"--today", "DATE", "Let the store's day be this one, as 2026-11-21", setToday},
    {"--library", "DIR", "Keep a sample library there, made where there is none", setLibrary},
    {"--prices-of", "DATE", "Sell at the prices of that day of the past year", setPricesOf},
    {"--fault", "TEXT", "Let something go wrong; may be given several times", addFault},
    {"--no-pictures", "", "Let addresses of pictures lead nowhere", setNoPictures},
    {"--log", "", "Write a line for each request to standard error", setLog},
}};

const OptionRow& rowOf(std::string_view name) {
  const auto row = std::ranges::find(kOptions, name, &OptionRow::name);
  if (row == kOptions.end()) throw BadUsage(fmt::format("unknown option {}", name));
  return *row;
}

/// What a word that asks for help or the version is answered; empty for any other.
std::string answerTo(std::string_view word) {
  if (word == "-h" || word == "--help") return helpText();
  return word == "--version" ? "quillet-sandbox " QUILLET_VERSION "\n" : "";
}

std::vector<std::string> commandIn(std::span<const std::string> words) {
  if (words.empty()) throw BadUsage("no command behind \"--\"");
  return {words.begin(), words.end()};
}

/// Reads the first option; returns how many arguments it is.
std::size_t taken(Options& options, std::span<const std::string> arguments) {
  if (std::string answer = answerTo(arguments.front()); !answer.empty()) {
    options.answer = std::move(answer);
    return 1;
  }
  const OptionRow& row = rowOf(arguments.front());
  const std::size_t size = row.value.empty() ? 1 : 2;
  if (arguments.size() < size) throw BadUsage(fmt::format("{} takes a value", row.name));
  row.set(options, size == 1 ? std::string_view() : arguments[1]);
  return size;
}

std::string helpLine(const std::string& name, std::string_view help) {
  return fmt::format("  {:18}{}\n", name, help);
}

}  // namespace

Options parseOptions(std::span<const std::string> arguments, std::chrono::sys_days today) {
  Options options;
  options.store.today = today;
  while (!arguments.empty()) {
    if (arguments.front() == "--") {
      options.command = commandIn(arguments.subspan(1));
      break;
    }
    arguments = arguments.subspan(taken(options, arguments));
  }
  return options;
}

std::string helpText() {
  std::string text =
      "Usage: quillet-sandbox [OPTIONS] [-- COMMAND [ARGUMENTS]]\n\n"
      "Plays the app store on this machine, with invented apps. Prints its address and\n"
      "serves until it is told to end; with a command, runs that with the address and the\n"
      "library's folder in its environment and ends with its status.\n\n";
  for (const OptionRow& row : kOptions)
    text += helpLine(fmt::format("{} {}", row.name, row.value), row.help);
  text += helpLine("-h, --help", "Show this help") + helpLine("--version", "Show the version");
  text +=
      "\nA fault is made of words, parted by blanks:\n"
      "  path=/search   only requests whose path begins so\n"
      "  after=N        the first N of them are spared\n"
      "  count=N        it happens N times, then no more\n"
      "  delay=MS       the answer comes late\n"
      "  status=N       the answer has this status\n"
      "and at most one of drop, stall, drip, truncate=BYTES, garbage, empty, stale,\n"
      "body=deep, body=invalid-utf8, body=huge, redirect=circle.\n";
  return text;
}

}  // namespace quillet::sandbox
