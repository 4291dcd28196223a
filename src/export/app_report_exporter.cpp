// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "export/app_report_exporter.h"

#include "export/html_report.h"
#include "export/json_report.h"
#include "export/markdown_report.h"
#include "system/whole_file.h"

namespace quillet {

std::string AppReportExporter::text(ReportFormat format) const {
  switch (format) {
    case ReportFormat::markdown: return markdownReport(report_);
    case ReportFormat::html: return htmlReport(report_);
    case ReportFormat::json: break;
  }
  return jsonReport(report_);
}

void AppReportExporter::write(const std::filesystem::path& file, ReportFormat format) const {
  replaceFile(file, text(format));
}

}  // namespace quillet
