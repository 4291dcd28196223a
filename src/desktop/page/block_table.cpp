// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/block_table.h"

#include <QCoreApplication>
#include <array>

namespace quillet {

namespace {

constexpr std::array<BlockRow, 7> kBlocks{{
    {"screenshots", QT_TRANSLATE_NOOP("Page", "Screenshots"), makeScreenshotsBlock, true},
    {"prices", QT_TRANSLATE_NOOP("Page", "Price history"), makePricesBlock},
    {"notes", QT_TRANSLATE_NOOP("Page", "In your collections"), makeNotesBlock},
    {"ratings", QT_TRANSLATE_NOOP("Page", "Ratings"), makeRatingsBlock},
    {"description", QT_TRANSLATE_NOOP("Page", "Description"), makeDescriptionBlock},
    {"information", QT_TRANSLATE_NOOP("Page", "Information"), makeInformationBlock},
    {"owned", QT_TRANSLATE_NOOP("Page", "In My Apps"), makeOwnedBlock},
}};

}  // namespace

std::span<const BlockRow> blockTable() { return kBlocks; }

}  // namespace quillet
