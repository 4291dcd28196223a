// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/bundles.h"

namespace quillet::sandbox {

namespace {

// Bundles have IDs by those of their makers, where no app or maker has its own.
constexpr std::int64_t kIdDistance = 30'000;
constexpr std::size_t kMostApps = 10;

}  // namespace

std::optional<SampleBundle> bundleOf(const SampleStore& store, std::int64_t makerId,
                                     Storefront storefront) {
  SampleBundle bundle;
  int sum = 0;
  for (const AppNumber number : store.ofMaker(makerId)) {
    SampleApp app = store.app(number);
    const bool isIn = app.machines.mac && app.usCents > 0 && app.isSoldIn(storefront);
    if (!isIn || bundle.apps.size() == kMostApps) continue;
    sum += app.usCents;
    bundle.apps.push_back(std::move(app));
  }
  if (bundle.apps.size() < 2) return std::nullopt;
  bundle.id = makerId + kIdDistance;
  bundle.name = bundle.apps.front().maker.artist + " Bundle";
  bundle.usCents = pricePointUpTo(sum * 7 / 10);
  return bundle;
}

std::optional<SampleBundle> bundleWithId(const SampleStore& store, std::int64_t id,
                                         Storefront storefront) {
  return bundleOf(store, id - kIdDistance, storefront);
}

}  // namespace quillet::sandbox
