// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/block_table.h"

#include <QCoreApplication>
#include <algorithm>
#include <array>

#include "system/settings_keys.h"

namespace quillet {

namespace {

constexpr auto kBlocks = std::to_array<BlockRow>({
    {"screenshots", QT_TRANSLATE_NOOP("Page", "Screenshots"), makeScreenshotsBlock, true},
    {"prices", QT_TRANSLATE_NOOP("Page", "Price history"), makePricesBlock},
    {"purchases", QT_TRANSLATE_NOOP("Page", "In-app purchases"), makePurchasesBlock},
    {"ratings", QT_TRANSLATE_NOOP("Page", "Ratings"), makeRatingsBlock},
    {"reviews", QT_TRANSLATE_NOOP("Page", "Reviews"), makeReviewsBlock},
    {"releases", QT_TRANSLATE_NOOP("Page", "Releases"), makeReleasesBlock},
    {"description", QT_TRANSLATE_NOOP("Page", "Description"), makeDescriptionBlock},
    {kStorefrontsBlock, QT_TRANSLATE_NOOP("Page", "Storefronts"), makeStorefrontsBlock},
    {kRanksBlock, QT_TRANSLATE_NOOP("Page", "Rank history"), makeRanksBlock},
    {"notes", QT_TRANSLATE_NOOP("Page", "In your collections"), makeNotesBlock},
    {"bundles", QT_TRANSLATE_NOOP("Page", "In bundles"), makeBundlesBlock},
    {"stories", QT_TRANSLATE_NOOP("Page", "Stories"), makeStoriesBlock},
    {"information", QT_TRANSLATE_NOOP("Page", "Information"), makeInformationBlock},
    {"owned", QT_TRANSLATE_NOOP("Page", "In My Apps"), makeOwnedBlock},
});

constexpr auto kUsualOrder = [] {
  std::array<std::string_view, kBlocks.size()> ids;
  for (std::size_t i = 0; i < ids.size(); ++i) ids[i] = kBlocks[i].id;
  return ids;
}();

}  // namespace

std::span<const BlockRow> blockTable() { return kBlocks; }

const BlockRow* findBlock(std::string_view id) {
  const auto* found = std::ranges::find(kBlocks, id, &BlockRow::id);
  return found == kBlocks.end() ? nullptr : found;
}

QString titleOf(const BlockRow& row) { return QCoreApplication::translate("Page", row.title); }

std::vector<BlockChoice> blockChoices(const Settings& settings) {
  const std::string text = settings.text(kDetailSectionLayout.key).value_or("");
  return readBlockChoices(text, kUsualOrder);
}

void writeBlockChoices(WritableSettings& settings, const std::vector<BlockChoice>& choices) {
  settings.write({{std::string(kDetailSectionLayout.key), blockChoicesText(choices, kUsualOrder)}});
}

}  // namespace quillet
