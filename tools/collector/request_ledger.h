// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "net/clock.h"
#include "system/descriptor.h"

namespace quillet {

/// The window in which an address may send so many requests: the store's minute, and half a second
/// that keeps a request clear of its edge.
inline constexpr std::chrono::milliseconds kRequestWindow{60'500};

/// A file with the times of the latest requests, eight bytes each in their order, into which any
/// number of processes of one machine write. Its monotonic clock is the same for all of them.
class RequestLedger {
 public:
  /// The file of that name in the first of the folders that has it, or else in which it can be
  /// made, for all users. Throws std::system_error where there is none, or where somebody else put
  /// something there that is no file for all.
  RequestLedger(const std::vector<std::filesystem::path>& folders, const std::string& name);

  /// One that no other process sees. Throws std::system_error.
  RequestLedger();

  enum class Entry {
    taken,   ///< the request may start, and is written down
    full,    ///< there were too many
    locked,  ///< another process is at the file
  };
  struct Answer {
    Entry entry;
    std::chrono::milliseconds wait{0};  ///< until there is a place, if it is full
  };

  /// Writes a request down unless there were `limit` within the window. Throws std::system_error.
  [[nodiscard]] Answer enter(const Clock& clock, int limit);

  /// Writes a request down that was sent anyway; not where another process is at the file. Throws
  /// std::system_error.
  void note(const Clock& clock);

 private:
  [[nodiscard]] std::int64_t entries() const;
  [[nodiscard]] Clock::Monotonic entry(std::int64_t index) const;
  void add(Clock::Monotonic now);
  void forgetAnotherStart(Clock::Monotonic now);
  void shorten();

  Descriptor file_;
};

}  // namespace quillet
