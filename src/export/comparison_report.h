// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/enum_table.h"

namespace quillet {

enum class ComparisonFormat { markdown, html, csv };

// In the IDs of actions and the endings of files; never change.
inline constexpr EnumTable<ComparisonFormat, 3> kComparisonFormatWords{{
    {ComparisonFormat::markdown, "md"},
    {ComparisonFormat::html, "html"},
    {ComparisonFormat::csv, "csv"},
}};
static_assert(isComplete(kComparisonFormatWords, ComparisonFormat::csv));

/// What is said of one app under one heading.
struct ComparisonCell {
  std::string text;                  ///< as a person reads it
  std::optional<std::string> plain;  ///< as a spreadsheet counts with it; absent: the text

  friend bool operator==(const ComparisonCell&, const ComparisonCell&) = default;
};

struct ComparisonRow {
  std::string label;
  std::vector<ComparisonCell> cells;  ///< one an app

  friend bool operator==(const ComparisonRow&, const ComparisonRow&) = default;
};

struct ComparisonColumn {
  std::string name;
  std::string seller;
  std::string link;      ///< of its page in the store; empty for none
  std::string currency;  ///< of all its amounts; empty where it is unknown

  friend bool operator==(const ComparisonColumn&, const ComparisonColumn&) = default;
};

/// Apps beside each other, as a document has them. Texts are as the store wrote them, for each
/// format to escape.
struct ComparisonReport {
  std::string title;
  std::vector<ComparisonColumn> apps;
  std::vector<ComparisonRow> rows;
  std::vector<std::string> notes;  ///< below the table, a sentence each
};

/// The document, UTF-8, ending with a line feed. A table for spreadsheets has no title and no
/// notes; what one of them would take for a formula is kept from being one.
[[nodiscard]] std::string comparisonText(const ComparisonReport& report, ComparisonFormat format);

}  // namespace quillet
