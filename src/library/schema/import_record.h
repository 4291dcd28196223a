// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "base/dates.h"
#include "library/schema/table.h"

namespace quillet {

/// Which edition of the published price data was imported last; one row per key.
struct ImportRecord {
  RowId id = 0;
  std::string key;    ///< what was imported
  std::string stamp;  ///< data with an equal stamp is not imported again
  Instant importedAt{};

  friend bool operator==(const ImportRecord&, const ImportRecord&) = default;
};

template <>
inline constexpr auto kTable<ImportRecord> = Table{
    "ImportRecord", 1, KeyUse::reused, std::array<Index, 3>{Index{Index::Kind::unique, {"key"}}},
    std::tuple{attribute("key", &ImportRecord::key), attribute("stamp", &ImportRecord::stamp),
               attribute("importedAt", &ImportRecord::importedAt)}};

}  // namespace quillet
