// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/command_line_options.h"

#include <fmt/format.h>

#include "base/numbers.h"
#include "base/text.h"
#include "cli/cli_error.h"
#include "store/records/app_genre.h"
#include "store/records/storefronts.h"
#include "system/settings_keys.h"

namespace quillet {

namespace {

using Code = CLIError::Code;
using std::string_view;

constexpr int kMostRetries = 5;
constexpr double kBestRating = 5;

[[noreturn]] void refuse(const std::string& message, std::vector<std::string> suggestions = {}) {
  throw CLIError(Code::validation, message, std::move(suggestions));
}

[[noreturn]] void refuseNumber(string_view option, string_view value) {
  refuse(fmt::format("{} takes a number; got '{}'.", option, value));
}

[[noreturn]] void refuseWord(string_view option, string_view value, string_view accepted) {
  refuse(fmt::format("Unknown value '{}' for {}.", value, option),
         {fmt::format("{} takes {}", option, accepted)});
}

// Words that values are made of

template <typename Enum, std::size_t N>
std::vector<string_view> wordsIn(const EnumTable<Enum, N>& table) {
  std::vector<string_view> words;
  for (const auto& row : table) {
    if (!row.text.empty()) words.push_back(row.text);
  }
  return words;
}

template <const auto& Table>
std::vector<string_view> wordsOf() {
  return wordsIn(Table);
}

std::vector<string_view> storefrontCodes() {
  return {kTrackedStorefronts.begin(), kTrackedStorefronts.end()};
}

std::vector<string_view> genreNames() {
  std::vector<string_view> names;
  for (const AppGenre& genre : kAppGenres) names.push_back(genre.name);
  return names;
}

std::vector<string_view> starCounts() { return {"1", "2", "3", "4", "5"}; }
std::vector<string_view> retryCounts() { return {"0", "1", "2", "3", "4", "5"}; }

// Readers of values

double readNumber(string_view option, string_view value) {
  const auto number = parseDecimal(value);
  if (!number || *number < 0) refuseNumber(option, value);
  return *number;
}

std::int64_t readWhole(string_view option, string_view value) {
  const auto number = parseWhole(value);
  if (!number || *number < 0) refuseNumber(option, value);
  return *number;
}

template <typename Number>
std::optional<Number> wholeBetween(string_view value, Number lowest, Number highest) {
  const auto number = parseWhole(value);
  if (!number || std::cmp_less(*number, lowest) || std::cmp_greater(*number, highest)) return {};
  return static_cast<Number>(*number);
}

template <typename Enum, std::size_t N>
std::string acceptedWords(const EnumTable<Enum, N>& table) {
  return fmt::format("{}", fmt::join(wordsIn(table), ", "));
}

template <typename Enum, std::size_t N>
Enum readWord(const EnumTable<Enum, N>& table, string_view option, string_view value) {
  const auto found = value.empty() ? std::nullopt : valueOf(table, lowerAscii(value));
  if (!found) refuseWord(option, value, acceptedWords(table));
  return *found;
}

std::optional<std::string> countryCode(string_view value) {
  if (!isTwoLetters(value)) return {};
  return lowerAscii(value);
}

bool isDigits(string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == string_view::npos;
}

std::int64_t readYear(string_view option, string_view value) {
  if (value.size() != 4 || !isDigits(value)) {
    refuse(fmt::format("{} takes a four digit year; got '{}'.", option, value));
  }
  return *parseWhole(value);
}

// What each option does

void setPlatform(CLIOptions& options, string_view option, string_view value) {
  options.platform = valueOf(kPlatformWords, value);
  if (!options.platform) {
    refuse(fmt::format("Unknown platform '{}'.", value),
           {fmt::format("{} takes {}", option, acceptedWords(kPlatformWords))});
  }
}

void setCountry(CLIOptions& options, string_view, string_view value) {
  const auto code = countryCode(value);
  if (!code) refuse("Country must be a two letter storefront code.");
  options.country = *code;
  options.countryIsExplicit = true;
}

void setLimit(CLIOptions& options, string_view, string_view value) {
  const auto limit = wholeBetween(value, std::size_t{1}, kLongestList);
  if (!limit) refuse(fmt::format("Limit must be a whole number from 1 to 200; got '{}'.", value));
  options.limit = *limit;
}

void setMinRating(CLIOptions& options, string_view option, string_view value) {
  const double rating = readNumber(option, value);
  if (rating > kBestRating) refuse("--min-rating takes 0 to 5.");
  options.filters.minRating = rating;
}

void setStars(CLIOptions& options, string_view, string_view value) {
  options.stars = wholeBetween(value, 1, 5);
  if (!options.stars) refuse(fmt::format("--stars takes 1 to 5; got '{}'.", value));
}

void setRunsOn(CLIOptions& options, string_view option, string_view value) {
  const auto pieces = split(value, '.');
  if (!std::all_of(pieces.begin(), pieces.end(), isDigits)) {
    refuseWord(option, value, "a version such as 14.2");
  }
  options.filters.runsOn = OSRequirement{std::string(value)};
}

void setCountries(CLIOptions& options, string_view, string_view value) {
  options.countries.clear();
  for (const string_view piece : split(value, ',')) {
    const auto code = countryCode(piece);
    if (!code) {
      refuse(
          fmt::format("--countries takes two letter codes separated by commas; got '{}'.", value));
    }
    options.countries.push_back(*code);
  }
}

void setAllCountries(CLIOptions& options, string_view, string_view) {
  options.countries.assign(kTrackedStorefronts.begin(), kTrackedStorefronts.end());
}

void setRetries(CLIOptions& options, string_view, string_view value) {
  const auto retries = wholeBetween(value, 0, kMostRetries);
  if (!retries) refuse("--retry takes a number from 0 to 5.");
  options.retries = *retries;
}

void setJson(CLIOptions& options, string_view, string_view) { options.json = true; }

using Id = CommandId;

// Which commands heed an option

template <typename Predicate>
constexpr CommandSet commandsThat(Predicate predicate) {
  CommandSet set;
  for (const CommandRow& row : kCommands) {
    if (predicate(row)) set.add(row.id);
  }
  return set;
}

constexpr CommandSet kAnswering =
    commandsThat([](const CommandRow& row) { return row.need != CommandNeed::nothing; });
constexpr CommandSet kAsking =
    commandsThat([](const CommandRow& row) { return row.need == CommandNeed::network; });
constexpr CommandSet kFiltering(Id::search, Id::charts);

constexpr auto kOptions = std::to_array<OptionRow>({
    {"--json", "", "", "Machine readable output", kAnswering, nullptr, setJson},
    {"--agent", "", "", "The same as --json", kAnswering, nullptr, setJson},
    {"--platform", "-p", "<mac|iphone|ipad>", "Which store, or which of an app's builds",
     CommandSet(Id::search, Id::info, Id::deals, Id::myApps, Id::reviews, Id::charts,
                Id::rankHistory, Id::versions, Id::screenshots),
     wordsOf<kPlatformWords>, setPlatform},
    {"--country", "-c", "<code>", "Two letter storefront, instead of the one set in Quillet",
     CommandSet(Id::search, Id::info, Id::priceHistory, Id::purchaseHistory, Id::deals, Id::compare,
                Id::reviews, Id::charts, Id::rankHistory, Id::versions, Id::screenshots),
     storefrontCodes, setCountry},
    {"--limit", "-n", "<number>", "The most results, 1 to 200 (default: 25)",
     CommandSet(Id::search, Id::deals, Id::watchlist, Id::myApps, Id::reviews, Id::charts,
                Id::versions),
     nullptr, setLimit},
    {"--sort", "-s", "<order>", "Order of the results", kFiltering, wordsOf<kSortOrderWords>,
     [](CLIOptions& o, string_view option, string_view value) {
       o.sort = readWord(kSortOrderWords, option, value);
     }},
    {"--free", "", "", "Only apps that cost nothing", kFiltering, nullptr,
     [](CLIOptions& o, string_view, string_view) { o.filters.price = PriceFilter::free; }},
    {"--paid", "", "", "Only apps that cost something", kFiltering, nullptr,
     [](CLIOptions& o, string_view, string_view) { o.filters.price = PriceFilter::paid; }},
    {"--max-price", "", "<amount>", "Only apps up to this price", kFiltering, nullptr,
     [](CLIOptions& o, string_view option, string_view value) {
       o.filters.maxPrice = readNumber(option, value);
     }},
    {"--min-rating", "", "<0-5>", "Only apps rated this well", kFiltering, nullptr, setMinRating},
    {"--min-ratings", "", "<count>", "Only apps with this many ratings", kFiltering, nullptr,
     [](CLIOptions& o, string_view option, string_view value) {
       o.filters.minRatingCount = readWhole(option, value);
     }},
    {"--genre", "", "<name>", "Category, as Apple names it", kFiltering, genreNames,
     [](CLIOptions& o, string_view, string_view value) { o.filters.genre = value; }},
    {"--updated-within", "", "<month|6months|year|2years>", "Only apps updated this recently",
     kFiltering, wordsOf<kUpdatedFilterWords>,
     [](CLIOptions& o, string_view option, string_view value) {
       o.filters.updatedWithin = readWord(kUpdatedFilterWords, option, value);
     }},
    {"--max-size", "", "<100mb|500mb|2gb>", "Only apps up to this size", kFiltering,
     wordsOf<kSizeFilterWords>,
     [](CLIOptions& o, string_view option,
        string_view value) { o.filters.maxSize = readWord(kSizeFilterWords, option, value); }},
    {"--purchases", "",
     "<has-subscription|no-subscription|has-iap|no-iap|buy-outright|subscription-only>",
     "What is sold inside", kFiltering, wordsOf<kPurchaseFilterWords>,
     [](CLIOptions& o, string_view option, string_view value) {
       o.filters.purchases = readWord(kPurchaseFilterWords, option, value);
     }},
    {"--architecture", "", "<apple-silicon|needs-rosetta>", "How the Mac build is compiled",
     kFiltering, wordsOf<kArchitectureFilterWords>,
     [](CLIOptions& o, string_view option, string_view value) {
       o.filters.architecture = readWord(kArchitectureFilterWords, option, value);
     }},
    {"--released-after", "", "<year>", "Only apps first released in this year or later", kFiltering,
     nullptr,
     [](CLIOptions& o, string_view option,
        string_view value) { o.filters.released = ReleasedFrom{readYear(option, value)}; }},
    {"--released-before", "", "<year>", "Only apps first released before this year", kFiltering,
     nullptr,
     [](CLIOptions& o, string_view option,
        string_view value) { o.filters.released = ReleasedBefore{readYear(option, value)}; }},
    {"--released-within", "", "<months>", "Only apps first released in the last months", kFiltering,
     nullptr,
     [](CLIOptions& o, string_view option,
        string_view value) { o.filters.released = ReleasedWithin{readWhole(option, value)}; }},
    {"--runs-on", "", "<os-version>", "Only apps that install on this version", kFiltering, nullptr,
     setRunsOn},
    {"--hide-owned", "", "", "Leave out apps in My Apps", kFiltering, nullptr,
     [](CLIOptions& o, string_view, string_view) { o.filters.hideOwned = true; }},
    {"--chart", "", "<top-free|top-paid|top-grossing>", "Which chart (default: top-free)",
     CommandSet(Id::charts), wordsOf<kChartTypeWords>,
     [](CLIOptions& o, string_view option, string_view value) {
       o.chart = readWord(kChartTypeWords, option, value);
     }},
    {"--recent", "", "", "Newest first, each with the version it was written for",
     CommandSet(Id::reviews), nullptr,
     [](CLIOptions& o, string_view, string_view) { o.recentFirst = true; }},
    {"--versions", "", "", "Best-effort versions on the default source", CommandSet(Id::reviews),
     nullptr, [](CLIOptions& o, string_view, string_view) { o.wantsVersions = true; }},
    {"--all-countries", "", "", "The ten tracked storefronts", CommandSet(Id::reviews), nullptr,
     setAllCountries},
    {"--countries", "", "<cc,cc,…>", "Several storefronts, grouped", CommandSet(Id::reviews),
     nullptr, setCountries},
    {"--stars", "", "<1-5>", "Only this rating", CommandSet(Id::reviews), starCounts, setStars},
    {"--outdated", "", "", "Only apps with an update", CommandSet(Id::myApps), nullptr,
     [](CLIOptions& o, string_view, string_view) { o.outdatedOnly = true; }},
    {"--min-drop", "", "<percent>", "Only prices that fell by this much", CommandSet(Id::deals),
     nullptr,
     [](CLIOptions& o, string_view option,
        string_view value) { o.minimumDrop = readNumber(option, value); }},
    {"--retry", "", "<0-5>", "How often to try again when Apple rate limits (default: 2)", kAsking,
     retryCounts, setRetries},
    {"--no-retry", "", "", "Fail fast when Apple rate limits", kAsking, nullptr,
     [](CLIOptions& o, string_view, string_view) { o.retries = 0; }},
});

constexpr std::size_t kRetryOptions = 2;

const OptionRow* findIn(std::span<const OptionRow> rows, string_view argument) {
  for (const OptionRow& row : rows) {
    if (argument == row.name || (!row.shortName.empty() && argument == row.shortName)) return &row;
  }
  return nullptr;
}

void note(const OptionRow& row, CLIOptions& options) {
  if (std::ranges::find(options.given, &row) == options.given.end()) options.given.push_back(&row);
}

/// As one would type it after a blank.
std::string valueWord(string_view value) {
  constexpr string_view kPlain =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789._,-+";
  const bool isPlain = !value.empty() && value.find_first_not_of(kPlain) == string_view::npos;
  return isPlain ? std::string(value) : shellQuoted(value);
}

/// For an option that stands in one word with its value ("--limit=5", "-n5"), the two words; absent
/// for anything else.
std::optional<std::string> spelledApart(string_view argument) {
  const std::size_t equals = argument.find('=');
  const std::size_t end = argument.starts_with("--") ? equals : 2;
  if (end >= argument.size()) return {};
  const OptionRow* row = findIn(kOptions, argument.substr(0, end));
  if (row == nullptr) return {};
  if (row->placeholder.empty()) return std::string(row->name);
  const std::size_t value = end == equals ? end + 1 : end;
  return fmt::format("{} {}", argument.substr(0, end), valueWord(argument.substr(value)));
}

[[noreturn]] void refuseUnknown(const std::string& argument) {
  std::vector<std::string> suggestions{"quillet help"};
  if (auto spelling = spelledApart(argument)) {
    suggestions.insert(suggestions.begin(), std::move(*spelling));
  }
  refuse(fmt::format("Unknown option '{}'.", argument), std::move(suggestions));
}

/// Takes the retry options out, wherever they stand: an argument that looks like one of them is
/// never another option's value.
std::vector<std::string> withoutRetryOptions(std::span<const std::string> arguments,
                                             CLIOptions& options) {
  std::vector<std::string> rest;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const OptionRow* row = findIn(optionRows().last(kRetryOptions), arguments[i]);
    if (row == nullptr) {
      rest.push_back(arguments[i]);
      continue;
    }
    note(*row, options);
    const bool takesValue = !row->placeholder.empty();
    row->apply(options, row->name, takesValue && ++i < arguments.size() ? arguments[i] : "");
  }
  return rest;
}

}  // namespace

