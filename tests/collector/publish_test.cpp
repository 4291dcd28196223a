// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/publish.h"

#include <sys/stat.h>

#include "collector/price_record.h"
#include "collector/record_test.h"
#include "publisher/price_files.h"
#include "store/price_seed_client.h"
#include "support/message_of.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;

const Instant kFirst = parseInternetDate("2026-11-01T03:00:00Z").value();

class PublishTest : public RecordTest {
 protected:
  void record(int apps, double price, Instant now, const std::string& country = "us",
              const char* name = "Fen") {
    std::vector<ObservedApp> seen;
    for (int id = 1; id <= apps; ++id)
      seen.push_back({.trackId = id, .name = name, .currency = "USD", .price = price});
    change(recordPrices, country, seen, now);
  }
  void publish(bool mayShrink = false) {
    (void)publishRecord(
        *database, {folder / "out", kFirst + 48h, mayShrink}, [](const std::string&) {},
        StopWatch());
  }
  void forget(const std::string& where) {
    change([&](SqlTransaction& transaction) { transaction.run("DELETE FROM apps " + where); });
  }
  [[nodiscard]] Instant stamp() const {
    return stampOfPriceFile(published / "changes-us.json.gz").value();
  }

  const fs::path published = folder / "out" / kPriceFilesPath;
};

TEST_P(PublishTest, NeverPublishesTwoFilesUnderOneStamp) {
  record(1, 5, kFirst);
  record(1, 4, kFirst + 24h);
  record(1, 3, kFirst + 24h + 400ms);
  publish();
  EXPECT_EQ(stamp(), kFirst + 24h);
  record(1, 2, kFirst + 24h + 800ms);
  for (int again = 0; again < 2; ++again) {
    publish();
    EXPECT_EQ(stamp(), kFirst + 24h + 1s);
  }
  record(1, 2, kFirst + 23h, "us", "Reed");
  publish();
  EXPECT_EQ(stamp(), kFirst + 24h + 2s) << "the clock went back";
}

TEST_P(PublishTest, RefusesToPublishMuchLessThanBefore) {
  for (const char* country : {"us", "de"}) {
    for (int day = 0; day < 2; ++day) record(20, 5 + day, kFirst + day * 24h, country);
  }
  publish();
  forget("WHERE track_id > 18");
  publish();
  const std::string before = contentOf(published / "changes-us.json.gz");
  for (const char* less : {"WHERE country = 'us' AND track_id > 15", "WHERE country = 'us'"}) {
    forget(less);
    const std::string said = messageOf<UnfitForPublication>([&] { publish(); });
    EXPECT_NE(said.find("storefront us has 18 apps"), std::string::npos) << said;
    EXPECT_EQ(contentOf(published / "changes-us.json.gz"), before);
  }
  change([](SqlTransaction& transaction) {
    transaction.run("DELETE FROM storefronts WHERE country = 'us'");
  });
  EXPECT_THROW(publish(), UnfitForPublication) << "a storefront is lost";
  for (const auto& file : fs::directory_iterator(published))
    EXPECT_FALSE(file.path().filename().string().starts_with('.')) << "no draft is left";
  publish(true);
  EXPECT_EQ(decodeSeedManifest(contentOf(published / kManifestName)).storefronts.size(), 1U);
}

TEST_P(PublishTest, LetsAWebServerReadWhateverTheProcessGivesOthers) {
  for (int day = 0; day < 2; ++day) record(1, day, kFirst + day * 24h);
  const mode_t before = ::umask(077);
  publish();
  ::umask(before);
  using fs::perms;
  for (fs::path path = published / "changes-us.json.gz"; path != folder; path = path.parent_path())
    EXPECT_NE(fs::status(path).permissions() & perms::others_read, perms::none) << path;
}

QUILLET_IN_BOTH_DATABASES(PublishTest);

}  // namespace
}  // namespace quillet
