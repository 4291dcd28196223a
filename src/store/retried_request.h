// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <functional>
#include <string>

#include "base/errors.h"
#include "net/clock.h"
#include "net/http_client.h"

namespace quillet {

/// When a service is asked again, and how long after.
struct RetryRules {
  int tries = 1;
  bool (*canHelpAfterStatus)(int status) = nullptr;
  bool (*canHelpAfterFailure)(NetworkError::Kind kind) = nullptr;
  /// How long to wait after a try, from 1.
  std::function<std::chrono::milliseconds(int attempt)> waitAfter;
};

/// The body of the first answer of success that `send` brings. Throws ITunesError for the status,
/// or the NetworkError, of the last try, or of one that trying again cannot help; NetworkError
/// `cancelled` when stopped. `send` is called once for each try; the clock outlives them.
Task<std::string> bodyWithRetries(std::function<Task<HttpResponse>()> send, RetryRules rules,
                                  Clock* clock, StopToken stop);

}  // namespace quillet
