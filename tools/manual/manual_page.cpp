// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <fmt/format.h>

#include <set>

#include "base/text.h"
#include "cli/cli_error.h"
#include "cli/help.h"
#include "manual/command_reference.h"
#include "manual/generated_files.h"

namespace quillet {

namespace {

using std::string_view;

/// A term and what is said of it.
struct Entry {
  string_view term;
  string_view text;
};

constexpr string_view kDescription =
    R"(Quillet asks Apple's App Store about apps for Mac, iPhone and iPad: it searches with filters
that the store lacks, tells everything known about an app, follows prices, charts, reviews and
releases, and reads the lists that the desktop application keeps. Each command prints a text for
people or, with --json, JSON for programs. Lists are only ever read.)";

constexpr string_view kUse =
    R"(The command comes first; options and operands follow in any order, each option's value as a
word of its own. Where a command takes an ID, a link to the app's page in the App Store will do.)";

constexpr string_view kLimits =
    R"(A list holds 25 results unless --limit asks for more, at most 200. --sort orders what the list
holds: the first matches in the store's order, or the chart's. Sort with --limit 200 to order all that
one answer can hold. On a terminal, standard error tells of a list that stopped at its limit, and of
options that a command ignores.)";

constexpr string_view kRates =
    R"(Apple allows few requests. Quillet sends at most 15 searches and lookups in a minute, says on a
terminal what it waits for, and where Apple still says "too many" it waits (20 s, then 45 s) before
it gives up.)";

constexpr string_view kDesktop =
    R"(Without a command, the desktop application starts. It checks the prices of the watched apps
every few hours, tells of drops and new versions through the desktop's notifications, and records
the top charts each day. Where it runs already, a second start hands its options over to it.)";

constexpr Entry kEnvironment[] = {
    {"QUILLET_ITUNES_URL", "Another search and lookup service."},
    {"QUILLET_APP_STORE_URL", "Another host of the App Store's web pages."},
    {"QUILLET_PRICE_DATA_URL", "The published price data: an address or a folder."},
    {"QUILLET_DATA_DIR", "Another data folder."},
    {"QUILLET_LOG",
     "A list of what to tell of on standard error, such as net,db: net tells of each request, db "
     "of each query of the library, lib of the warnings of libraries. A line of the log begins "
     "with "
     "the topic's name."},
    {"LC_ALL, LC_*, LANG",
     "How prices, numbers and dates are written, names are ordered, and whether signs beyond ASCII "
     "are printed. The region for prices (LC_MONETARY) is the storefront where none is set."},
    {"NO_COLOR, TERM", "No colours where the first is set or the second is \"dumb\"."},
    {"COLUMNS",
     "The width of tables where standard output is no terminal, or one that does not tell its "
     "own."},
    {"TMPDIR",
     "Holds a copy of the library, for a moment, where that cannot be read in its place."},
    {"http_proxy, https_proxy, no_proxy", "Proxies, as elsewhere."},
    {"XDG_CONFIG_HOME, XDG_DATA_HOME, XDG_CACHE_HOME",
     "Where settings, data and cache lie instead of in ~/.config, ~/.local/share and ~/.cache."},
};

constexpr Entry kFiles[] = {
    {"~/.config/quillet/quillet.conf",
     "Settings, in section [General]: storefrontCountry, which comes before the locale; itunesURL, "
     "appStoreURL and priceDataURL, which come after the environment; "
     "maintenanceSlowingAfterMonths, maintenanceStaleAfterMonths and "
     "maintenanceAbandonedAfterMonths; priceCheckIntervalHours; notificationsEnabled, without "
     "which nothing is notified until you agree in the window."},
    {"~/.local/share/quillet", "The library and, in price-data, published price data."},
    {"~/.cache/quillet", "What can be fetched again."},
};

struct StatusText {
  ExitStatus status;
  string_view text;
};

constexpr StatusText kStatuses[] = {
    {ExitStatus::ok, "It worked."},
    {ExitStatus::nothingFound, "Nothing was found."},
    {ExitStatus::badUsage, "The command line is wrong."},
    {ExitStatus::failure, "The network, Apple's servers or Quillet failed."},
    {ExitStatus::rateLimited, "Apple limits the rate of requests."},
};

