// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/id_batches.h"

#include <fmt/format.h>

#include <algorithm>

namespace quillet {

std::string joinedIds(std::span<const std::int64_t> ids) {
  return fmt::format("{}", fmt::join(ids, ","));
}

std::vector<std::string> idBatches(std::span<const std::int64_t> ids, std::size_t size) {
  std::vector<std::string> batches;
  for (; !ids.empty(); ids = ids.subspan(std::min(size, ids.size()))) {
    batches.push_back(joinedIds(ids.first(std::min(size, ids.size()))));
  }
  return batches;
}

}  // namespace quillet
