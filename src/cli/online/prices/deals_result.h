// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "cli/streams.h"
#include "store/records/platform.h"
#include "store/records/price_seed_reader.h"
#include "system/locale_formats.h"

namespace quillet {

/// An app whose latest price change is a drop.
struct CLIDeal {
  std::int64_t trackId = 0;
  std::optional<std::string> name;
  std::optional<std::string> seller;
  std::optional<std::string> kind;
  std::optional<std::string> currency;
  double wasPrice = 0;
  double nowPrice = 0;
  double percentOff = 0;  ///< with one decimal
  Instant changedOn;
};

struct CLIDealsPayload {
  std::string country;
  std::optional<Instant> generatedAt;
  std::optional<Instant> lookedAt;   ///< when the store last told the prices
  std::string oldLook;               ///< that it is long ago; empty where not; not in JSON
  std::optional<Platform> platform;  ///< the only one looked at; not in JSON
  double minimumDropPercent = 0;
  std::size_t any = 0;         ///< drops on whatever platform and of whatever size; not in JSON
  std::size_t total = 0;       ///< drops found
  std::vector<CLIDeal> deals;  ///< drops listed
};

struct DealCriteria {
  std::string country;
  std::optional<Platform> platform;  ///< absent: any
  double minimumDrop = 0;            ///< percent
  std::size_t limit = 25;
};

/// Reads the whole file and keeps the `limit` foremost drops: the biggest first, then the newest,
/// then by name.
[[nodiscard]] CLIDealsPayload findDeals(PriceSeedReader& reader, const DealCriteria& criteria,
                                        const LocaleFormats& formats);

[[nodiscard]] std::string renderDealsJson(const CLIDealsPayload& payload);
[[nodiscard]] std::string renderDealsText(const CLIDealsPayload& payload,
                                          const LocaleFormats& formats, const TextStyle& style);

}  // namespace quillet
