// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "base/enum_table.h"
#include "sandbox/request.h"

namespace quillet::sandbox {

/// What goes wrong with an answer.
enum class FaultKind {
  none,             ///< nothing but what delay and status say
  drop,             ///< the connection is closed in the middle of the body
  stall,            ///< headers, then nothing
  drip,             ///< headers, then a byte every five seconds
  truncate,         ///< a whole HTTP answer whose text ends early
  garbage,          ///< a web page instead of data
  empty,            ///< no body
  stale,            ///< the versions before the newest
  deepBody,         ///< lists within lists, 200 deep
  invalidUtf8Body,  ///< bytes that are no text inside a record
  hugeBody,         ///< 70 MiB
  redirectCircle,   ///< to itself
};

/// One thing that goes wrong, as a --fault text describes it.
struct Fault {
  std::string path = "/";              ///< of requests whose path begins so
  std::uint32_t after = 0;             ///< the first that many are spared
  std::optional<std::uint32_t> count;  ///< after which it heals; absent: never
  std::chrono::milliseconds delay{0};
  std::optional<int> status;
  FaultKind kind = FaultKind::none;
  std::size_t keep = 0;  ///< bytes of a truncated body
};

/// A --fault text that cannot be read; the text says why.
class BadFault : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Reads words like "path=/search status=429 count=2". Throws BadFault.
[[nodiscard]] Fault parseFault(std::string_view text);
/// One a line; none where there is nothing to read. Throws BadFault.
[[nodiscard]] std::vector<Fault> parseFaults(std::string_view lines);

/// Hands out faults, request by request.
class FaultPlan {
 public:
  explicit FaultPlan(std::vector<Fault> faults);

  /// The first fault that strikes a request to the path. Faults later in the plan do not see a
  /// request that an earlier one took, so that several in a row happen one after the other.
  [[nodiscard]] std::optional<Fault> next(std::string_view path);

 private:
  struct Entry {
    Fault fault;
    std::uint32_t seen = 0;
  };
  std::vector<Entry> entries_;
};

/// The answer after the fault, as far as its text and headers show it. What happens on the wire
/// (delay, drop, stall, drip, huge body) is the server's part.
[[nodiscard]] Answer damaged(Answer answer, const Fault& fault, std::string_view target);

}  // namespace quillet::sandbox
