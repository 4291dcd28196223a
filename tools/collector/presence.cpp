// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/presence.h"

namespace quillet {

namespace {

constexpr std::chrono::days kLongestKept{31};

}  // namespace

std::vector<std::string> enterRecord(
    SqlTransaction& transaction, const std::string& worker, Instant now,
    const std::function<bool(const std::string& worker)>& hasEnded) {
  std::vector<std::string> all;
  transaction.run("DELETE FROM collectors WHERE began < $1", {stored(now - kLongestKept)});
  transaction.each("SELECT worker FROM collectors WHERE worker <> $1 ORDER BY worker", {worker},
                   [&](const SqlRow& row) { all.push_back(row.text(0)); });
  std::vector<std::string> others;
  for (const std::string& other : all) {
    if (hasEnded(other)) {
      transaction.run("DELETE FROM collectors WHERE worker = $1", {other});
    } else {
      others.push_back(other);
    }
  }
  transaction.run(
      "INSERT INTO collectors (worker, began) VALUES ($1, $2) "
      "ON CONFLICT (worker) DO UPDATE SET began = excluded.began",
      {worker, stored(now)});
  return others;
}

}  // namespace quillet
