// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string_view>

// The help as it is printed. People and scripts know these texts: change them with care.

namespace quillet::help_texts {

/// What follows the version line; the rows of the commands follow.
inline constexpr std::string_view kMainBeforeCommands = R"(

App Store data on the command line: search, compare and inspect
apps for Mac, iPhone and iPad.

USAGE: quillet <command> [options]

COMMANDS:
)";

inline constexpr std::string_view kMainAfterCommands = R"(
GLOBAL OPTIONS:
  -p, --platform <mac|iphone|ipad>
  -c, --country <code>
      --json                    Machine readable output, for agents
      --retry <0-5>             Retries when Apple rate limits
                                (default 2, waiting 20s then 45s)
      --no-retry                Fail fast instead
  -v, --version

Exit codes: 0 ok, 1 nothing found, 2 bad usage, 3 network or
upstream failure, 4 rate limited by Apple.)";

/// The help of a topic in its parts, which blank lines divide.
struct TopicText {
  std::string_view about;
  std::string_view usage;         ///< with the options
  std::string_view notesHeading;  ///< over indented notes, else empty
  std::string_view notes;         ///< may be empty
  std::string_view examples;
};

inline constexpr TopicText kSearch{
    R"(Search the App Store.)",

    R"(USAGE: quillet search <term> [options]

OPTIONS:
  -p, --platform <mac|iphone|ipad>  Which store to search (default: mac)
  -c, --country <code>              Two letter storefront (default: the
                                    one set in Quillet)
  -n, --limit <number>              1 to 200 results (default: 25)
  -s, --sort <order>                relevance, price-low, price-high,
                                    rating, popularity, updated,
                                    newest, name
      --json                        Machine readable output
  -h, --help                        This help

FILTERS:
      --free / --paid               Price
      --max-price <amount>
      --min-rating <0-5>
      --min-ratings <count>         Minimum number of ratings
      --genre <name>                Category, as Apple names it
      --updated-within <month|6months|year|2years>
      --max-size <100mb|500mb|2gb>
      --purchases <has-subscription|no-subscription|has-iap|
                   no-iap|buy-outright|subscription-only>
      --architecture <apple-silicon|needs-rosetta>   Mac only
      --released-after <year> / --released-before <year>
      --released-within <months>
      --runs-on <os-version>        Apps that install on this version
      --hide-owned                  Leave out apps in My Apps)",
    "",

    R"(Apple has no server-side filters, so a filtered search examines up
to 200 results and returns the first --limit that match. The JSON
reports how many were `scanned`.)",

    R"(EXAMPLES:
  quillet search "markdown editor" --json
  quillet search notes --platform iphone --country gb --limit 10 --json
  quillet search "photo editor" --paid --purchases no-subscription --sort price-low --json
  quillet search rss --architecture needs-rosetta --json)"};

inline constexpr TopicText kInfo{
    R"(Everything the store knows about one app, including what its
listing page does not show: real Mac ratings, in-app purchases with
what a subscription costs per year, and how the Mac build is
compiled.)",

    R"(USAGE: quillet info <track-id|bundle-id> [options]

OPTIONS:
  -p, --platform <mac|iphone|ipad>  Which build to describe
                                    (default: whichever the app is)
  -c, --country <code>              Two letter storefront (default: Quillet's)
      --json                        Machine readable output
  -h, --help                        This help)",
    "",

    "",

    R"(EXAMPLES:
  quillet info 1480068668 --json
  quillet info com.coteditor.CotEditor --country jp --json)"};

inline constexpr TopicText kLists{
    R"(Your own lists, read from Quillet's database.

Read only: an agent can report what is there, but adding and
removing stays in the app, where you can see what changed.)",

    R"(USAGE:
  quillet watchlist [-n <limit>] --json
  quillet my-apps [-p mac|iphone|ipad] [--outdated] [-n <limit>] --json
  quillet collections [name] --json
  quillet saved-searches --json)",
    "NOTES:\n",

    R"(  my-apps --outdated lists only the apps whose store version is
  newer than the one installed.

  collections with no name lists the collections and their sizes;
  with a name, it lists what is inside.

  saved-searches reports each search as the command that
  reproduces it, so a saved search can be run rather than retyped.)",

    R"(EXAMPLES:
  quillet watchlist --json
  quillet my-apps --outdated --json
  quillet collections "Writing" --json)"};

inline constexpr TopicText kReviews{
    R"(Customer reviews, with the developer's replies.)",

    R"(USAGE: quillet reviews <track-id> [options]

OPTIONS:
  -n, --limit <number>              How many to return (default: 25)
      --stars <1-5>                 Only this rating
  -p, --platform <mac|iphone|ipad>  Which build's reviews
                                    (default: whichever the app is)
  -c, --country <code>              Two letter storefront (default: Quillet's)
      --countries <cc,cc,…>         Read several storefronts, grouped
      --all-countries               The ten tracked storefronts
      --recent                      Newest first, each with the app
                                    version it was written for; no
                                    developer replies in this source
      --versions                    Best-effort versions on the
                                    default source
      --json                        Machine readable output)",
    "",

    R"(Apple pages these 20 at a time, so a large --limit costs several
requests. The JSON reports `fetched` alongside `count`: a small
count from a large fetched means --stars was strict, not that the
app is unreviewed.)",

    R"(EXAMPLES:
  quillet reviews 1176895641 --json
  quillet reviews 1176895641 --stars 1 --limit 10 --json
  quillet reviews 1176895641 --recent --limit 10 --json
  quillet reviews 1176895641 --stars 1 --all-countries --json)"};

