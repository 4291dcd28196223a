// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/sample_app.h"

#include <numeric>

namespace quillet::sandbox {

bool runsOn(const Machines& machines, Shelf shelf) {
  if (shelf == Shelf::mac) return machines.mac;
  return shelf == Shelf::iphone ? machines.iphone : machines.ipad;
}

std::int64_t SampleRatings::count() const {
  return std::accumulate(histogram.begin(), histogram.end(), std::int64_t{0});
}

double SampleRatings::average() const {
  const std::int64_t all = count();
  if (all == 0) return 0;
  std::int64_t stars = 0;
  for (std::size_t i = 0; i < histogram.size(); ++i)
    stars += static_cast<std::int64_t>(i + 1) * histogram[i];
  return static_cast<double>(stars) / static_cast<double>(all);
}

}  // namespace quillet::sandbox
