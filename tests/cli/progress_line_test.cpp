// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/progress_line.h"

#include "store/records/storefronts.h"
#include "support/command_line_test.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

constexpr const char* kSearch =
    "https://store.example/search?term=x&entity=macSoftware&country=us&limit=25";

class ProgressLineTest : public CommandLineTest {
 protected:
  std::string search(std::size_t width, std::chrono::milliseconds delay) {
    progressWidth = width;
    http.hold(kSearch);
    http.answer(kSearch, 200, answer({R"({"trackId":1,"trackName":"X"})"}));
    const Task<> release = callAfter(&clock, delay, [this] { http.release(kSearch); });
    return said("search x", 0);
  }
};

TEST_F(ProgressLineTest, IsShownFromTheFirstSecondOnAndLeavesNoTrace) {
  EXPECT_EQ(search(80, 900ms), "");
  EXPECT_EQ(search(80, 3s), "\r\x1B[KSearching the App Store\r\x1B[K");
  EXPECT_EQ(search(10, 3s), "\r\x1B[KSearching\r\x1B[K") << "the last column stays free";
  EXPECT_EQ(search(0, 3s), "");
}

TEST_F(ProgressLineTest, CountsDownToARetryBelowTheRunnersNotice) {
  progressWidth = 80;
  http.answer(kSearch, 429, "");
  http.answer(kSearch, 200, answer({}));
  std::string expected = "quillet: Apple is rate limiting; waiting 20s, then retrying (2 of 3)\n";
  for (int left = 19; left > 0; --left) {
    expected += fmt::format("\r\x1B[KTrying again in {} s", left);
  }
  EXPECT_EQ(said("search x", 1), expected + "\r\x1B[K");
}

TEST_F(ProgressLineTest, TellsOfAWaitForTheRequestBudget) {
  const std::string body =
      R"({"feed":{"entry":[{"im:rating":{"label":"1"},"title":{"label":"T"}}]}})";
  for (const std::string_view country : kTrackedStorefronts) {
    const std::string feed = fmt::format(
        "https://store.example/{}/rss/customerreviews/page=1/id=11/sortBy=mostRecent/json",
        country);
    for (int i = 0; i < 2; ++i) http.answer(feed, 200, body);
  }
  const Words words = "reviews 11 -p mac --recent --all-countries";
  EXPECT_EQ(said(words, 0), "");
  progressWidth = 80;
  const std::string read = "\r\x1B[KReading reviews: 5 pages, 5 of 10 storefronts, waiting ";
  const std::string limit = " s for Apple's limit";
  EXPECT_TRUE(said(words, 0).starts_with(read + "60" + limit + read + "59" + limit))
      << io.err.content;
  EXPECT_TRUE(io.err.content.ends_with("\r\x1B[K"));
}

/// Writes to both streams while the line is shown.
Task<ExitStatus> writing(FakeClock* clock, ProgressLine* line) {
  line->report("Busy\x1B\n");
  co_await clock->sleepFor(1100ms, StopToken{});
  line->streams().out.write("out\n");
  line->streams().err.write("err\n");
  co_await clock->sleepFor(500ms, StopToken{});
  throw CLIError(CLIError::Code::internal, "broken");
}

TEST_F(ProgressLineTest, IsErasedBeforeEitherStreamIsWrittenAndWhenTheCommandFails) {
  CollectedStream terminal;
  ProgressLine line(clock, {terminal, terminal, {}}, 80, [] { return std::nullopt; });
  EXPECT_THROW(runVirtual(clock, showProgress(&line, writing(&clock, &line))), CLIError);
  EXPECT_EQ(terminal.content, "\r\x1B[KBusy \r\x1B[Kout\nerr\n\r\x1B[KBusy \r\x1B[K");
}

}  // namespace
}  // namespace quillet