inline constexpr TopicText kScreenshots{
    R"(Links to an app's screenshots, at the original size, as JPEG.)",

    R"(USAGE: quillet screenshots <track-id|bundle-id> [options]

OPTIONS:
  -p, --platform <mac|iphone|ipad>  Which device's screenshots
                                    (default: whichever the app is)
  -c, --country <code>              Two letter storefront (default: Quillet's)
      --json                        Machine readable output)",
    "",

    R"(Prints links, not files: the command line runs inside Quillet's
sandbox and cannot write to your folders. Text output is ready to
paste: one curl command per screenshot, each with its own filename.

When Apple's search API lists no Mac screenshots, which is often
the case and always for apps sold on Mac and iPhone under one ID,
they are read from the App Store web page instead. That page is
not a documented API and can change.)",

    R"(EXAMPLES:
  quillet screenshots 1176895641
  quillet screenshots 409183694 --platform ipad --json)"};

/// The category names stand for the braces, indented as their column is.
inline constexpr TopicText kCharts{
    R"(Top charts, where an app has ranked, and its release history.)",

    R"(USAGE:
  quillet charts [--chart top-free|top-paid|top-grossing]
                 [--genre <category>] [filters] --json
  quillet rank-history <track-id> [-p <platform>] --json
  quillet versions <track-id> [-n <limit>] --json

CHARTS OPTIONS:
      --chart <name>                top-free (default), top-paid,
                                    top-grossing
      --genre <category>            A category chart, by name or ID:
                                    {}
  -p, --platform <mac|iphone|ipad>  (default: mac)
  -n, --limit <number>              1 to 200 (default: 25)
      --hide-owned                  Leave out apps in My Apps
      Every search filter works too, over the whole chart.)",
    "NOTES:\n",

    R"(  There is no Mac top grossing chart: Apple's Mac grossing feed
  returns the iPhone chart, so Quillet refuses it rather than mislabel
  iPhone apps. Top grossing works for iPhone and iPad.

  Apple publishes a chart's current order and nothing else.
  Movement (up, down, new) comes from Quillet's own daily record of
  the store-wide top free and top paid charts, top 50 only, and is
  absent for category charts or before a second day is recorded.

  rank-history reads that same record, plus category ranks noted
  whenever the app's page was opened in Quillet.

  versions lists up to 25 releases, Apple's limit, with a
  maintenance verdict and the usual gap between releases.)",

    R"(EXAMPLES:
  quillet charts --chart top-paid --limit 10 --json
  quillet charts --genre "Developer Tools" --purchases no-subscription --json
  quillet charts --chart top-grossing --genre Productivity -p iphone --json
  quillet rank-history 1480068668 --json
  quillet versions 824183456 --limit 10 --json)"};

/// The storefronts stand for the braces.
inline constexpr TopicText kPrices{
    R"(Prices, from Quillet's own daily record.

Apple publishes only what an app costs today, so this history
exists because Quillet's collector writes it down every day across
ten storefronts: {}.)",

    R"(USAGE:
  quillet price-history <track-id> [-c <country>] --json
  quillet deals [-c <country>] [-p mac|iphone] [--min-drop <percent>]
                [-n <limit>] --json
  quillet compare <track-id> <track-id> … [-c <country>] --json
  quillet storefronts <track-id> --json)",
    "NOTES:\n",

    R"(  price-history and deals read published data, so they answer even
  when Apple is rate limiting. The feed carries apps whose price has
  moved, not the whole store, and history starts when the collector
  first saw an app.

  compare is the one worth reaching for: it reports what a year
  costs, converted from whatever period each subscription bills on.)",

    R"(EXAMPLES:
  quillet price-history 1480068668 --json
  quillet deals --min-drop 50 --limit 10 --json
  quillet compare 1176895641 1289583905 --json
  quillet storefronts 1176895641 --json)"};

inline constexpr TopicText kPurchaseHistory{
    R"(In-app purchase and subscription prices, as Quillet recorded them.

Watched apps only. Apple publishes these prices only on the App
Store website, and Quillet reads them for the watchlist on each
price check, so history starts at an app's first check after it
was added. A price is recorded again only when it changes.)",

    R"(USAGE: quillet purchase-history <track-id> [-c <country>] --json)", "NOTES:\n",

    R"(  Each purchase reports its latest price, the price before the
  last change (previousPrice) with changePercent, and every
  recorded price. changes: 0 means the price has held since it
  was first seen. Free trials are not tracked, only the regular
  price.

  watchlist --json shows, per app, how many purchases are tracked
  and how many have changed (purchasesTracked, purchasesChanged).)",

    R"(EXAMPLES:
  quillet purchase-history 1176895641 --json
  quillet watchlist --json)"};

}  // namespace quillet::help_texts
