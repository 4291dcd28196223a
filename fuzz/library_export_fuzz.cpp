// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <algorithm>

#include "fuzzing.h"
#include "library/library_export_csv.h"
#include "library/library_export_json.h"

using namespace quillet;

void quillet::tryInput(std::string_view input) {
  readOrRefuse([input] {
    const LibraryExport document = readLibraryExport(input);
    const std::string json = libraryExportJson(document);
    // A date before the year 0, as an offset can make it, moves there once.
    require(libraryExportJson(readLibraryExport(json)) == json, "what is written reads back");
    const std::string csv = libraryExportCsv(document);
    require(std::count(csv.begin(), csv.end(), '"') % 2 == 0, "every quote of a table is closed");
  });
}