/// A command line to type, and what it does.
constexpr Entry kExamples[] = {
    {"quillet search 'photo editor' --paid --sort price-low -n 200 \\\n"
     "  --purchases no-subscription",
     "Photo editors that are bought once, the cheapest of all that the store finds first."},
    {"quillet search 'markdown editor' --paid --json |\n"
     "  jq -r '.results[] | [.trackId, .formattedPrice, .name] | @tsv'",
     "One line for each result."},
    {"quillet info 1480068668 --json |\n"
     "  jq -r '.inAppPurchases[]? | select(.pricePerYear)\n"
     "    | \"\\(.name): \\(.pricePerYear * 100 | round / 100) \\(.currency)\"'",
     "What an app's subscriptions cost per year."},
    {"quillet deals --min-drop 50 --limit 200 --json |\n"
     "  jq -r '.deals[] | select(.nowPrice > 0)\n"
     "    | \"\\(.percentOff)%  \\(.name)\"'",
     "What fell by half and is not free."},
    {"quillet watchlist --limit 200 --json |\n"
     "  jq -r '.items[] | select(has(\"changeSinceAdded\")\n"
     "    and .changeSinceAdded < 0) | .name'",
     "Which watched apps became cheaper."},
    {"quillet reviews 1176895641 --stars 1 --json |\n"
     "  jq -r '.reviews[] | \"\\(.date[:10])  \\(.title)\"'",
     "What the unhappy say, by day."},
    {"quillet screenshots 1176895641 --json | jq -r '.screenshots[].url'",
     "The addresses of an app's screenshots."},
};

/// Text as roff prints it: a minus that can be copied, and nothing beyond ASCII but the ellipsis.
std::string roff(string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (constexpr string_view kEllipsis = "…"; text.substr(i).starts_with(kEllipsis)) {
      result += "\\[u2026]";
      i += kEllipsis.size() - 1;
    } else if (text[i] == '-') {
      result += "\\-";
    } else if (text[i] == '\\') {
      result += "\\e";
    } else if (text[i] == '\'') {
      result += "\\(aq";
    } else if (text[i] == '"') {
      result += "\\(dq";
    } else if (text[i] == '`') {
      result += "\\(ga";
    } else if (text[i] == '~') {
      result += "\\(ti";
    } else {
      result += text[i];
    }
  }
  return result;
}

/// Lines that begin with what roff takes for a request are text all the same.
std::string lines(string_view text) {
  std::string result = (text.starts_with('.') ? "\\&" : "") + roff(text);
  for (std::size_t at = 0; (at = result.find("\n.", at)) != std::string::npos; at += 2) {
    result.insert(at + 1, "\\&");
  }
  return result + '\n';
}

std::string section(string_view title) { return fmt::format(".SH {}\n", title); }

std::string paragraph(string_view text) { return ".PP\n" + lines(text); }

/// `term` is roff already.
std::string tagged(const std::string& term, string_view text) {
  return ".TP\n" + term + '\n' + lines(text);
}

/// Never parted at the end of a line: a broken option name cannot be copied.
std::string bold(string_view text) { return "\\fB\\%" + roff(text) + "\\fR"; }

std::string entries(std::span<const Entry> rows) {
  std::string text;
  for (const Entry& row : rows) text += tagged(bold(row.term), row.text);
  return text;
}

/// A long list of words is parted behind a bar.
std::string optionTerm(string_view name, string_view shortName, string_view placeholder) {
  std::string term = shortName.empty() ? bold(name) : bold(shortName) + ", " + bold(name);
  if (placeholder.empty()) return term;
  return fmt::format("{} {}", term, fmt::join(split(roff(placeholder), '|'), "|\\:"));
}

/// A placeholder that lists the words says enough.
std::string optionText(const OptionRow& option) {
  const bool listed = option.placeholder.find_first_of("|-") != string_view::npos;
  const auto words = wordsFor(option);
  if (listed || words.empty()) return fmt::format("{}.", option.summary);
  return fmt::format("{}: {}.", option.summary, fmt::join(words, ", "));
}

std::string usage(const CommandRow& command) {
  std::string text = fmt::format("quillet {}", command.word);
  if (!command.operands.empty()) text += fmt::format(" {}", command.operands);
  if (!optionsOf(command).empty()) text += " [options]";
  return text;
}

