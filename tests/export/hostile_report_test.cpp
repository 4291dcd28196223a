// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// Texts that would do something if a report let them, read back by programs of others.

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
    ":--",
    "```",
    "<https://x.example>"};

std::string escaped(std::string_view text, const char* quote) {
  const char* entities[] = {"&amp;", "&lt;", "&gt;", quote};
  std::string result;
  for (const char c : text) {
    const auto place = std::string_view("&<>\"").find(c);
    result += place == std::string_view::npos ? std::string(1, c) : entities[place];
  }
  return result;
}

/// Every hostile text in every place that holds text from the store.
AppKnowledge hostileApp() {
  AppKnowledge known = knownApp();
  ITunesApp& app = known.app.record;
  app.trackName = join(kHostile, "\r\n");
  app.artistName = app.trackName;
  app.trackViewUrl = R"(https://x.example/a|b?c='d'&e=\f`*g*)";
  app.description =
      join(kHostile, "\n\n") + "\n \nBefore\r\n    " + join(kHostile, "\n\t\nBefore\r\n    ");
  known.app.purchases->clear();
  known.reviews.clear();
  known.prices.clear();
  known.app.versions.reset();
  for (const std::string& text : kHostile) {
    known.app.purchases->push_back({.name = text, .price = 1, .currency = text});
    known.reviews.push_back({.title = text, .userName = text, .developerResponse = text});
  }
  return known;
}

#define EXPECT_PART(text, part) EXPECT_NE((text).find(part), std::string::npos) << (part)

TEST(HostileReport, MarkdownShowsEveryTextAsItIs) {
  const std::string renderer = "cmark-gfm --unsafe -e table -e strikethrough -e tasklist ";
  if (shellOutput("sh", renderer + "</dev/null") != "") GTEST_SKIP() << "cmark-gfm is missing";
  const TemporaryFolder folder;
  const std::string file = folder.path() / "report.md";
  exporterOf(hostileApp()).write(file, ReportFormat::markdown);
  const std::string html = shellOutput("sh", renderer + file);
  const std::string inOneLine = escaped(join(kHostile, " "), "&quot;");
  EXPECT_PART(html, fmt::format("<h1>{0}</h1>\n<p><em>by {0}</em></p>\n<p>$9.99", inOneLine));
  EXPECT_PART(html, fmt::format("<td>Developer</td>\n<td>{}</td>\n", inOneLine));
  EXPECT_PART(html, R"(href="https://x.example/a%7Cb?c=&#x27;d&#x27;&amp;e=%5Cf%60*g*")");
  std::string alone;
  std::string second;
  for (const std::string& text : kHostile) {
    const std::string shown = escaped(text, "&quot;");
    alone += fmt::format("<p>{}</p>\n", shown);
    second += fmt::format("<p>Before<br />\n{}</p>\n", shown);
    EXPECT_PART(html, fmt::format("<tr>\n<td>{0}</td>\n<td>1.00 {0}</td>\n", shown));
    EXPECT_PART(html, fmt::format("<h3>{0}</h3>\n<p>{0}</p>\n<blockquote>\n<p><strong>Developer "
                                  "response:</strong></p>\n<p>{0}</p>\n</blockquote>",
                                  shown));
  }
  EXPECT_PART(html, "<h2>Description</h2>\n" + alone + second + "<h2>");
}

/// Replaces the page by what it shows: title, link, and the text of cells, paragraphs and reviews.
constexpr const char* kInspector = R"(<script>
addEventListener("load", () => {
  const texts = query => [...document.querySelectorAll(query)].map(e => e.textContent);
  const link = [...document.querySelectorAll("a")].map(a => a.getAttribute("href"));
  document.documentElement.textContent =
      [document.title, ...link, document.querySelectorAll("script, img, b").length,
       ...texts("h2 ~ p"), ...texts("table ~ table td:first-child"), ...texts("h3"),
       ...texts("blockquote")].join("\n");
});
</script>
</body>)";

TEST(HostileReport, ABrowserShowsEveryTextAndRunsNone) {
  if (shellOutput("sh", "command -v chromium") == "") GTEST_SKIP() << "chromium is missing";
  const TemporaryFolder folder;
  std::string html = exporterOf(hostileApp()).text(ReportFormat::html);
  html.replace(html.rfind("</body>"), 7, kInspector);
  std::ofstream(folder.path() / "report.html") << html;
  const std::string shown = shellOutput(
      "sh",
      fmt::format("chromium --headless --no-sandbox --disable-gpu --user-data-dir={0}/profile "
                  "--dump-dom file://{0}/report.html 2>/dev/null",
                  folder.path().string()));
  std::vector<std::string> expected{join(kHostile, " ") + " — Quillbase report",
                                    R"(https://x.example/a|b?c='d'&e=\f`*g*)", "1"};
  const auto expectAll = [&](const char* before, const char* after) {
    for (const std::string& text : kHostile) expected.push_back(before + text + after);
  };
  expectAll("", "");          // paragraphs
  expectAll("Before\n", "");  // second lines of paragraphs
  expectAll("", "");          // cells
  expectAll("", "");          // titles
  expectAll("Developer response: ", "\n");
  EXPECT_EQ(shown, fmt::format("<!DOCTYPE html>\n<html lang=\"en\">{}</html>\n",
                               escaped(join(expected, "\n"), "\"")));
}

}  // namespace
}  // namespace quillet
