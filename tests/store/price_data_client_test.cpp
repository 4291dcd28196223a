// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/price_data_client.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "publisher/gzip_file.h"
#include "store/records/price_data_error.h"
#include "support/hand_clock.h"
#include "support/run_virtual.h"
#include "support/scripted_http_client.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

const std::string kUrl = "https://prices.example/file/quillbase-prices/v1/changes-de.json.gz";
const std::string kFile =
    R"({"schema":1,"storefront":{"apps":[{"a":"7","p":[{"d":"2026-03-01","v":1}]}]}})";

class PriceDataClientTest : public testing::Test {
 protected:
  /// How many apps there are, or the sentence that tells why there are none.
  std::string read(const std::string& country = "de") {
    try {
      PriceSeedReader reader = runVirtual(clock, client.storefront(country, {}));
      int count = 0;
      while (reader.next()) ++count;
      return fmt::format("{} apps", count);
    } catch (const PriceDataError& error) {
      return error.what();
    }
  }

  HandClock clock;
  ScriptedHttpClient http;
  PriceDataClient client{http, "https://prices.example"};
};

TEST_F(PriceDataClientTest, UndoesWhateverPackingTheFileArrivesIn) {
  const std::string packed = gzipped(kFile);
  const std::string unreadable = "The published price data for 'de' could not be read.";
  std::string damaged = packed;
  damaged[packed.size() / 2] = static_cast<char>(damaged[packed.size() / 2] ^ 0x55);
  const struct {
    const char* situation;
    std::string body;
    std::string expected;
  } rows[] = {
      {"packed", packed, "1 apps"},
      {"inflated on the way", kFile, "1 apps"},
      {"packed once more on the way", gzipped(packed), "1 apps"},
      {"packed thrice", gzipped(gzipped(packed)), unreadable},
      {"cut off", packed.substr(0, packed.size() - 5), unreadable},
      {"two bytes", "\x1f\x8b", unreadable},
      {"damaged", damaged, unreadable},
      {"nothing", "", unreadable},
      {"packed nothing", gzipped(""), unreadable},
  };
  for (const auto& row : rows) {
    http.answer(kUrl, 200, row.body);
    EXPECT_EQ(read("DE"), row.expected) << row.situation;
  }
  EXPECT_EQ(http.requests().front().inflation, Inflation::none);
  EXPECT_EQ(http.requests().front().idleTimeout, 25s);
  EXPECT_EQ(http.requests().front().cachePolicy, CachePolicy::revalidate);
}

TEST_F(PriceDataClientTest, StopsAtItsLimitWhateverAFilePromises) {
  const std::string packed = gzipped(std::string(2'000'000, ' '));
  EXPECT_EQ(unpackedPriceFile(packed, 2'000'000).size(), 2'000'000U);
  EXPECT_THROW((void)unpackedPriceFile(packed, 1'999'999), DecodingError);
  std::string lying = gzipped("short");
  lying.replace(lying.size() - 4, 4, "\xFF\xFF\xFF\xFF");
  EXPECT_THROW((void)unpackedPriceFile(lying, 1'000'000), DecodingError);
  http.fail(kUrl, {NetworkError::Kind::tooLarge, "too large"});
  EXPECT_EQ(read(), "The published price data for 'de' could not be read.");
}

TEST_F(PriceDataClientTest, TellsWhatTheServerAnsweredAndAsksOnce) {
  const std::pair<int, std::string> rows[] = {
      {404, "No published price data at " + kUrl + "."},
      {429, "The price data server returned HTTP 429."},
      {500, "The price data server returned HTTP 500."},
      {304, "The price data server returned HTTP 304."},
  };
  for (const auto& [status, expected] : rows) {
    http.answer(kUrl, status, kFile);
    EXPECT_EQ(read(), expected);
  }
  EXPECT_TRUE(clock.waits().empty());
  http.fail(kUrl, {NetworkError::Kind::cannotReach, "Connection refused"});
  EXPECT_THROW(read(), NetworkError);
}

}  // namespace
}  // namespace quillet
