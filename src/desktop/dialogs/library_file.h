// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <filesystem>
#include <string>

#include "base/enum_table.h"
#include "desktop/models/view_world.h"
#include "library/library_export.h"

namespace quillet {

enum class ExportFormat { json, csv };

// The endings of files; never change.
inline constexpr EnumTable<ExportFormat, 2> kExportFormatWords{{
    {ExportFormat::json, "json"},
    {ExportFormat::csv, "csv"},
}};
static_assert(isComplete(kExportFormatWords, ExportFormat::csv));

[[nodiscard]] std::string textOf(const LibraryExport& document, ExportFormat format);

/// "42 watched apps and 3 collections with 21 apps"
[[nodiscard]] QString amountOf(const LibraryExport& document);

/// Where an export is to be written unless the user chooses otherwise: "Quillet Library
/// 2026-11-23.json" in the folder of the last one. `what` begins the name.
[[nodiscard]] std::filesystem::path suggestedExport(const ViewWorld& world, const std::string& what,
                                                    ExportFormat format);
/// The folder in which files of the library were last chosen.
[[nodiscard]] std::filesystem::path libraryFolder(const ViewWorld& world);
void rememberLibraryFolder(const ViewWorld& world, const std::filesystem::path& file);

}  // namespace quillet
