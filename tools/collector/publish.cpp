// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/publish.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "collector/price_record.h"
#include "collector/published_status.h"
#include "publisher/published_folder.h"
#include "store/price_seed_client.h"
#include "store/records/storefronts.h"

namespace quillet {

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

using Say = std::function<void(const std::string& line)>;

constexpr std::chrono::milliseconds kBetweenTries{50};

/// A storefront's file that is not yet in its place.
struct StorefrontDraft {
  PublishedFolder::Draft file;
  ManifestEntry entry;
  std::size_t unpackedSize = 0;
};

/// What is recorded, as it is published. Each step may take a second, so the stop is looked for
/// between them.
class Publishing {
 public:
  Publishing(const PublishingWishes& wishes, const Say& say, StopWatch stop)
      : stop_(std::move(stop)),
        wishes_(wishes),
        folder_(wishes.folder / kPriceFilesPath, [this] { stop_.pause(kBetweenTries); }),
        say_(say) {}

  void draft(SqlTransaction& transaction, const std::string& country, Instant stamp) {
    const auto seen = seenStamp(country);
    const Instant since = std::max(stamp, seen.value_or(stamp));
    std::optional<StorefrontDraft> draft(drafted(transaction, country, since));
    // Readers take in a file again only under another stamp.
    if (seen == since && !draft->file.isPublished()) {
      draft.reset();  // first: there is one draft of a name
      draft.emplace(drafted(transaction, country, since + 1s));
    }
    drafts_.push_back(std::move(*draft));
  }

  /// The list goes last: it never names what is not there yet.
  void put() {
    requireReadable();
    if (!wishes_.mayShrink) requireAsMuchAsBefore();
    std::vector<ManifestEntry> entries;
    for (StorefrontDraft& draft : drafts_) {
      put(priceFileName(draft.entry.country), draft.file);
      entries.push_back(draft.entry);
    }
    PublishedFolder::Draft list(folder_, std::string(kManifestName));
    list.write(manifestFile(entries).bytes);
    put(std::string(kManifestName), list);
  }

 private:
  /// The stamp under which readers have seen the storefront. One that lies in the future comes from
  /// a clock that was wrong: it is not gone on from.
  [[nodiscard]] std::optional<Instant> seenStamp(const std::string& country) const {
    const auto stamp = stampOfPriceFile(folder_.path() / priceFileName(country));
    return stamp && *stamp <= wishes_.now + 24h ? stamp : std::nullopt;
  }

  StorefrontDraft drafted(SqlTransaction& transaction, const std::string& country, Instant stamp) {
    StorefrontDraft draft{PublishedFolder::Draft(folder_, priceFileName(country)), {}};
    PriceFileMaker maker(country, stamp, [&](std::string_view piece) {
      stop_.require();
      draft.file.write(piece);
    });
    eachMovedApp(transaction, country, [&](RecordedApp app) { maker.add(std::move(app)); });
    maker.end();
    draft.entry = {country, stamp, maker.apps(), lookOf(transaction, country)};
    draft.unpackedSize = maker.unpackedSize();
    return draft;
  }

  void put(const std::string& name, PublishedFolder::Draft& draft) {
    stop_.require();
    const std::size_t size = draft.size();
    const bool isNew = draft.put() == Publication::changed;
    say_(fmt::format("{}: {} bytes, {}", name, size, isNew ? "changed" : "unchanged"));
  }

  void requireReadable() const {
    for (const StorefrontDraft& draft : drafts_) {
      if (draft.file.size() <= kLargestPriceFile && draft.unpackedSize <= kLargestPriceText)
        continue;
      throw UnfitForPublication(fmt::format(
          "{} would be {} bytes, {} unpacked; readers refuse more than {} and {}. Nothing is "
          "replaced.",
          priceFileName(draft.entry.country), draft.file.size(), draft.unpackedSize,
          kLargestPriceFile, kLargestPriceText));
    }
  }

  /// A record that was lost, or another one than was meant, looks like this.
  void requireAsMuchAsBefore() const {
    for (const SeedManifest::Entry& before : publishedEntries(folder_.path())) {
      const auto now = std::ranges::find(drafts_, before.country,
                                         [](const auto& draft) { return draft.entry.country; });
      const std::size_t apps = now == drafts_.end() ? 0 : now->entry.apps;
      if (now != drafts_.end() && apps * 10 >= static_cast<std::size_t>(before.apps) * 9) continue;
      throw UnfitForPublication(
          fmt::format("The storefront {} has {} apps in what is published, and {} in this record. "
                      "Nothing is replaced; --shrink does it all the same.",
                      before.country, before.apps, apps));
    }
  }

  StopWatch stop_;
  const PublishingWishes& wishes_;
  PublishedFolder folder_;
  const Say& say_;
  std::vector<StorefrontDraft> drafts_;
};

}  // namespace

std::size_t publishRecord(SqlDatabase& database, const PublishingWishes& wishes, const Say& say,
                          StopWatch stop) {
  std::size_t storefronts = 0;
  std::optional<Publishing> publishing;
  for (const std::string_view country : kTrackedStorefronts) {
    const auto transaction = database.begin(SqlAccess::read);
    const auto stamp = stampOf(*transaction, std::string(country));
    if (!stamp) continue;
    if (!publishing) publishing.emplace(wishes, say, stop);
    publishing->draft(*transaction, std::string(country), *stamp);
    ++storefronts;
  }
  if (publishing) publishing->put();
  return storefronts;
}

}  // namespace quillet
