// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/publish.h"

#include <fmt/format.h>

#include "collector/price_record.h"
#include "publisher/published_folder.h"
#include "store/records/storefronts.h"

namespace quillet {

namespace {

using Say = std::function<void(const std::string& line)>;

void put(const PublishedFolder& folder, const PublishedFile& file, const Say& say) {
  const bool isNew = folder.put(file) == Publication::changed;
  say(fmt::format("{}: {} bytes, {}", file.name, file.bytes.size(),
                  isNew ? "changed" : "unchanged"));
}

}  // namespace

std::size_t publishRecord(SqlDatabase& database, const std::filesystem::path& folder,
                          const Say& say) {
  std::vector<ManifestEntry> entries;
  std::optional<PublishedFolder> published;
  for (const std::string_view country : kTrackedStorefronts) {
    auto recorded = inTransaction(database, SqlAccess::write, [&](SqlTransaction& transaction) {
      return takeForPublication(transaction, std::string(country));
    });
    if (!recorded) continue;
    if (!published) published.emplace(folder / kPriceFilesPath);
    const RecordedStorefront moved = onlyMoved(std::move(*recorded));
    put(*published, priceFile(moved), say);
    entries.push_back({moved.country, moved.stamp, moved.apps.size()});
  }
  // Last: it never lists what is not there yet.
  if (published) put(*published, manifestFile(entries), say);
  return entries.size();
}

}  // namespace quillet
