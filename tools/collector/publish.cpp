// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/publish.h"

#include <fmt/format.h>

#include <optional>
#include <utility>

#include "collector/price_record.h"
#include "publisher/published_folder.h"
#include "store/records/storefronts.h"

namespace quillet {

namespace {

using Say = std::function<void(const std::string& line)>;

constexpr std::chrono::milliseconds kBetweenTries{50};

/// What is recorded, as it is published. Each step may take a second, so the stop is looked for
/// between them.
class Publishing {
 public:
  Publishing(const std::filesystem::path& folder, const Say& say, StopWatch stop)
      : stop_(std::move(stop)),
        folder_(folder / kPriceFilesPath, [this] { stop_.pause(kBetweenTries); }),
        say_(say) {}

  void add(RecordedStorefront recorded) {
    stop_.require();
    const RecordedStorefront moved = onlyMoved(std::move(recorded));
    put(priceFile(moved));
    entries_.push_back({moved.country, moved.stamp, moved.apps.size()});
  }

  /// Last: the list never names what is not there yet.
  void addList() { put(manifestFile(entries_)); }

 private:
  void put(const PublishedFile& file) {
    stop_.require();
    const bool isNew = folder_.put(file) == Publication::changed;
    say_(fmt::format("{}: {} bytes, {}", file.name, file.bytes.size(),
                     isNew ? "changed" : "unchanged"));
  }

  StopWatch stop_;
  PublishedFolder folder_;
  const Say& say_;
  std::vector<ManifestEntry> entries_;
};

}  // namespace

std::size_t publishRecord(SqlDatabase& database, const std::filesystem::path& folder,
                          const Say& say, StopWatch stop) {
  std::size_t storefronts = 0;
  std::optional<Publishing> publishing;
  for (const std::string_view country : kTrackedStorefronts) {
    auto recorded = inTransaction(database, SqlAccess::write, [&](SqlTransaction& transaction) {
      return takeForPublication(transaction, std::string(country));
    });
    if (!recorded) continue;
    if (!publishing) publishing.emplace(folder, say, stop);
    publishing->add(std::move(*recorded));
    ++storefronts;
  }
  if (publishing) publishing->addList();
  return storefronts;
}

}  // namespace quillet