/// What is said of an option once stands under OPTIONS; a command names its options only.
std::string optionNames(const CommandRow& command) {
  std::string names;
  for (const OptionRow* option : optionsOf(command)) {
    names += names.empty() ? "Options: " : ", ";
    names += bold(option->name);
  }
  return names.empty() ? names : ".br\n" + names + ".\n";
}

std::string commands() {
  std::string text = section("COMMANDS");
  for (const CommandRow& command : kCommands) {
    text += tagged(bold(usage(command)), fmt::format("{}.", command.summary));
    text += optionNames(command);
  }
  return text;
}

std::string switches(std::initializer_list<SwitchRow> rows) {
  std::string text;
  for (const SwitchRow& row : rows) {
    text += tagged(optionTerm(row.name, row.shortName, ""), fmt::format("{}.", row.summary));
  }
  return text;
}

std::string options() {
  std::string text = section("OPTIONS");
  for (const OptionRow& option : optionRows()) {
    text +=
        tagged(optionTerm(option.name, option.shortName, option.placeholder), optionText(option));
  }
  return text + switches({kHelpSwitch, kVersionSwitch});
}

/// Lines without their indentation, which roff would keep; a blank line begins a paragraph.
std::string paragraphs(string_view text) {
  std::string result;
  for (const string_view line : split(text, '\n')) {
    result += line.empty() ? ".PP\n" : lines(trimmed(line));
  }
  return result;
}

std::string wordsUnder(HelpTopic topic) {
  std::string words;
  for (const CommandRow& command : kCommands) {
    if (command.topic != topic) continue;
    if (!words.empty()) words += ", ";
    words += command.word;
  }
  return words;
}

/// What the help of each topic says besides usage and options, in the order of the commands.
std::string notes() {
  std::string text = section("NOTES");
  std::set<HelpTopic> told{HelpTopic::main};
  for (const CommandRow& command : kCommands) {
    if (!told.insert(command.topic).second) continue;
    const HelpSections help = helpSections(command.topic);
    text += fmt::format(".SS {}\n", roff(wordsUnder(command.topic))) + paragraphs(help.about);
    if (!help.notes.empty()) text += ".PP\n" + paragraphs(help.notes);
  }
  return text;
}

std::string exitStatuses() {
  std::string text = section("EXIT STATUS");
  for (const StatusText& row : kStatuses) {
    text += tagged(fmt::format("{}", static_cast<int>(row.status)), row.text);
  }
  return text;
}

std::string examples() {
  std::string text = section("EXAMPLES") + lines("With --json every command feeds jq.");
  for (const Entry& row : kExamples) {
    text += paragraph(row.text) + ".PP\n.RS 4\n.nf\n" + lines(row.term) + ".fi\n.RE\n";
  }
  return text;
}

}  // namespace

std::string manualPage() {
  const std::string version = programVersion().shortVersion.value_or("");
  std::string text = fmt::format(
      ".\\\" Made from the program's own tables.\n.TH QUILLET 1 \"\" \"quillet {}\" \"User "
      "Commands\"\n.nh\n.ad l\n",
      version);
  text += section("NAME") + "quillet \\- search, compare and inspect apps of the App Store\n";
  text += section("SYNOPSIS") + "\\fBquillet\\fR \\fIcommand\\fR [\\fIoptions\\fR]\n.br\n" +
          "\\fBquillet help\\fR [\\fIcommand\\fR]\n.br\n"
          "\\fBquillet\\fR [\\fB\\-\\-background\\fR] [\\fB\\-\\-check\\-prices\\fR]\n";
  text += section("DESCRIPTION") + lines(kDescription) + paragraph(kUse) + paragraph(kLimits) +
          paragraph(kRates);
  text += commands() + options() + notes();
  text += section("DESKTOP APPLICATION") + lines(kDesktop) +
          switches({kBackgroundSwitch, kCheckPricesSwitch});
  text += section("ENVIRONMENT") + entries(kEnvironment) + section("FILES") + entries(kFiles);
  text += exitStatuses() + examples();
  return text + section("SEE ALSO") + "\\fBjq\\fR(1), \\fBcurl\\fR(1)\n";
}

}  // namespace quillet
