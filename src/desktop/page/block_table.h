// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "desktop/models/layout_string.h"
#include "desktop/page/block.h"
#include "desktop/page/page_world.h"
#include "system/settings.h"

namespace quillet {

struct BlockRow {
  std::string_view id;  ///< stored; never changes
  const char* title;    ///< marked for translation in the context "Page"
  Block* (*make)(const QString& title, const PageWorld& world);
  /// Of the whole width where others stand in pairs. Its contents' margin is that of the page then,
  /// which it may use.
  bool isWide = false;
};

// Those that actions lead to.
inline constexpr std::string_view kStorefrontsBlock = "storefronts";
inline constexpr std::string_view kRanksBlock = "ranks";

/// The blocks of a page, in the order in which they stand where the user chose none.
[[nodiscard]] std::span<const BlockRow> blockTable();

/// Null where there is no such block (any more).
[[nodiscard]] const BlockRow* findBlock(std::string_view id);
[[nodiscard]] QString titleOf(const BlockRow& row);

/// The blocks as the user wants them; those that nobody knows are among them.
[[nodiscard]] std::vector<BlockChoice> blockChoices(const Settings& settings);
/// Without any, all is as usual again. Throws BadSetting.
void writeBlockChoices(WritableSettings& settings, const std::vector<BlockChoice>& choices);

// Each in a file of its own.
[[nodiscard]] Block* makeScreenshotsBlock(const QString& title, const PageWorld& world);
[[nodiscard]] Block* makePricesBlock(const QString& title, const PageWorld& world);
[[nodiscard]] Block* makePurchasesBlock(const QString& title, const PageWorld& world);
[[nodiscard]] Block* makeReleasesBlock(const QString& title, const PageWorld& world);
[[nodiscard]] Block* makeBundlesBlock(const QString& title, const PageWorld& world);
[[nodiscard]] Block* makeStoriesBlock(const QString& title, const PageWorld& world);
[[nodiscard]] Block* makeNotesBlock(const QString& title, const PageWorld& world);
[[nodiscard]] Block* makeRatingsBlock(const QString& title, const PageWorld& world);
[[nodiscard]] Block* makeReviewsBlock(const QString& title, const PageWorld& world);
[[nodiscard]] Block* makeDescriptionBlock(const QString& title, const PageWorld& world);
[[nodiscard]] Block* makeStorefrontsBlock(const QString& title, const PageWorld& world);
[[nodiscard]] Block* makeRanksBlock(const QString& title, const PageWorld& world);
[[nodiscard]] Block* makeInformationBlock(const QString& title, const PageWorld& world);
[[nodiscard]] Block* makeOwnedBlock(const QString& title, const PageWorld& world);

}  // namespace quillet
