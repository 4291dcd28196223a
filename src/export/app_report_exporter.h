// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <string>

#include "base/enum_table.h"
#include "export/app_report.h"

namespace quillet {

enum class ReportFormat { markdown, html, json };

// Stored; never change.
inline constexpr EnumTable<ReportFormat, 3> kReportFormatWords{{
    {ReportFormat::markdown, "markdown"},
    {ReportFormat::html, "html"},
    {ReportFormat::json, "json"},
}};
static_assert(isComplete(kReportFormatWords, ReportFormat::json));

/// Makes one self-contained file of everything known about an app.
class AppReportExporter {
 public:
  explicit AppReportExporter(AppReport report) : report_(std::move(report)) {}

  /// The file's text, UTF-8, ending with a line feed.
  [[nodiscard]] std::string text(ReportFormat format) const;

  /// Writes the file whole or not at all. Throws FileError.
  void write(const std::filesystem::path& file, ReportFormat format) const;

 private:
  AppReport report_;
};

}  // namespace quillet
