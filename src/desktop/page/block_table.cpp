// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/block_table.h"

#include <QCoreApplication>
#include <array>

namespace quillet {

namespace {

constexpr std::array<BlockRow, 11> kBlocks{{
    {"prices", QT_TRANSLATE_NOOP("Page", "Price history"), makePricesBlock},
    {"purchases", QT_TRANSLATE_NOOP("Page", "In-app purchases"), makePurchasesBlock},
    {"ratings", QT_TRANSLATE_NOOP("Page", "Ratings"), makeRatingsBlock},
    {"reviews", QT_TRANSLATE_NOOP("Page", "Reviews"), makeReviewsBlock},
    {"releases", QT_TRANSLATE_NOOP("Page", "Releases"), makeReleasesBlock},
    {"description", QT_TRANSLATE_NOOP("Page", "Description"), makeDescriptionBlock},
    {"notes", QT_TRANSLATE_NOOP("Page", "In your collections"), makeNotesBlock},
    {"bundles", QT_TRANSLATE_NOOP("Page", "In bundles"), makeBundlesBlock},
    {"stories", QT_TRANSLATE_NOOP("Page", "Stories"), makeStoriesBlock},
    {"information", QT_TRANSLATE_NOOP("Page", "Information"), makeInformationBlock},
    {"owned", QT_TRANSLATE_NOOP("Page", "In My Apps"), makeOwnedBlock},
}};

}  // namespace

std::span<const BlockRow> blockTable() { return kBlocks; }

}  // namespace quillet
