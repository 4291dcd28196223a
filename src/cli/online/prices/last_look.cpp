// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/prices/last_look.h"

#include <fmt/format.h>

#include <chrono>

#include "base/errors.h"
#include "base/text.h"
#include "store/records/price_seed_error.h"

namespace quillet {

namespace {

constexpr std::chrono::seconds kPatience{5};

}  // namespace

Task<std::optional<Instant>> lastLookAt(CommandServices services, std::string country) {
  try {
    const SeedManifest manifest = co_await services.prices.manifest(StopToken{}, kPatience);
    co_return lastLookIn(manifest, lowerAscii(country));
  } catch (const PriceSeedError&) {
    co_return std::nullopt;
  } catch (const NetworkError&) {
    co_return std::nullopt;
  }
}

std::string oldLookText(std::optional<Instant> looked, Instant now) {
  if (!isOldLook(looked, now)) return {};
  return fmt::format("Prices were last looked at on {}.", formatDay(*looked));
}

}  // namespace quillet
