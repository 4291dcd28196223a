// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/sample_store.h"

#include <algorithm>
#include <numeric>

#include "base/enum_index.h"
#include "sandbox/hand_written.h"
#include "sandbox/price_history.h"
#include "sandbox/words.h"

namespace quillet::sandbox {

namespace {

// After so many Mac apps a Mac search names one for iPhone and iPad.
constexpr std::size_t kMacAppsPerStray = 7;

AppHead headOf(const AppSketch& sketch) {
  return {.name = sketch.name,
          .seller = sketch.maker.seller + ' ' + sketch.maker.artist,
          .kind = sketch.tagline,
          .genres = sketch.genres,
          .machines = sketch.machines,
          .storefronts = sketch.storefronts,
          .ratings = sketch.ratings};
}

std::string otherTexts(const AppHead& head) {
  std::string text = head.seller + ' ' + head.kind;
  for (const int genre : head.genres) text.append(" ").append(genreName(genre));
  return text;
}

std::vector<AppNumber> strewn(const std::vector<AppNumber>& apps,
                              const std::vector<AppNumber>& strays, std::size_t limit) {
  std::vector<AppNumber> mixture;
  auto stray = strays.begin();
  for (std::size_t i = 0; i < apps.size(); ++i) {
    mixture.push_back(apps[i]);
    const bool isTurn = (i + 1) % kMacAppsPerStray == 0 || i + 1 == apps.size();
    if (isTurn && stray != strays.end()) mixture.push_back(*stray++);
  }
  mixture.resize(std::min(mixture.size(), limit));
  return mixture;
}

}  // namespace

SampleStore::SampleStore(const StoreOptions& options)
    : today_(options.today),
      pricesOf_(options.pricesOf.value_or(options.today)),
      handWritten_(handWrittenApps()),
      generator_(options.seed) {
  for (AppNumber number = 0; number < handWritten_.size(); ++number) {
    handWrittenIds_.emplace(handWritten_[number].id, number);
    handWrittenBundleIds_.emplace(handWritten_[number].bundleId, number);
  }
  orderByPopularity(std::max(options.apps, static_cast<std::uint32_t>(handWritten_.size())));
  index();
}

void SampleStore::orderByPopularity(std::uint32_t size) {
  std::vector<std::int64_t> popularity(size);
  for (AppNumber number = 0; number < size; ++number) {
    const bool isGenerated = number >= handWritten_.size();
    // What is written by hand is there to be seen.
    popularity[number] =
        isGenerated ? generator_.ratings(number - static_cast<AppNumber>(handWritten_.size()))
                    : handWritten_[number].ratings * 10 + 1000;
  }
  order_.resize(size);
  std::iota(order_.begin(), order_.end(), AppNumber{0});
  std::ranges::sort(order_, {},
                    [&](AppNumber number) { return std::pair(-popularity[number], number); });
}

void SampleStore::index() {
  facets_.reserve(order_.size());
  for (std::uint32_t place = 0; place < size(); ++place) {
    const AppHead head = this->head(order_[place]);
    facets_.push_back(
        {head.machines, head.storefronts, static_cast<std::int16_t>(head.genres.front())});
    words_.add(place, head.name, WordIndex::Field::name);
    words_.add(place, otherTexts(head), WordIndex::Field::other);
  }
  words_.finish();
}

AppHead SampleStore::head(AppNumber number) const {
  if (number < handWritten_.size()) return headOf(handWritten_[number]);
  return generator_.head(number - static_cast<AppNumber>(handWritten_.size()));
}

SampleApp SampleStore::app(AppNumber number) const {
  AppSketch sketch = this->sketch(number);
  if (pricesOf_ < today_) sketch.usCents = priceOn(pricesOf_, sketch, today_);
  return finished(std::move(sketch), today_);
}

AppSketch SampleStore::sketch(AppNumber number) const {
  if (number < handWritten_.size()) return handWritten_[number];
  return generator_.sketch(number - static_cast<AppNumber>(handWritten_.size()));
}

std::optional<AppNumber> SampleStore::generated(std::optional<std::uint32_t> number) const {
  const std::uint32_t count = size() - static_cast<std::uint32_t>(handWritten_.size());
  if (!number || *number >= count) return std::nullopt;
  return *number + static_cast<AppNumber>(handWritten_.size());
}

std::optional<AppNumber> SampleStore::withId(std::int64_t id) const {
  const auto found = handWrittenIds_.find(id);
  if (found != handWrittenIds_.end()) return found->second;
  return generated(generator_.numberOfId(id));
}

std::optional<AppNumber> SampleStore::withBundleId(std::string_view bundleId) const {
  const auto found = handWrittenBundleIds_.find(std::string(bundleId));
  if (found != handWrittenBundleIds_.end()) return found->second;
  return generated(generator_.numberOfBundleId(bundleId));
}

std::vector<AppNumber> SampleStore::ofMaker(std::int64_t makerId) const {
  std::vector<AppNumber> apps;
  for (AppNumber number = 0; number < handWritten_.size(); ++number) {
    if (handWritten_[number].maker.id == makerId) apps.push_back(number);
  }
  for (const std::uint32_t number : generator_.numbersOfMaker(makerId)) {
    if (const auto app = generated(number)) apps.push_back(*app);
  }
  return apps;
}

std::vector<AppNumber> SampleStore::search(const SearchQuery& query) const {
  const std::vector<Match> matches = words_.matches(query.term, size());
  const auto isOnShelf = [&](const Machines& machines) { return runsOn(machines, query.shelf); };
  const std::vector<AppNumber> apps = best(matches, query, query.limit, isOnShelf);
  if (query.shelf != Shelf::mac) return apps;
  const std::size_t strays = apps.size() / kMacAppsPerStray + 1;
  const auto isStray = [](const Machines& machines) { return !machines.mac; };
  return strewn(apps, best(matches, query, strays, isStray), query.limit);
}

std::vector<AppNumber> SampleStore::bestKnown(Shelf shelf, Storefront storefront, int genre,
                                              std::size_t limit, const SketchTest& test) const {
  std::vector<AppNumber> found;
  for (std::uint32_t place = 0; place < size() && found.size() < limit; ++place) {
    const Facet& facet = facets_[place];
    const bool isSold = facet.storefronts.test(indexOf(storefront));
    const bool isOfGenre = genre == 0 || facet.genre == genre;
    if (isSold && isOfGenre && runsOn(facet.machines, shelf) && test(sketch(order_[place])))
      found.push_back(order_[place]);
  }
  return found;
}

std::vector<AppNumber> SampleStore::best(const std::vector<Match>& matches,
                                         const SearchQuery& query, std::size_t limit,
                                         const MachineTest& isWanted) const {
  std::array<std::vector<AppNumber>, 4> found;  // by how well they match
  std::vector<AppNumber>& perfect = found[static_cast<std::size_t>(Match::nameStart)];
  for (std::uint32_t place = 0; place < size() && perfect.size() < limit; ++place) {
    if (matches[place] == Match::none) continue;
    const Facet& facet = facets_[place];
    const bool isSold = facet.storefronts.test(static_cast<std::size_t>(query.storefront));
    std::vector<AppNumber>& peers = found[static_cast<std::size_t>(matches[place])];
    if (isSold && isWanted(facet.machines) && peers.size() < limit) peers.push_back(order_[place]);
  }
  for (const Match match : {Match::name, Match::somewhere}) {
    const std::vector<AppNumber>& next = found[static_cast<std::size_t>(match)];
    const std::size_t room = std::min(limit - perfect.size(), next.size());
    perfect.insert(perfect.end(), next.begin(), next.begin() + static_cast<std::ptrdiff_t>(room));
  }
  return std::move(perfect);
}

}  // namespace quillet::sandbox
