// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/hand_written.h"

#include <algorithm>
#include <iterator>

namespace quillet::sandbox {

std::vector<AppSketch> handWrittenApps() {
  std::vector<AppSketch> all;
  for (const auto theme : {writingApps, photoApps, workApps, leisureApps, oddApps})
    std::ranges::move(theme(), std::back_inserter(all));
  return all;
}

}  // namespace quillet::sandbox
