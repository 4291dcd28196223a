// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <cstddef>
#include <list>
#include <map>
#include <optional>

#include "net/clock.h"

namespace quillet {

/// How long and how many answers are kept. Absent means without end.
struct AnswerCacheLimits {
  std::optional<std::chrono::milliseconds> age;
  std::optional<std::size_t> bound;
};

/// Answers by what was asked, in memory. Over the bound the oldest goes first.
template <typename Key, typename Value>
class AnswerCache {
 public:
  AnswerCache(Clock& clock, AnswerCacheLimits limits) : clock_(clock), limits_(limits) {}

  /// A copy of the kept answer; absent when there is none that is young enough.
  [[nodiscard]] std::optional<Value> find(const Key& key) const {
    const auto found = entries_.find(key);
    if (found == entries_.end() || isTooOld(found->second)) return {};
    return found->second.value;
  }

  [[nodiscard]] bool has(const Key& key) const {
    const auto found = entries_.find(key);
    return found != entries_.end() && !isTooOld(found->second);
  }

  /// Replaces what was kept under the key.
  void keep(const Key& key, Value value) {
    forget(key);
    const auto place = oldestFirst_.insert(oldestFirst_.end(), key);
    entries_.emplace(key, Entry{std::move(value), clock_.monotonic(), place});
    while (!oldestFirst_.empty() && hasToGo(entries_.at(oldestFirst_.front()))) {
      forget(Key(oldestFirst_.front()));
    }
  }

  void forget(const Key& key) {
    const auto found = entries_.find(key);
    if (found == entries_.end()) return;
    oldestFirst_.erase(found->second.place);
    entries_.erase(found);
  }

 private:
  struct Entry {
    Value value;
    Clock::Monotonic kept;
    typename std::list<Key>::iterator place;
  };

  [[nodiscard]] bool isTooOld(const Entry& entry) const {
    return limits_.age && clock_.monotonic() - entry.kept >= *limits_.age;
  }

  [[nodiscard]] bool hasToGo(const Entry& oldest) const {
    return (limits_.bound && entries_.size() > *limits_.bound) || isTooOld(oldest);
  }

  Clock& clock_;
  AnswerCacheLimits limits_;
  std::map<Key, Entry> entries_;
  std::list<Key> oldestFirst_;
};

}  // namespace quillet
