// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include "desktop/models/compare_list.h"
#include "desktop/models/page_facts.h"
#include "queries/app_comparison.h"

namespace quillet {

/// All that is known of an app that is compared.
struct ComparedFacts {
  ComparedKey key;
  std::optional<PageFacts> library;      ///< absent before it was read
  std::optional<ComparedApp> told;       ///< by the store; absent before it answered
  std::optional<AppEnrichment> catalog;  ///< its releases and its build; likewise
  bool isMissing = false;                ///< the storefront does not have it
};

/// The build that is compared: the one that a list means, else that of the record. Absent before
/// the store answered.
[[nodiscard]] std::optional<Platform> comparedBuild(const ComparedFacts& facts);

/// The newest record of it, with what belongs to its build; absent where there is none.
[[nodiscard]] std::optional<DescribedApp> describedOf(const ComparedFacts& facts);

/// For a title; that it has none where nobody told.
[[nodiscard]] QString comparedName(const ComparedFacts& facts);

}  // namespace quillet
