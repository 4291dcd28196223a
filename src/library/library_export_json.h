// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

#include "library/library_export.h"

namespace quillet {

/// The format version that is written, and the newest that is read. Stored; it grows when an older
/// Quillet could not read the document any more.
inline constexpr int kExportVersion = 1;

/// Bytes; more than any library: 10,000 watched apps take some 3 MB.
inline constexpr std::size_t kLargestExport = 32'000'000;

/// The exported library as a JSON document, dates to the second.
[[nodiscard]] std::string libraryExportJson(const LibraryExport& document);

/// Reads such a document. Unknown keys are passed over; all else must be as it is written. Throws
/// DecodingError, a clause that says where: "'watchlist[3].trackId' is not a whole number".
[[nodiscard]] LibraryExport readLibraryExport(std::string_view bytes);

/// Reads the document that the user chose. Throws FileError, for what is no exported library too.
[[nodiscard]] LibraryExport readLibraryFile(const std::filesystem::path& file);

}  // namespace quillet
