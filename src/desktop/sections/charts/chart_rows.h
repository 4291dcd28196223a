// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

#include "desktop/store_lists/found_rows.h"

namespace quillet {

/// A place of a chart. What is known of the chart comes with the library's part of the context.
[[nodiscard]] AppRow chartRow(const FoundApps& found, std::size_t position, const RowKey& key,
                              const FoundContext& context);

/// The list of Charts; its rows come in their order.
[[nodiscard]] RowTable chartTable();

/// What movement is told against, in several lengths, the longest first; none where it is not told.
[[nodiscard]] QStringList movementTexts(const KnownChart& chart, Instant now,
                                        const UtcOffsetAt& zone);

}  // namespace quillet
