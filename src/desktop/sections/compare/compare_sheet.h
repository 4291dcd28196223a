// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>
#include <optional>
#include <string>
#include <vector>

#include "analysis/maintenance_health.h"
#include "desktop/charts/cost_plot.h"
#include "desktop/look/palette.h"
#include "desktop/models/app_row.h"
#include "desktop/sections/compare/compared_facts.h"
#include "system/locale_formats.h"
#include "system/time_zone.h"

namespace quillet {

/// What apps are compared by, from top to bottom.
enum class CompareAspect {
  price,
  sells,
  perYear,
  firstYear,
  years,  ///< what the years of use cost
  rating,
  maintenance,
  updated,
  size,
  needs,
  architecture,
  lowest,
  toOwn,  ///< what each year has cost by then; a chart stands in its place
};

/// How a cell is set.
enum class CellLook { plain, strong, quiet, low };

/// What is said of one app by one aspect.
struct CompareCell {
  QString text;  ///< "—" where nothing is known
  QString note;  ///< more, in small below it, or behind it
  CellLook look = CellLook::plain;
  PriceMove move = PriceMove::none;       ///< of a price
  std::optional<double> share;            ///< of the highest amount beside it: how long a bar is
  bool isLeast = false;                   ///< of all amounts beside it in its currency
  int ratingHalves = -1;                  ///< of a rating, 0 to 10
  bool hasWrench = false;                 ///< before the text
  std::optional<std::string> plain = {};  ///< as a spreadsheet counts with it

  friend bool operator==(const CompareCell&, const CompareCell&) = default;
};

/// The whole cell in one line: "unknown — Apple rate limited the purchase lookup".
[[nodiscard]] QString lineOf(const CompareCell& cell, CompareAspect aspect);

struct CompareColumn {
  AppKey app;
  QString name;
  QString seller;
  std::string artwork;
  std::string link;
  std::string currency;
  std::vector<CompareCell> cells;  ///< one an aspect
};

/// The table, and the chart below it.
struct CompareSheet {
  std::vector<CompareAspect> aspects;
  QStringList labels;  ///< one an aspect
  std::vector<CompareColumn> columns;
  CostPicture costs;    ///< without lines where there is nothing that could be drawn together
  QString costSummary;  ///< the same in a sentence, or why there is none
  std::vector<std::pair<AppKey, QString>> missing;  ///< that the storefront does not have, by name
};

/// What a sheet is made with besides the facts.
struct CompareTerms {
  const LocaleFormats& formats;                      ///< outlives the sheet
  std::optional<MaintenanceThresholds> maintenance;  ///< absent: the user does not want to see it
  UtcOffsetAt zone;
  Instant now{};
  int years = 1;  ///< of use
};

[[nodiscard]] CompareSheet sheetOf(const std::vector<ComparedFacts>& apps,
                                   const CompareTerms& terms);

/// Without what its maker adds to it: "Quillink – Markdown Editor" is "Quillink".
[[nodiscard]] QString shortName(const QString& name);

}  // namespace quillet
