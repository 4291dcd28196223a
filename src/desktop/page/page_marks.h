// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

#include "analysis/maintenance_health.h"
#include "desktop/models/page_facts.h"
#include "system/locale_formats.h"
#include "system/settings.h"
#include "system/time_zone.h"

namespace quillet {

enum class MarkKind {
  plain,    ///< a price that is what it was
  down,     //
  up,       //
  low,      //
  fresh,    //
  neutral,  //
  mine,     ///< what the user decided
  stars,    ///< a rating: no pill, but stars before the text
  aside,    ///< no pill either, and quiet
};

/// One of all that a mark might say.
struct MarkChoice {
  QString title;
  QString text;
  bool isThis = false;  ///< what it does say

  friend bool operator==(const MarkChoice&, const MarkChoice&) = default;
};

/// What a mark tells when it is opened.
struct MarkDetails {
  QString title;
  QStringList paragraphs;
  std::vector<MarkChoice> choices = {};
  QString note = {};  ///< below all of it; empty for none

  friend bool operator==(const MarkDetails&, const MarkDetails&) = default;
};

/// One of the short statements below an app's name.
struct PageMark {
  MarkKind kind = MarkKind::neutral;
  QString text;
  QString icon = {};      ///< before the text; empty for none
  QString spoken = {};    ///< for those who hear it, where the text alone says too little
  QString tip = {};       ///< more about it; empty for nothing
  int ratingHalves = -1;  ///< of a rating, 0 to 10
  std::optional<MarkDetails> details = {};  ///< absent where there is nothing to open

  friend bool operator==(const PageMark&, const PageMark&) = default;
};

/// What marks are judged by besides the facts.
struct MarkTerms {
  const LocaleFormats& formats;
  std::optional<MaintenanceThresholds> maintenance;  ///< absent: the user does not want to see it
  UtcOffsetAt zone;
  Instant now;
};

/// Of an app of which anything is known, the price first.
[[nodiscard]] std::vector<PageMark> marksOf(const PageFacts& facts, const MarkTerms& terms);

}  // namespace quillet
