// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>

#include "library/schema/import_record.h"
#include "library/write_transaction.h"

namespace quillet {

[[nodiscard]] std::optional<ImportRecord> importRecord(SQLite::Database& database,
                                                       const std::string& key);

/// Notes an import in place of the earlier one of its key.
void recordImport(WriteTransaction& transaction, const ImportRecord& record);

}  // namespace quillet
