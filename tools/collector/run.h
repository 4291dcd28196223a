// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <string>
#include <vector>

#include "net/clock.h"
#include "net/http_client.h"
#include "system/environment.h"

namespace quillet {

/// What is outside the collector.
struct CollectorWorld {
  const Environment& environment;
  HttpClient& http;
  Clock& clock;
  std::string worker;
  std::function<bool(const std::string& worker)> hasEnded;
  std::function<void(const std::string& text)> out;  ///< takes what was asked for
  std::function<void(const std::string& text)> err;  ///< takes progress and errors
  /// Becomes readable when a stop is wanted that the event loop has not taken in yet; -1: none
  /// does.
  int stopDescriptor = -1;
};

// Statuses that the process ends with. Scripts rely on them; never change.
inline constexpr int kCollectorOk = 0;
inline constexpr int kCollectorNothing = 1;
inline constexpr int kCollectorBadUsage = 2;
inline constexpr int kCollectorUpstream = 3;
inline constexpr int kCollectorRefused = 4;
inline constexpr int kCollectorStorage = 5;
inline constexpr int kCollectorUnfit = 6;   ///< to be published; nothing was replaced
inline constexpr int kCollectorFuture = 7;  ///< the record lies there; nothing was recorded
inline constexpr int kCollectorUnwell = 8;  ///< what status found: somebody must do something

/// The whole program, from its arguments to its status; all errors become words here. When `stop`
/// was requested the status is that of an upstream failure.
Task<int> runCollector(CollectorWorld world, std::vector<std::string> arguments, StopToken stop);

}  // namespace quillet
