// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <algorithm>

#include "base/errors.h"
#include "fuzzing.h"
#include "library/library_export_csv.h"
#include "library/library_export_json.h"

using namespace quillet;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    const LibraryExport document = readLibraryExport(textOf(data, size));
    const std::string json = libraryExportJson(document);
    // A date before the year 0, as an offset can make it, moves there once.
    require(libraryExportJson(readLibraryExport(json)) == json, "what is written reads back");
    const std::string csv = libraryExportCsv(document);
    require(std::count(csv.begin(), csv.end(), '"') % 2 == 0, "every quote of a table is closed");
  } catch (const DecodingError& error) {
    require(*error.what() != '\0' && isValidUtf8(error.what()), "a refusal has a reason");
  }
  return 0;
}
