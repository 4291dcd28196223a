// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "desktop/models/row_parts.h"
#include "desktop/models/row_source.h"
#include "desktop/models/row_table.h"
#include "library/schema/alert_record.h"

namespace quillet {

[[nodiscard]] AppRow alertRow(const AlertRecord& alert, const RowContext& context);

/// The newest alerts, ten thousand at most.
[[nodiscard]] RowSource alertsSource(const RowContext& context);
[[nodiscard]] RowTable alertsTable();

}  // namespace quillet
