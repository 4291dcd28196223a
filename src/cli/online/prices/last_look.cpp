// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/prices/last_look.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>

#include "base/errors.h"
#include "base/text.h"
#include "store/records/price_seed_error.h"

namespace quillet {

namespace {

constexpr std::chrono::seconds kPatience{5};

/// Prices are looked at daily; a day that was missed is nothing to speak of.
constexpr std::chrono::days kOld{3};

std::optional<Instant> lookIn(const SeedManifest& manifest, const std::string& country) {
  const auto entry =
      std::ranges::find(manifest.storefronts, country, &SeedManifest::Entry::country);
  return entry == manifest.storefronts.end() ? std::nullopt : entry->lookedAt;
}

}  // namespace

Task<std::optional<Instant>> lastLookAt(CommandServices services, std::string country) {
  try {
    const SeedManifest manifest = co_await services.prices.manifest(StopToken{}, kPatience);
    co_return lookIn(manifest, lowerAscii(country));
  } catch (const PriceSeedError&) {
    co_return std::nullopt;
  } catch (const NetworkError&) {
    co_return std::nullopt;
  }
}

std::string oldLookText(std::optional<Instant> looked, Instant now) {
  if (!looked || now - *looked <= kOld) return {};
  return fmt::format("Prices were last looked at on {}.", formatDay(*looked));
}

}  // namespace quillet
