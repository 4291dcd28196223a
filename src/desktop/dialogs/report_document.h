// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <string>

#include "base/enum_table.h"
#include "export/app_report.h"

class QFont;
class QPagedPaintDevice;
class QTextDocument;

namespace quillet {

/// What a report is written as.
enum class ReportForm { markdown, html, json, pdf };

// Stored, and the endings of files; never change.
inline constexpr EnumTable<ReportForm, 4> kReportForms{{
    {ReportForm::markdown, "md"},
    {ReportForm::html, "html"},
    {ReportForm::json, "json"},
    {ReportForm::pdf, "pdf"},
}};
static_assert(isComplete(kReportForms, ReportForm::pdf));

/// The text of a report; of one on paper that from which it is printed.
[[nodiscard]] std::string reportText(const AppReport& report, ReportForm form);

/// The file's bytes. Runs on any thread; `font` is that of a report on paper, whose sizes are the
/// report's own.
[[nodiscard]] std::string reportFile(const AppReport& report, ReportForm form, const QFont& font);

/// Lays a report in HTML out in this font, `growth` times as large as it says.
void layReport(QTextDocument& document, const std::string& html, const QFont& font, double growth);

/// Prints a report on the pages of a printer, numbered.
void printReport(const AppReport& report, const QFont& font, QPagedPaintDevice& printer);

}  // namespace quillet
