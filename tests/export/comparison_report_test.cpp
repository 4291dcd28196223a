// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "export/comparison_report.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

/// With texts that would do something in a document that let them.
ComparisonReport hostile() {
  ComparisonReport report;
  report.title = "Compared: <b>A</b> | *B*";
  report.apps = {
      {"=HYPERLINK(\"http://x.example\",\"A|B\")", "<i>Ada</i>", "https://x.example/1", "USD"},
      {"Two\r\n\"lines\", [a](b)", "", "javascript:alert(1)", ""}};
  report.rows = {{"Price", {{"$4.99", "4.99"}, {"—", ""}}},
                 {"Sells inside", {{"@sum | <script>", {}}, {"-1", {}}}}};
  report.notes = {"Not found: <img src=x>"};
  return report;
}

TEST(ComparisonReport, MarkdownObeysNoText) {
  EXPECT_EQ(comparisonText(hostile(), ComparisonFormat::markdown),
            R"(# Compared: \<b\>A\</b\> \| \*B\*

|  | [=HYPERLINK("http://x.example","A\|B")](<https://x.example/1>) | Two "lines", \[a\](b) |
| --- | --- | --- |
| Price | $4.99 | — |
| Sells inside | @sum \| \<script\> | -1 |

Not found: \<img src=x\>
)");
}

TEST(ComparisonReport, HtmlShowsEveryTextAsItIs) {
  const std::string html = comparisonText(hostile(), ComparisonFormat::html);
  const char* const parts[] = {
      "<title>Compared: &lt;b&gt;A&lt;/b&gt; | *B*</title>",
      R"(<th dir="auto"><a href="https://x.example/1">=HYPERLINK(&quot;http://x.example&quot;,&quot;A|B&quot;)</a>)",
      R"(<br><span class="seller">&lt;i&gt;Ada&lt;/i&gt;</span></th>)",
      "<th dir=\"auto\">Two &quot;lines&quot;, [a](b)</th>",  // what is no web address leads
                                                              // nowhere
      "<tr><th>Price</th><td dir=\"auto\">$4.99</td><td dir=\"auto\">—</td></tr>",
      "@sum | &lt;script&gt;", "Not found: &lt;img src=x&gt;"};
  for (const char* part : parts) EXPECT_NE(html.find(part), std::string::npos) << part << html;
}

TEST(ComparisonReport, SpreadsheetsGetNumbersAndNoFormulas) {
  EXPECT_EQ(comparisonText(hostile(), ComparisonFormat::csv),
            "App,\"'=HYPERLINK(\"\"http://x.example\"\",\"\"A|B\"\")\","
            "\"Two \"\"lines\"\", [a](b)\"\r\n"
            "Seller,<i>Ada</i>,\r\n"
            "Link,https://x.example/1,javascript:alert(1)\r\n"
            "Currency,USD,\r\n"
            "Price,4.99,\r\n"
            "Sells inside,'@sum | <script>,'-1\r\n");
}

}  // namespace
}  // namespace quillet
