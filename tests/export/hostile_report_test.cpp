// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// Texts that would do something if a report let them.

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "base/text.h"
#include "export/known_app.h"
#include "support/shell.h"
#include "support/temporary_folder.h"

namespace quillet {
namespace {

/// Each is one line that must come out as it is.
const std::vector<std::string> kHostile{
    R"(<script>document.documentElement.lang = "ran"</script>)",
    R"("><img src=x onerror="document.documentElement.lang = 'ran'">)",
    R"(</title></style><b>bold</b><!-- gone)",
    R"(&lt;b&gt; &copy; &#35; AT&T Q & A)",
    R"(| a | b \| c |)",
    R"(`code` ``more`)",
    R"([text](javascript:alert(1)) ![i](x) ]( ))",
    R"([ref]: https://x.example)",
    R"(*a* **b** _c_ __d__ ~~e~~ $f$)",
    R"(# heading #)",
    R"(ends with \)",
    "\xF0\x9F\xA6\xA6\xE2\x80\x8D\xF0\x9F\x8C\x8A \xE2\x98\x85",
    "+ item",
    "* item",
    "- [ ] task",
    "1. one",
    "12) two",
    "> quotation",
    "---",
    "===",
    ":--"};

/// How texts must stand in a page; "{0}" is the text.
struct Page {
  std::string html;
  const char* apostrophe;
  const char* link;
  std::vector<const char*> names;   ///< of all texts in one line
  std::vector<const char*> places;  ///< of each
  const char* alone;                ///< in a paragraph
  const char* secondLine;           ///< in one that begins with "Before"
};

std::string escaped(std::string_view text, const char* apostrophe) {
  const char* entities[] = {"&amp;", "&lt;", "&gt;", "&quot;", apostrophe};
  std::string result;
  for (const char c : text) {
    const auto place = std::string_view("&<>\"'").find(c);
    result += place == std::string_view::npos ? std::string(1, c) : entities[place];
  }
  return result;
}

void expectEveryText(const Page& page) {
  const auto part = [&](const char* place, std::string_view text) {
    return fmt::format(fmt::runtime(place), escaped(text, page.apostrophe));
  };
  const auto expect = [&](const std::string& shown) {
    EXPECT_NE(page.html.find(shown), std::string::npos) << shown << "\nin:\n" << page.html;
  };
  expect(page.link);
  for (const char* name : page.names) expect(part(name, join(kHostile, " ")));
  std::string paragraphs;
  for (const std::string& text : kHostile) {
    for (const char* place : page.places) expect(part(place, text));
    paragraphs += part(page.alone, text);
  }
  for (const std::string& text : kHostile) paragraphs += part(page.secondLine, text);
  expect("<h2>Description</h2>\n" + paragraphs + "<h2>");
}

/// Every hostile text in every place that holds text from the store.
AppKnowledge hostileApp() {
  AppKnowledge known = knownApp();
  known.app.trackName = join(kHostile, "\r\n");
  known.app.artistName = known.app.trackName;
  known.app.trackViewUrl = R"(https://x.example/a|b?c='d'&e=\f`*g*)";
  known.app.description =
      join(kHostile, "\n\n") + "\n \nBefore\r\n    " + join(kHostile, "\n\t\nBefore\r\n    ");
  known.purchases->clear();
  known.reviews.clear();
  known.prices.clear();
  known.enrichment.reset();
  for (const std::string& text : kHostile) {
    known.purchases->push_back({.name = text, .price = 1, .currency = text});
    known.reviews.push_back({.title = text, .userName = text, .developerResponse = text});
  }
  return known;
}

TEST(HostileReport, MarkdownShowsEveryTextAsItIs) {
  const std::string renderer = "cmark-gfm --unsafe -e table -e strikethrough -e tasklist ";
  if (shellOutput("sh", renderer + "</dev/null") != "") GTEST_SKIP() << "cmark-gfm is missing";
  const TemporaryFolder folder;
  const std::string file = folder.path() / "report.md";
  exporterOf(hostileApp()).write(file, ReportFormat::markdown);
  expectEveryText(
      {.html = shellOutput("sh", renderer + file),
       .apostrophe = "'",
       .link = R"(href="https://x.example/a%7Cb?c=&#x27;d&#x27;&amp;e=%5Cf%60*g*")",
       .names = {"<h1>{0}</h1>\n<p><em>by {0}</em></p>\n<p>$9.99"},
       .places = {"<tr>\n<td>{0}</td>\n<td>1.00 {0}</td>\n<td>one-time</td>\n<td></td>\n</tr>",
                  "<h3>{0}</h3>\n<p>{0}</p>\n<blockquote>", "<p>{0}</p>\n</blockquote>"},
       .alone = "<p>{0}</p>\n",
       .secondLine = "<p>Before<br />\n{0}</p>\n"});
}

TEST(HostileReport, HtmlShowsEveryTextAsItIs) {
  expectEveryText(
      {.html = exporterOf(hostileApp()).text(ReportFormat::html),
       .apostrophe = "&#39;",
       .link = R"(<a href="https://x.example/a|b?c=&#39;d&#39;&amp;e=\f`*g*">)",
       .names = {"<title>{0} — ", "<h1>{0}</h1>\n<p class=\"seller\">by {0}</p>\n"},
       .places = {"<tr><td>{0}</td><td>1.00 {0}</td><td>one-time</td><td></td></tr>",
                  "<h3>{0}</h3>\n<p class=\"meta\">{0}</p>\n<blockquote><strong>Developer",
                  "response:</strong> {0}\n</blockquote>"},
       .alone = "<p dir=\"auto\">{0}</p>\n",
       .secondLine = "<p dir=\"auto\">Before<br>\n{0}</p>\n"});
}

}  // namespace
}  // namespace quillet
