// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <vector>

#include "analysis/release_history.h"
#include "desktop/charts/release_axis.h"
#include "desktop/models/page_facts.h"

namespace quillet {

/// One release as a list shows it.
struct ReleaseRow {
  QString version;
  QString date;
  QString gap;  ///< since the one before it: "54 days"; empty of the first
  QString notes;

  friend bool operator==(const ReleaseRow&, const ReleaseRow&) = default;
};

/// What is known of an app's releases: all that the store listed, else the current one.
[[nodiscard]] ReleaseHistory releasesOf(const PageFacts& facts, const MaintenanceView& view);

/// Newest first.
[[nodiscard]] std::vector<ReleaseRow> releaseRows(const ReleaseHistory& history);

/// Oldest first; none where one release alone is known.
[[nodiscard]] std::vector<ReleaseDot> releaseDots(const ReleaseHistory& history);

/// "54 days"; empty where it is unknown.
[[nodiscard]] QString usualGapText(const ReleaseHistory& history);

/// "Last release 3 days ago. 25 returned (Apple's limit; older ones exist)."
[[nodiscard]] QString releaseSentence(const ReleaseHistory& history);

}  // namespace quillet
