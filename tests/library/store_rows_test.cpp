// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/store_rows.h"

#include <gtest/gtest.h>

#include "library/library_folder.h"

namespace quillet {
namespace {

const RecordSource kSource{"de", Platform::ipad, dayAndSecond(3)};

ITunesApp record() {
  ITunesApp app;
  app.trackId = 7;
  app.trackName = "Harbour Focus Timer";
  app.sellerName = "Amara Okafor";
  app.version = "3.1";
  app.price = 4.99;
  app.currency = "EUR";
  app.artworkUrl100 = "https://pictures.example/7/100.png";
  app.fileSizeBytes = "48000000";
  return app;
}

TEST(StoreRows, TellWhatTheRecordTellsAndNoMore) {
  const WatchedApp watched = watchedAppOf(record(), kSource);
  EXPECT_EQ(keyOf(watched), (AppKey{7, "de"}));
  EXPECT_EQ(watched.platformRaw, "ipad");
  EXPECT_EQ(watched.priceWhenAdded, 4.99);
  EXPECT_EQ(watched.lastKnownVersion, "3.1");
  EXPECT_EQ(watched.artworkUrl, "https://pictures.example/7/100.png");
  EXPECT_EQ(watched.lastCheckedAt, std::nullopt) << "adding is no check";
  const OwnedApp owned = ownedAppOf(record(), kSource, OwnedSource::manual);
  EXPECT_EQ(owned.sourceRaw, "manual");
  EXPECT_EQ(owned.storeVersion, "3.1");
  EXPECT_EQ(owned.installedVersion, std::nullopt);
  const RecordSource asMac{"de", Platform::mac, kSource.when};
  EXPECT_EQ(watchedAppOf(record(), asMac).lastKnownVersion, std::nullopt) << "of another build";
  EXPECT_EQ(ownedAppOf(record(), asMac, OwnedSource::manual).storeVersion, std::nullopt);
  const CachedApp cached = cachedAppOf(record(), kSource);
  EXPECT_EQ(cached.fileSizeBytes, 48'000'000);
  EXPECT_EQ(cached.updatedAt, kSource.when);
  EXPECT_EQ(cached.lastViewedAt, std::nullopt) << "a lookup is no view";
}

TEST(StoreRows, ALookupTellsNoRatingsOfMacApps) {
  ITunesApp app = record();
  app.averageUserRating = 0;
  app.userRatingCount = 0;
  EXPECT_EQ(cachedAppOf(app, kSource).ratingCount, 0);
  app.kind = kMacSoftwareKind;
  EXPECT_EQ(cachedAppOf(app, kSource).rating, std::nullopt);
  EXPECT_EQ(cachedAppOf(app, kSource).ratingCount, std::nullopt);
}

}  // namespace
}  // namespace quillet
