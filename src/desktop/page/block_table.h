// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <span>
#include <string_view>

#include "desktop/page/block.h"
#include "desktop/page/page_world.h"

namespace quillet {

struct BlockRow {
  std::string_view id;  ///< stored; never changes
  const char* title;    ///< marked for translation in the context "Page"
  Block* (*make)(const QString& title, const PageWorld& world);
};

/// The blocks of a page, in the order in which they stand.
[[nodiscard]] std::span<const BlockRow> blockTable();

// Each in a file of its own.
[[nodiscard]] Block* makePricesBlock(const QString& title, const PageWorld& world);
[[nodiscard]] Block* makePurchasesBlock(const QString& title, const PageWorld& world);
[[nodiscard]] Block* makeReleasesBlock(const QString& title, const PageWorld& world);
[[nodiscard]] Block* makeBundlesBlock(const QString& title, const PageWorld& world);
[[nodiscard]] Block* makeStoriesBlock(const QString& title, const PageWorld& world);
[[nodiscard]] Block* makeNotesBlock(const QString& title, const PageWorld& world);
[[nodiscard]] Block* makeRatingsBlock(const QString& title, const PageWorld& world);
[[nodiscard]] Block* makeReviewsBlock(const QString& title, const PageWorld& world);
[[nodiscard]] Block* makeDescriptionBlock(const QString& title, const PageWorld& world);
[[nodiscard]] Block* makeInformationBlock(const QString& title, const PageWorld& world);
[[nodiscard]] Block* makeOwnedBlock(const QString& title, const PageWorld& world);

}  // namespace quillet
