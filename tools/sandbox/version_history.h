// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "sandbox/random.h"
#include "sandbox/sample_app.h"

namespace quillet::sandbox {

/// The version that came before: "3.4.1" after "3.4", "3.4" after "3.3", "3.0" after "2.9". Empty
/// where there is none, which is so for "1.0" and for text that is no dotted number.
[[nodiscard]] std::string versionBefore(std::string_view version);

struct HistoryPlan {
  std::string newest;
  std::string newestNotes;  ///< empty: drawn
  int updated;              ///< days before today
  int every;                ///< days between two versions, about
  int first;                ///< days before today; nothing is older
};

/// At most 25 versions, newest first, at times drawn from `random`.
[[nodiscard]] std::vector<SampleVersion> versionHistory(const HistoryPlan& plan,
                                                        std::chrono::sys_days today, Random random);

}  // namespace quillet::sandbox
