// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/block_table.h"

#include <QCoreApplication>
#include <array>

namespace quillet {

namespace {

constexpr std::array<BlockRow, 1> kBlocks{{
    {"description", QT_TRANSLATE_NOOP("Page", "Description"), makeDescriptionBlock},
}};

}  // namespace

std::span<const BlockRow> blockTable() { return kBlocks; }

}  // namespace quillet
