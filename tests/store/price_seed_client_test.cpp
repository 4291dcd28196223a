// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/price_seed_client.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "publisher/gzip_file.h"
#include "store/records/price_seed_error.h"
#include "support/fake_clock.h"
#include "support/message_of.h"
#include "support/run_virtual.h"
#include "support/scripted_http_client.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

const std::string kUrl = "https://prices.example/file/quillbase-prices/v1/changes-de.json.gz";
const std::string kFile =
    R"({"schema":1,"storefront":{"apps":[{"a":"7","p":[{"d":"2026-03-01","v":1}]}]}})";

const std::string kUnreadable = "The published price data for 'de' could not be read.";

class PriceSeedClientTest : public testing::Test {
 protected:
  /// Why a country's file cannot be read.
  std::string failureOf(const std::string& country = "de") {
    return messageOf<PriceSeedError>([&] {
      PriceSeedReader reader = runVirtual(clock, client.storefront(country, {}));
      EXPECT_TRUE(reader.next());
    });
  }

  FakeClock clock;
  ScriptedHttpClient http;
  PriceSeedClient client{http, "https://prices.example"};
};

TEST_F(PriceSeedClientTest, UndoesWhateverPackingTheFileArrivesIn) {
  const std::string packed = gzipped(kFile);
  std::string damaged = packed;
  damaged[packed.size() / 2] = static_cast<char>(damaged[packed.size() / 2] ^ 0x55);
  const std::string cutOff = packed.substr(0, packed.size() - 5);
  // Packed, inflated on the way, and packed once more on the way.
  for (const std::string& body : {packed, kFile, gzipped(packed)}) {
    http.answer(kUrl, 200, body);
    EXPECT_EQ(failureOf("DE"), "nothing was thrown");
  }
  const std::string thrice = gzipped(gzipped(packed));
  for (const std::string& body : {thrice, cutOff, std::string("\x1f\x8b"), damaged, gzipped("")}) {
    http.answer(kUrl, 200, body);
    EXPECT_EQ(failureOf("DE"), kUnreadable) << testing::PrintToString(body);
  }
  EXPECT_EQ(http.requests().front().inflation, Inflation::none);
  EXPECT_EQ(http.requests().front().idleTimeout, 25s);
  EXPECT_EQ(http.requests().front().cachePolicy, CachePolicy::revalidate);
}

TEST_F(PriceSeedClientTest, StopsAtItsLimitWhateverAFilePromises) {
  const std::string packed = gzipped(std::string(2'000'000, ' '));
  EXPECT_EQ(unpackedPriceFile(packed, 2'000'000).view().size(), 2'000'000U);
  EXPECT_THROW((void)unpackedPriceFile(packed, 1'999'999), DecodingError);
  std::string lying = gzipped("short");
  lying.replace(lying.size() - 4, 4, "\xFF\xFF\xFF\xFF");
  EXPECT_THROW((void)unpackedPriceFile(lying, 1'000'000), DecodingError);
  EXPECT_THROW((void)unpackedPriceFile("not packed", 9), DecodingError);
  http.fail(kUrl, {NetworkError::Kind::tooLarge, "too large"});
  EXPECT_EQ(failureOf(), kUnreadable);
  constexpr std::size_t mebibyte = std::size_t{1024} * 1024;
  EXPECT_EQ(http.requests().back().bodyLimit, 64 * mebibyte);
  EXPECT_EQ(http.requests().back().totalTimeout, 10min);
  const std::string manifest = R"({"schema":1})" + std::string(mebibyte, ' ');
  http.answer("https://prices.example/file/quillbase-prices/v1/manifest.json", 200,
              gzipped(manifest));
  EXPECT_THROW(runVirtual(clock, client.manifest({})), PriceSeedError);
}

TEST_F(PriceSeedClientTest, TellsWhatTheServerAnsweredAndAsksOnce) {
  http.answer(kUrl, 404, kFile);
  EXPECT_EQ(failureOf(), "No published price data at " + kUrl + ".");
  for (const int status : {429, 500, 304}) {
    http.answer(kUrl, status, kFile);
    EXPECT_EQ(failureOf(), fmt::format("The price data server returned HTTP {}.", status));
  }
  EXPECT_TRUE(clock.waits().empty());
  http.fail(kUrl, {NetworkError::Kind::cannotReach, "Connection refused"});
  EXPECT_THROW(failureOf(), NetworkError);
}

}  // namespace
}  // namespace quillet
