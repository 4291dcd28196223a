// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/import_records.h"

#include "library/row_sets.h"

namespace quillet {

std::optional<ImportRecord> importRecord(SQLite::Database& database, const std::string& key) {
  return selectRow<ImportRecord>(database, "WHERE ZKEY = ?1", key);
}

void recordImport(WriteTransaction& transaction, const ImportRecord& record) {
  ImportRecord row = record;
  if (const auto stored = importRecord(transaction.database, record.key)) {
    row.id = stored->id;
    updateRow(transaction.database, row);
  } else {
    insertRow(transaction.database, row);
  }
  transaction.changes.imports.insert(record.key);
}

}  // namespace quillet