std::span<const OptionRow> optionRows() { return kOptions; }

CLIOptions parseOptions(std::span<const std::string> arguments, std::string country) {
  CLIOptions options;
  options.country = std::move(country);
  const std::vector<std::string> rest = withoutRetryOptions(arguments, options);
  for (std::size_t i = 0; i < rest.size(); ++i) {
    const std::string& argument = rest[i];
    if (const OptionRow* row = findIn(kOptions, argument); row == nullptr) {
      if (argument.starts_with('-')) refuseUnknown(argument);
      options.operands.push_back(argument);
    } else if (row->placeholder.empty()) {
      row->apply(options, argument, {});
      note(*row, options);
    } else if (i + 1 < rest.size()) {
      row->apply(options, argument, rest[++i]);
      note(*row, options);
    } else {
      throw CLIError(Code::missingRequired, argument + " needs a value.");
    }
  }
  return options;
}

std::vector<const OptionRow*> ignoredOptions(CommandId command, const CLIOptions& options) {
  std::vector<const OptionRow*> ignored;
  std::ranges::copy_if(options.given, std::back_inserter(ignored), [command](const OptionRow* row) {
    return !row->commands.contains(command);
  });
  return ignored;
}

bool heedsCountry(CommandId command) {
  return findIn(kOptions, "--country")->commands.contains(command);
}

}  // namespace quillet
