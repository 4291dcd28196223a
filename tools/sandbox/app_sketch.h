// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "sandbox/sample_app.h"

namespace quillet::sandbox {

/// The few facts that settle an app; all else follows from them. What data/apps.json holds and the
/// generator draws.
struct AppSketch : AppFacts {
  double stars = 0;          ///< 1 to 5
  std::int64_t ratings = 0;  ///< how many
  std::string version = "1.0";
  int updated = 30;  ///< days before today, at least 1
  int every = 45;    ///< days between two versions
  int first = 900;   ///< days before today
  std::int64_t bytes = 24'000'000;
  std::string about;  ///< the first paragraph of the description
  std::string notes;  ///< of the newest version; empty: drawn
};

[[nodiscard]] SamplePurchase subscription(std::string name, int usCents, std::string period);
[[nodiscard]] SamplePurchase boughtOnce(std::string name, int usCents);

/// The whole app, the same for the same sketch and day.
[[nodiscard]] SampleApp finished(AppSketch sketch, std::chrono::sys_days today);

}  // namespace quillet::sandbox
