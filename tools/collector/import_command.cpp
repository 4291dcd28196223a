// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/import_command.h"

#include <fmt/format.h>

#include <algorithm>
#include <fstream>
#include <sstream>

#include "base/errors.h"
#include "base/text.h"
#include "collector/lookup_queue.h"
#include "collector/record_copy.h"
#include "publisher/price_files.h"
#include "store/price_seed_client.h"
#include "store/records/price_seed_error.h"
#include "store/records/storefronts.h"

namespace quillet {

namespace {

namespace fs = std::filesystem;

constexpr std::int64_t kKnownSchema = 1;

std::string contentOf(const fs::path& file) {
  std::ostringstream content;
  std::ifstream input(file, std::ios::binary);
  if (!input || !(content << input.rdbuf()))
    throw UnfitForImport(fmt::format("{} could not be read.", printable(file.string())));
  return std::move(content).str();
}

SeedManifest manifestIn(const fs::path& folder) {
  const fs::path file = folder / kManifestName;
  try {
    SeedManifest manifest = decodeSeedManifest(contentOf(file));
    if (manifest.schema > kKnownSchema) throw DecodingError("a newer collector wrote it");
    return manifest;
  } catch (const DecodingError& error) {
    throw UnfitForImport(
        fmt::format("{} could not be read: {}.", printable(file.string()), error.what()));
  }
}

/// A storefront that is published.
struct Storefront {
  std::string country;
  fs::path file;
  std::int64_t apps = 0;          ///< as the manifest says
  std::optional<Instant> looked;  ///< as it says too
};

[[noreturn]] void failAt(const Storefront& storefront, std::string_view reason) {
  throw UnfitForImport(
      fmt::format("{}: {}. Nothing is imported.", printable(storefront.file.string()), reason));
}

PriceSeedReader opened(const Storefront& storefront) {
  try {
    return {unpackedPriceFile(contentOf(storefront.file), kLargestPriceText), storefront.country};
  } catch (const DecodingError&) {
    failAt(storefront, "it is damaged");
  } catch (const PriceSeedError& error) {
    failAt(storefront, error.what());
  }
}

/// False at the end of the file, which may be its beginning, too.
bool hasNext(PriceSeedReader& reader) {
  try {
    return reader.next();
  } catch (const PriceSeedError& error) {
    if (error.kind() == PriceSeedError::Kind::nothingPublished) return false;
    throw;
  }
}

/// Goes through the file from its beginning. What a reader passes over because it makes no sense to
/// him, is missed here.
template <typename Visit>
void eachApp(const Storefront& storefront, Visit visit) {
  PriceSeedReader reader = opened(storefront);
  std::int64_t apps = 0;
  try {
    for (; hasNext(reader); ++apps) visit(reader.entry(), reader.points());
  } catch (const PriceSeedError& error) {
    failAt(storefront, error.what());
  }
  if (apps != storefront.apps) {
    failAt(storefront, fmt::format("it has {} apps, but {} in {}; it is damaged, or being replaced",
                                   apps, storefront.apps, kManifestName));
  }
}

void recordStamp(SqlTransaction& transaction, const Storefront& storefront, Instant now) {
  const auto stamp = opened(storefront).generatedAt();
  if (!stamp) failAt(storefront, "it does not say when it was made");
  if (*stamp > now + kClockSpread) failAt(storefront, "it says that it was made in the future");
  transaction.run(
      "INSERT INTO storefronts (country, stamp, published, looked) VALUES ($1, $2, 0, $3)",
      {storefront.country, stored(*stamp), stored(storefront.looked.value_or(Instant{}))});
}

/// An app that was sold when the file was made counts as seen `now`, so that it has the usual time
/// for an answer about its own record.
void recordApps(SqlTransaction& transaction, const Storefront& storefront, Instant now) {
  const auto rows =
      transaction.insertion("apps", {"country", "track_id", "name", "seller", "currency", "kind",
                                     "price", "released", "since", "moved", "seen", "gone"});
  eachApp(storefront, [&](const PriceSeed::Entry& app, std::span<const PriceSeed::Point> points) {
    const std::string currency = app.currency.text().value_or("");
    if (currency.empty()) failAt(storefront, fmt::format("app {} has no currency", app.trackId));
    const std::int64_t gone = app.goneSince ? stored(*app.goneSince) : 0;
    rows->add({storefront.country, app.trackId, app.name.text().value_or(""),
               app.seller.text().value_or(""), currency, app.kind.text().value_or(""),
               points.back().price, std::int64_t{0}, stored(points.front().day),
               std::int64_t{points.size() > 1 ? 1 : 0}, gone == 0 ? stored(now) : gone, gone});
  });
  rows->end();
}

void recordPoints(SqlTransaction& transaction, const Storefront& storefront) {
  const auto rows = transaction.insertion("prices", {"country", "track_id", "seen", "price"});
  eachApp(storefront, [&](const PriceSeed::Entry& app, std::span<const PriceSeed::Point> points) {
    for (const PriceSeed::Point& point : points)
      rows->add({storefront.country, app.trackId, stored(point.day), point.price});
  });
  rows->end();
}

std::vector<Storefront> storefrontsIn(const fs::path& folder) {
  std::vector<Storefront> storefronts;
  for (const SeedManifest::Entry& entry : manifestIn(folder).storefronts) {
    if (std::ranges::find(kTrackedStorefronts, entry.country) == kTrackedStorefronts.end()) {
      throw UnfitForImport(fmt::format("{} names '{}', which is no tracked storefront.",
                                       kManifestName, printable(entry.country)));
    }
    storefronts.push_back(
        {entry.country, folder / priceFileName(entry.country), entry.apps, entry.lookedAt});
  }
  return storefronts;
}

}  // namespace

int importPublished(const CommandCall& call) {
  return wholly([&] {
    const auto storefronts = storefrontsIn(fs::path(call.options.folder) / kPriceFilesPath);
    const auto record = openDatabase(call.address(), call.watch(), IfMissing::make);
    const Instant now = call.world.clock.now();
    RecordSize size;
    fillRecord(*record, [&](SqlTransaction& transaction) {
      for (const Storefront& storefront : storefronts) {
        recordStamp(transaction, storefront, now);
        recordApps(transaction, storefront, now);
        recordPoints(transaction, storefront);
      }
      size = sizeOf(transaction);
    });
    call.print(fmt::format("Imported: apps: {}, prices: {}.", size.apps, size.prices));
    return kCollectorOk;
  });
}

}  // namespace quillet
