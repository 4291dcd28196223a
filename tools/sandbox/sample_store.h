// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "sandbox/app_sketch.h"
#include "sandbox/generator.h"
#include "sandbox/storefronts.h"
#include "sandbox/word_index.h"

namespace quillet::sandbox {

struct StoreOptions {
  std::uint32_t apps = 2000;  ///< how many in all; never fewer than are written by hand
  std::uint64_t seed = 1;
  std::chrono::sys_days today;
  std::optional<std::chrono::sys_days> pricesOf;  ///< an earlier day whose prices hold
};

/// Which app, for as long as the store lives.
using AppNumber = std::uint32_t;

struct SearchQuery {
  std::string_view term;
  Shelf shelf = Shelf::mac;
  Storefront storefront = Storefront::us;
  std::size_t limit = 50;
};

/// All apps of the store: those written by hand, and generated ones up to the count. It does not
/// change once it is made; any number of threads may ask it.
class SampleStore {
 public:
  explicit SampleStore(const StoreOptions& options);

  [[nodiscard]] std::uint32_t size() const { return static_cast<std::uint32_t>(order_.size()); }
  [[nodiscard]] std::chrono::sys_days today() const { return today_; }
  /// The day whose prices hold, which is today unless it was asked for otherwise.
  [[nodiscard]] std::chrono::sys_days pricesOf() const { return pricesOf_; }
  [[nodiscard]] SampleApp app(AppNumber number) const;
  /// The facts behind an app, at a fraction of its cost.
  [[nodiscard]] AppSketch sketch(AppNumber number) const;

  [[nodiscard]] std::optional<AppNumber> withId(std::int64_t id) const;
  [[nodiscard]] std::optional<AppNumber> withBundleId(std::string_view bundleId) const;
  [[nodiscard]] std::vector<AppNumber> ofMaker(std::int64_t makerId) const;

  /// The best matches that the storefront sells, best first: those whose names match before the
  /// others, the better known before the less known. A search of the Mac's shelf has a few apps
  /// for iPhone and iPad strewn in, as the real store's have.
  [[nodiscard]] std::vector<AppNumber> search(const SearchQuery& query) const;

  using SketchTest = std::function<bool(const AppSketch&)>;

  /// At most `limit` apps of a shelf that pass the test, the best known first; of one category
  /// alone unless `genre` is 0.
  [[nodiscard]] std::vector<AppNumber> bestKnown(Shelf shelf, Storefront storefront, int genre,
                                                 std::size_t limit, const SketchTest& test) const;

 private:
  /// What is kept of each app, by its place in the order of popularity.
  struct Facet {
    Machines machines;
    StorefrontSet storefronts;
    std::int16_t genre;  ///< the main one
  };

  using MachineTest = std::function<bool(const Machines&)>;

  void orderByPopularity(std::uint32_t size);
  void index();
  [[nodiscard]] AppHead head(AppNumber number) const;
  [[nodiscard]] std::optional<AppNumber> generated(std::optional<std::uint32_t> number) const;
  [[nodiscard]] std::vector<AppNumber> best(const std::vector<Match>& matches,
                                            const SearchQuery& query, std::size_t limit,
                                            const MachineTest& isWanted) const;

  std::chrono::sys_days today_;
  std::chrono::sys_days pricesOf_;
  std::vector<AppSketch> handWritten_;
  Generator generator_;
  std::unordered_map<std::int64_t, AppNumber> handWrittenIds_;
  std::unordered_map<std::string, AppNumber> handWrittenBundleIds_;
  std::vector<AppNumber> order_;
  std::vector<Facet> facets_;
  WordIndex words_;
};

}  // namespace quillet::sandbox
